// A stable merge sort for rows that scripts and authors order.
//
// Rows whose keys compare equal keep the order they had, so a sort gives the
// same rows in the same places on every system (the C library's qsort does
// not promise that, and the ones Linux and Windows ship disagree). The merge
// only ever reads inside the two runs it joins, so a comparison that is not
// consistent (a script atom that answers at random) gives some order, never
// a read past the rows.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

// Sorts count rows of data by a C-style comparison (negative, zero or
// positive, given pointers to two rows).
template <class T>
void StableSort(T* data, size_t count, int (*compare)(const void*, const void*)) {
    if (count < 2 || !compare) return;
    std::vector<T> buffer(data, data + count);
    T* from = buffer.data();
    T* to = data;
    bool resultInBuffer = true;
    for (size_t width = 1; width < count; width *= 2) {
        for (size_t left = 0; left < count; left += 2 * width) {
            size_t middle = std::min(left + width, count);
            size_t right = std::min(left + 2 * width, count);
            size_t i = left, j = middle, k = left;
            // The right run's row goes first only when strictly smaller.
            while (i < middle && j < right)
                to[k++] = compare(&from[j], &from[i]) < 0 ? from[j++] : from[i++];
            while (i < middle)
                to[k++] = from[i++];
            while (j < right)
                to[k++] = from[j++];
        }
        std::swap(from, to);
        resultInBuffer = !resultInBuffer;
    }
    if (resultInBuffer) std::copy(buffer.begin(), buffer.end(), data);
}
