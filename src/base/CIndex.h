// A growable array of pointers with a null in every free place. Adding reuses
// the first null place, and the array grows by 10 when there is none. The lock
// is entered and left around each access; it guards nothing across calls.
#pragma once

#include "Platform.h"

#include <cstdlib>
#include <cstring>

template <typename T> class CIndex {
public:
    CIndex() { InitializeCriticalSection(&Lock); }
    ~CIndex() {
        free(Array);
        DeleteCriticalSection(&Lock);
    }
    CIndex(const CIndex&) = delete;
    CIndex& operator=(const CIndex&) = delete;

    unsigned GetSize() {
        Touch();
        return Size;
    }

    // The pointer at a place, or null for a free or out-of-range place.
    T Get(unsigned place) {
        Touch();
        return place < Size ? Array[place] : nullptr;
    }
    T operator[](unsigned place) { return Get(place); }

    // Stores a pointer in the first free place and answers that place, or -1
    // when the array cannot grow.
    int Add(T item) {
        EnterCriticalSection(&Lock);
        int place = FirstFree();
        if (place < 0 && Grow()) place = FirstFree();
        if (place >= 0) Array[place] = item;
        LeaveCriticalSection(&Lock);
        return place;
    }

    // Stores a pointer in a place that exists; a place beyond the end is ignored.
    void Set(unsigned place, T item) {
        EnterCriticalSection(&Lock);
        if (place < Size) Array[place] = item;
        LeaveCriticalSection(&Lock);
    }

    // Frees a place; the pointer itself is the caller's.
    void Remove(unsigned place) {
        EnterCriticalSection(&Lock);
        if (place < Size) Array[place] = nullptr;
        LeaveCriticalSection(&Lock);
    }

    void Clear() {
        EnterCriticalSection(&Lock);
        if (Array) memset(Array, 0, sizeof(T) * Size);
        LeaveCriticalSection(&Lock);
    }

    unsigned Count() {
        Touch();
        unsigned count = 0;
        for (unsigned place = 0; place < Size; ++place)
            if (Array[place]) ++count;
        return count;
    }

private:
    void Touch() {
        EnterCriticalSection(&Lock);
        LeaveCriticalSection(&Lock);
    }

    int FirstFree() const {
        for (unsigned place = 0; place < Size; ++place)
            if (!Array[place]) return int(place);
        return -1;
    }

    bool Grow() {
        T* grown = static_cast<T*>(realloc(Array, sizeof(T) * (Size + 10)));
        if (!grown) return false;
        memset(grown + Size, 0, sizeof(T) * 10);
        Array = grown;
        Size += 10;
        return true;
    }

    unsigned Size = 0;
    T* Array = nullptr;
    CRITICAL_SECTION Lock;
};
