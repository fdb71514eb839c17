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

// tavuhost's input case drives clicks, double clicks, click-through, raising,
// the wheel, keys and elements that delete themselves on them end to end; here
// stays what only the host sees: which events count as taken, and the states.
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

TEST_F(Input, ADragEndingElsewhereReleasesOnThePressedElementFirst) {
    TAVUElement* handle = MakeBox("Handle", 0, 0, 20, 20);
    TAVUElement* target = MakeBox("Target", 100, 100, 20, 20);
    On(handle->OnLeftDown, handle, "grab");
    On(handle->OnMouseMoveScript, handle, "drag");
    On(target->OnLeftClick, target, "target click");
    PointAt(5, 5);
    EXPECT_TRUE(g_UIManager.OnLMouseDown());
    EXPECT_EQ(Words(g_UIManager.LeftPressedElementID == handle->ID, g_UIManager.LeftButtonState),
              "1 2");
    EXPECT_TRUE(MoveTo(110, 110)); // the pressed element keeps the mouse
    EXPECT_EQ(Host.Ran().back(), "drag");
    EXPECT_TRUE(g_UIManager.OnLMouseUp()); // the handle has no click: the target behind does
    EXPECT_EQ(Host.Ran().back(), "target click");
    EXPECT_FALSE(g_UIManager.OnLMouseUp());      // nothing is down any more
    EXPECT_FALSE(g_UIManager.OnMouseWheel(120)); // nobody here takes the wheel
    MoveTo(111, 111);                            // over the target now that nothing holds the mouse
    EXPECT_TRUE(g_UIManager.OnLMouseDown());     // a click script alone takes the press
    EXPECT_EQ(g_UIManager.LeftPressedElementID, target->ID);
}

TEST_F(Input, MovesToTheSamePlaceAreIgnored) {
    PointAt(10, 10);
    unsigned last = g_UIManager.LastInputTime;
    TavuAdvanceClock(500);
    EXPECT_FALSE(MoveTo(10, 10));
    EXPECT_EQ(g_UIManager.LastInputTime, last); // the tooltip timer keeps running
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
