#include "TAVUEmbeddedScript.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"
#include "Words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class Input : public ToolkitTest {
protected:
    void On(TAVUEmbeddedScript*& field, TAVUElement* element, const char* source,
            const char* arguments = "int X, int Y") {
        field = TAVUEmbeddedScript::New(element, source, arguments);
    }
    bool MoveTo(int x, int y) {
        _Point2i point{x, y};
        return g_UIManager.OnMouseMove(point);
    }
    // Lays the tree out, as a frame does, and brings the pointer to x, y.
    void PointAt(int x, int y) {
        g_UIManager.Render();
        MoveTo(x, y);
    }
};

TEST_F(Input, AClickRunsDownThenClickAndIsTakenBothWays) {
    TAVUElement* button = MakeBox("Button", 10, 10, 50, 20);
    On(button->OnLeftDown, button, "down");
    On(button->OnLeftClick, button, "click");
    PointAt(20, 15);
    EXPECT_TRUE(g_UIManager.OnLMouseDown());
    EXPECT_EQ(g_UIManager.LeftPressedElementID, button->ID);
    EXPECT_EQ(g_UIManager.LeftButtonState, 2);
    EXPECT_TRUE(g_UIManager.OnLMouseUp());
    EXPECT_EQ(Host.Ran(), (std::vector<std::string>{"down", "click"}));
    EXPECT_EQ(Host.AtomRuns[1].Args, (std::vector<std::string>{"20", "15"}));
    EXPECT_FALSE(g_UIManager.OnLMouseUp()); // nothing is down any more
}

TEST_F(Input, APressNobodyTakesFallsThroughAndItsReleaseToo) {
    MakeBox("Plain", 0, 0, 100, 100);
    TAVUElement* field = MakeBox("Field", 200, 200, 50, 50);
    g_UIManager.SetFocusElement(field);
    PointAt(5, 5);
    EXPECT_FALSE(g_UIManager.OnLMouseDown());
    EXPECT_EQ(g_UIManager.LeftButtonState, 1);
    EXPECT_FALSE(g_UIManager.OnLMouseUp());
    MoveTo(400, 400); // on the bare screen, which takes the focus
    EXPECT_FALSE(g_UIManager.OnLMouseDown());
    EXPECT_EQ(g_UIManager.FocusElementID, g_UIManager.Screen->ID);
}

TEST_F(Input, DoubleClickWithinTimeAndDistanceReplacesTheSecondDown) {
    TAVUElement* icon = MakeBox("Icon", 0, 0, 100, 100);
    On(icon->OnLeftDown, icon, "down");
    On(icon->OnDoubleLeftClick, icon, "double");
    PointAt(50, 50);
    g_UIManager.OnLMouseDown();
    g_UIManager.OnLMouseUp();
    TavuAdvanceClock(200);
    MoveTo(58, 57); // 8 and 7 pixels: 113, below 125
    EXPECT_TRUE(g_UIManager.OnLMouseDown());
    g_UIManager.OnLMouseUp();
    TavuAdvanceClock(100);
    g_UIManager.OnLMouseDown(); // a third press: no new double click
    EXPECT_EQ(Host.Ran(), (std::vector<std::string>{"down", "double", "down"}));
    g_UIManager.OnLMouseUp();
    TavuAdvanceClock(250); // too late for the fourth
    g_UIManager.OnLMouseDown();
    EXPECT_EQ(Host.Ran().back(), "down");
    g_UIManager.OnLMouseUp();
    TavuAdvanceClock(10);
    MoveTo(69, 59); // 11 and 2 pixels from the last press: 125, too far
    g_UIManager.OnLMouseDown();
    EXPECT_EQ(Host.Ran().back(), "down");
}

TEST_F(Input, ClickThroughSkipsPressAndReleaseButNotTheDoubleClick) {
    TAVUElement* under = MakeBox("Under", 0, 0, 100, 100);
    TAVUElement* glass = MakeBox("Glass", 0, 0, 100, 100);
    glass->LeftClickThru = true;
    On(glass->OnLeftClick, glass, "glass click");
    On(glass->OnDoubleLeftClick, glass, "glass double");
    On(under->OnLeftClick, under, "under click");
    PointAt(10, 10);
    EXPECT_TRUE(g_UIManager.OnLMouseDown()); // taken by the element behind
    EXPECT_EQ(g_UIManager.LeftPressedElementID, under->ID);
    EXPECT_TRUE(g_UIManager.OnLMouseUp());
    EXPECT_EQ(Host.Ran(), (std::vector<std::string>{"under click"}));
    g_UIManager.LeftClickElementID = glass->ID; // as if the glass had taken the last press
    EXPECT_TRUE(g_UIManager.OnLMouseDown());
    EXPECT_EQ(Host.Ran().back(), "glass double");
}

