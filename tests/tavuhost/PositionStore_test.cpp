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
        store.Store("Notes", {-5, 7, 240, 4294967295u});
        store.Store("NOTES", {100, 80, 240, 140}); // the same element: names ignore case
        EXPECT_EQ(store.Lines(), std::vector<std::string>{"NOTES 100 80 240 140"});
    }
    FILE* left = fopen(path.c_str(), "rb");
    EXPECT_EQ(left, nullptr) << "the run's store is removed when it ends";
    if (left) fclose(left);
}
