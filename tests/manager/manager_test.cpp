#include "Module.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"
#include "Words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(ManagerConstruction, StartsWithItsDefaults) {
    ResetToolkit();
    const CUIManager& m = g_UIManager;
    EXPECT_EQ(Words(g_UIManager.GetVersion(), m.NextElementID, m.MousePosition.x, m.MousePosition.y,
                    m.Prefix, m.TooltipDelay, m.DoubleClickTime, m.KeyRepeatInterval,
                    m.KeyRepeatDelay),
              "18 1 -1 -1 TAVU 1000 250 50 250");
    EXPECT_EQ(g_UIManager.Screen, nullptr);
    g_UIManager.Shutdown(); // constructed state: nothing happens, nothing is touched
    EXPECT_FALSE(g_UIManager.IsShutDown);
}

class Manager : public ToolkitTest {};

TEST_F(Manager, FindElementLeavesAnEmptyEntryThatALaterElementFills) {
    EXPECT_EQ(g_UIManager.FindElement("Later"), nullptr);
    ASSERT_EQ(g_UIManager.ElementsByName.count(utf8stringnocase("later")), 1u);
    TAVUElement* later = MakeElement("Later");
    EXPECT_EQ(g_UIManager.FindElement("LATER"), later);
    EXPECT_EQ(g_UIManager.FindElement(nullptr), nullptr); // a null name is ""
    EXPECT_EQ(g_UIManager.ElementsByName.count(utf8stringnocase("")), 1u);
    EXPECT_EQ(g_UIManager.FindFactory("NoSuchType"), nullptr);
    EXPECT_EQ(g_UIManager.Factories.count(utf8stringnocase("nosuchtype")), 1u);
}

TEST_F(Manager, RenderTakesFrameTimeAndDisplaySize) {
    Host.DisplayAvailable = false;
    g_UIManager.Render();
    EXPECT_EQ(Words(g_UIManager.Screen->Width, g_UIManager.Screen->Height),
              "800 600"); // until the host answers
    Host.DisplayAvailable = true;
    Host.DisplayWidth = 1024;
    Host.DisplayHeight = 768;
    TavuAdvanceClock(40);
    g_UIManager.Render();
    EXPECT_EQ(g_UIManager.FrameTime, kStartTick + 40);
    EXPECT_EQ(Words(g_UIManager.Screen->Width, g_UIManager.Screen->Height), "1024 768");
    Host.DisplayAvailable = false; // a failed answer keeps the old size
    g_UIManager.Render();
    EXPECT_EQ(g_UIManager.Screen->Width, 1024);
}

// Setting, reading and unsetting metadata run end to end in tavuhost's
// element_queries case.
TEST_F(Manager, AnElementsMetadataGoesWithIt) {
    TAVUElement* element = MakeElement("Tagged");
    g_UIManager.SetMetadata(element->ID, "k", "v");
    unsigned id = element->ID;
    element->Parent->DeleteChild(element);
    EXPECT_EQ(g_UIManager.Metadata.count(id), 0u); // the destructor cleared it
}