TEST_F(Input, ADragEndingElsewhereReleasesOnThePressedElementFirst) {
    TAVUElement* handle = MakeBox("Handle", 0, 0, 20, 20);
    TAVUElement* target = MakeBox("Target", 100, 100, 20, 20);
    On(handle->OnLeftDown, handle, "grab");
    On(handle->OnMouseMoveScript, handle, "drag");
    On(target->OnLeftClick, target, "target click");
    PointAt(5, 5);
    g_UIManager.OnLMouseDown();
    EXPECT_TRUE(MoveTo(110, 110)); // the pressed element keeps the mouse
    EXPECT_EQ(Host.Ran().back(), "drag");
    EXPECT_TRUE(g_UIManager.OnLMouseUp()); // the handle has no click: the target behind does
    EXPECT_EQ(Host.Ran().back(), "target click");
}

TEST_F(Input, APressRaisesTheTopLevelAncestorUnlessSomethingMovedInZ) {
    TAVUElement* back = MakeBox("Back", 0, 0, 100, 100);
    TAVUElement* button = MakeBox("Button", 0, 0, 50, 50, back);
    TAVUElement* front = MakeBox("Front", 200, 0, 100, 100);
    On(button->OnLeftClick, button, "click");
    PointAt(10, 10);
    EXPECT_TRUE(g_UIManager.OnLMouseDown());
    EXPECT_EQ(g_UIManager.Screen->LastChild, back);
    g_UIManager.OnLMouseUp();
    // A press whose script moved something in Z leaves the order as the script made it.
    On(button->OnLeftDown, button, "bring the front back up");
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        front->MoveZTop(false);
        return 0;
    };
    TavuAdvanceClock(1000); // no double click
    EXPECT_TRUE(g_UIManager.OnLMouseDown());
    Host.OnExecuteAtom = nullptr;
    EXPECT_EQ(g_UIManager.Screen->LastChild, front);
}

TEST_F(Input, AnElementThatDeletesItselfWhenPressedLeavesNoDanglingPress) {
    TAVUElement* bomb = MakeBox("Bomb", 0, 0, 50, 50);
    On(bomb->OnLeftDown, bomb, "explode");
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        g_UIManager.Screen->DeleteChild(bomb);
        return 0;
    };
    PointAt(10, 10);
    EXPECT_TRUE(g_UIManager.OnLMouseDown());
    Host.OnExecuteAtom = nullptr;
    EXPECT_TRUE(g_UIManager.OnLMouseUp()); // taken, though nobody is left to hear it
    EXPECT_EQ(g_UIManager.LeftPressedElementID, 0u);
    g_UIManager.Render();
}

TEST_F(Input, MovesToTheSamePlaceAreIgnored) {
    PointAt(10, 10);
    unsigned last = g_UIManager.LastInputTime;
    TavuAdvanceClock(500);
    EXPECT_FALSE(MoveTo(10, 10));
    EXPECT_EQ(g_UIManager.LastInputTime, last); // the tooltip timer keeps running
}

TEST_F(Input, WheelWalksBehindUntilSomeoneTakesIt) {
    TAVUElement* list = MakeBox("List", 0, 0, 100, 100);
    MakeBox("Label", 0, 0, 100, 20, list);
    On(list->OnMouseWheelScript, list, "wheel", "int Offset");
    PointAt(10, 10);
    EXPECT_TRUE(g_UIManager.OnMouseWheel(-120));
    EXPECT_EQ(Host.AtomRuns.back().Args, (std::vector<std::string>{"-120"}));
    MoveTo(300, 300);
    EXPECT_FALSE(g_UIManager.OnMouseWheel(120));
}

