#include "StableSort.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

namespace {
// Rows are "key:tag"; only the key's first letter counts.
int ByFirstLetter(const void* a, const void* b) {
    char x = (*static_cast<const std::string*>(a))[0];
    char y = (*static_cast<const std::string*>(b))[0];
    return x < y ? -1 : x > y;
}

// Answers at random, as a careless script atom might.
int AtRandom(const void*, const void*) {
    return rand() % 3 - 1;
}
} // namespace

TEST(StableSort, RowsWithEqualKeysKeepTheirOrder) {
    struct Case {
        std::vector<std::string> Rows;
        std::vector<std::string> Sorted;
    } cases[] = {
        {{}, {}},
        {{"b1"}, {"b1"}},
        {{"b1", "a1", "b2", "a2", "c1", "a3"}, {"a1", "a2", "a3", "b1", "b2", "c1"}},
        {{"c1", "c2", "c3", "b1", "b2", "a1", "a2"}, {"a1", "a2", "b1", "b2", "c1", "c2", "c3"}},
    };
    for (Case& c : cases) {
        StableSort(c.Rows.data(), c.Rows.size(), ByFirstLetter);
        EXPECT_EQ(c.Rows, c.Sorted);
    }
}

// Whatever the comparison answers, the rows come back, each once.
TEST(StableSort, AnInconsistentComparisonStillGivesTheSameRows) {
    srand(7);
    for (size_t count : {2u, 3u, 17u, 1000u}) {
        std::vector<int> rows(count);
        for (size_t i = 0; i < count; ++i)
            rows[i] = int(i);
        StableSort(rows.data(), rows.size(), AtRandom);
        std::sort(rows.begin(), rows.end());
        for (size_t i = 0; i < count; ++i)
            ASSERT_EQ(rows[i], int(i));
    }
}
