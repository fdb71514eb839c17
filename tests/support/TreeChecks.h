// Checks of the whole element tree that tests share.
#pragma once

#include "CUIManager.h"
#include "TAVUElement.h"
#include "TAVUScreen.h"

#include <gtest/gtest.h>

#include <set>
#include <vector>

// The tree under the screen is linked both ways, every element in it is known
// by its ID, and no element is known that is not in it.
inline void ExpectConsistentTree() {
    TAVUScreen* screen = g_UIManager.Screen;
    ASSERT_NE(screen, nullptr);
    std::set<unsigned> reachable{screen->ID};
    std::vector<TAVUElement*> pending{screen};
    while (!pending.empty()) {
        TAVUElement* parent = pending.back();
        pending.pop_back();
        TAVUElement* previous = nullptr;
        for (TAVUElement* child = parent->FirstChild; child; child = child->Next) {
            EXPECT_EQ(child->Parent, parent) << child->FullName;
            EXPECT_EQ(child->Previous, previous) << child->FullName;
            EXPECT_EQ(g_UIManager.FindElementByID(child->ID), child) << child->FullName;
            reachable.insert(child->ID);
            pending.push_back(child);
            previous = child;
        }
        EXPECT_EQ(parent->LastChild, previous) << parent->FullName;
    }
    for (const auto& [id, element] : g_UIManager.ElementsByID) {
        if (element) {
            EXPECT_TRUE(reachable.count(id)) << "unreachable " << element->FullName;
        }
    }
}