TEST_F(Input, KeysGoToTheFocusAndClimbAndTheirUpFollowsTheDown) {
    TAVUElement* panel = MakeBox("Panel", 0, 0, 100, 100);
    TAVUElement* field = MakeBox("Field", 0, 0, 50, 20, panel);
    On(panel->OnKeyDownScript, panel, "panel key", "string Key");
    Host.KeyNames[13] = "Enter";
    Host.KeyNames[27] = "Esc";
    g_UIManager.SetFocusElement(field);
    EXPECT_TRUE(g_UIManager.OnKeyDown(13)); // the field has no script: its parent takes it
    EXPECT_EQ(Host.AtomRuns.back().Args, (std::vector<std::string>{"Enter"}));
    EXPECT_EQ(g_UIManager.KeyState[13], 0x82);
    On(field->OnKeyUpScript, field, "field up", "string Key");
    EXPECT_TRUE(g_UIManager.OnKeyUp(13));
    EXPECT_EQ(g_UIManager.KeyState[13], 0);
    Host.KeyNames.erase(13);
    // Nobody takes this down; the up is not taken either, though the field hears it.
    g_UIManager.SetFocusElement(nullptr);
    EXPECT_FALSE(g_UIManager.OnKeyDown(27));
    g_UIManager.SetFocusElement(field);
    EXPECT_FALSE(g_UIManager.OnKeyUp(27));
    EXPECT_EQ(Host.Ran().back(), "field up");
    EXPECT_TRUE(g_UIManager.KeyStates.count(0x1000) == 0);
    EXPECT_FALSE(g_UIManager.OnKeyDown(0x1000)); // extra buttons above 255: KeyStates only
    EXPECT_EQ(g_UIManager.KeyStates[0x1000], 0x80);
}

TEST_F(Input, LeftAndRightModifiersShareOneState) {
    CUIManager& m = g_UIManager;
    m.OnKeyDown(160); // left Shift
    EXPECT_EQ(Words(m.Shift, m.KeyState[16], m.KeyState[160]), "1 128 128");
    m.OnKeyUp(161); // right Shift released: the shared state goes
    EXPECT_EQ(Words(m.Shift, m.KeyState[16], m.KeyState[160]), "0 0 128");
    m.OnKeyDown(162);
    m.OnKeyDown(18);
    EXPECT_EQ(Words(m.Control, m.Alt, m.KeyStates[18]), "1 1 128");
}

#if !defined(_WIN32)
TEST_F(Input, LockTogglesAreCopiedForCharacterTranslation) {
    TavuSetKeyState(20, 1);
    g_UIManager.OnKeyDown(65);
    EXPECT_EQ(g_UIManager.KeyState[20], 1);
    TavuSetKeyState(20, 0);
    g_UIManager.OnKeyDown(20);
    EXPECT_EQ(g_UIManager.KeyState[20], 0); // the whole byte: the down bit is not kept
}
#endif

TEST_F(Input, AFocusedElementThatDeletesItselfOnAKeyEndsTheWalk) {
    TAVUElement* panel = MakeBox("Panel", 0, 0, 100, 100);
    TAVUElement* field = MakeBox("Field", 0, 0, 50, 20, panel);
    On(field->OnKeyDownScript, field, "close", "string Key");
    Host.KeyNames[27] = "Esc";
    g_UIManager.SetFocusElement(field);
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        panel->DeleteChild(field);
        return 0;
    };
    EXPECT_TRUE(g_UIManager.OnKeyDown(27));
    Host.OnExecuteAtom = nullptr;
    EXPECT_EQ(g_UIManager.FocusElementID, 0u);
    EXPECT_TRUE(g_UIManager.OnKeyUp(27)); // its down was taken
}

TEST_F(Input, FocusMovingToAnElementThatTheExitDeletedGoesNowhere) {
    TAVUElement* first = MakeBox("First", 0, 0, 10, 10);
    TAVUElement* second = MakeBox("Second", 20, 0, 10, 10);
    On(first->OnKeyboardExitScript, first, "delete the next", "");
    On(second->OnKeyboardEnterScript, second, "never", "");
    g_UIManager.SetFocusElement(first);
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        g_UIManager.Screen->DeleteChild(second);
        return 0;
    };
    g_UIManager.SetFocusElement(second);
    EXPECT_EQ(g_UIManager.FocusElementID, 0u);
    EXPECT_EQ(Host.Ran(), (std::vector<std::string>{"delete the next"}));
}
