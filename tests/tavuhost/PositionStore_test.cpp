#include "PositionStore.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

TEST(PositionStore, KeepsItsFileBesideTheInterfaceForTheRunOnly) {
    const std::pair<const char*, const char*> beside[] = {
        {"examples/settings.xml", "examples/settings.positions"},
        {"a.b/panel", "a.b/panel.positions"},
        {"C:\\ui\\main.XML", "C:\\ui\\main.positions"},
    };
    for (const auto& [file, positions] : beside)
        EXPECT_EQ(PositionStore::FileBeside(file), positions) << file;

    std::string path = testing::TempDir() + "store_test.positions";
    {
        PositionStore store;
        store.KeepBeside(testing::TempDir() + "store_test.xml");
        EXPECT_TRUE(store.Lines().empty());
        store.Store("Notes", {-5, 7, 240, 4294967295u});
        store.Store("Save@Notes", {1, 2, 3, 4});
        store.Store("NOTES", {100, 80, 240, 140}); // the same element: names ignore case
        EXPECT_EQ(store.Lines(),
                  (std::vector<std::string>{"NOTES 100 80 240 140", "Save@Notes 1 2 3 4"}));
        StoredPosition found;
        ASSERT_TRUE(store.Find("notes", found));
        EXPECT_EQ(found.X, 100);
        EXPECT_FALSE(store.Find("Other", found));
    }
    FILE* left = fopen(path.c_str(), "rb");
    EXPECT_EQ(left, nullptr) << "the run's store is removed when it ends";
    if (left) fclose(left);
}
