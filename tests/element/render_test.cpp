#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"
#include "Words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {
std::vector<std::string> g_Drawn;

class DrawnElement : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    void Render() override {
        g_Drawn.push_back(std::string(Name) + "@" + std::to_string(AbsolutePosition.x) + "," +
                          std::to_string(AbsolutePosition.y) + " a" +
                          std::to_string(int(CurrentAlpha * 100 + 0.5f)));
        TAVUElement::Render();
    }
};
TAVUFactory<DrawnElement> g_DrawnFactory("drawn");
} // namespace

class Rendering : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        g_Drawn.clear();
    }
    TAVUElement* Drawn(const char* name, TAVUElement* parent = nullptr, int x = 0, int y = 0) {
        TAVUElement* element =
            g_DrawnFactory.CreateUIElement(parent ? parent : g_UIManager.Screen, name);
        element->X = x;
        element->Y = y;
        element->Width = 10;
        element->Height = 10;
        return element;
    }
};

TEST_F(Rendering, DrawsBottomToTopWithPositionsAndAlphaDownTheTree) {
    TAVUElement* panel = Drawn("panel", nullptr, 100, 50);
    panel->Alpha = 0.5f;
    Drawn("a", panel, 1, 2)->Alpha = 0.5f;
    TAVUElement* hidden = Drawn("hidden", panel, 3, 4);
    hidden->Visible = false;
    TAVUElement* inner = Drawn("inner", hidden, 5, 5);
    Drawn("b", panel, 7, 8);
    g_UIManager.Render();
    EXPECT_EQ(g_Drawn,
              (std::vector<std::string>{"panel@100,50 a50", "a@101,52 a25", "b@107,58 a50"}));
    // A hidden subtree still follows its parent, for hit tests and scripts.
    EXPECT_EQ(inner->AbsolutePosition.x, 108);
    EXPECT_EQ(inner->AbsolutePosition.y, 59);
}

TEST_F(Rendering, OnRenderRunsBeforeDrawingAndADeletedElementEndsTheLevel) {
    TAVUElement* first = Drawn("first");
    TAVUElement* second = Drawn("second");
    Drawn("third");
    second->OnRender = TAVUEmbeddedScript::New(second, "vanish", "");
    first->OnRender = TAVUEmbeddedScript::New(first, "noop", "");
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
        if (run.This == second) g_UIManager.Screen->DeleteChild(second);
        return 0;
    };
    g_UIManager.Render();
    EXPECT_EQ(g_Drawn, (std::vector<std::string>{"first@0,0 a100"}));
    g_Drawn.clear();
    g_UIManager.Render(); // the next frame draws what is left
    EXPECT_EQ(g_Drawn, (std::vector<std::string>{"first@0,0 a100", "third@0,0 a100"}));
}

TEST_F(Rendering, AnElementThatDeletesItsParentWhileDrawingStopsTheWalk) {
    TAVUElement* parent = Drawn("parent");
    TAVUElement* child = Drawn("child", parent);
    Drawn("sibling");
    child->OnRender = TAVUEmbeddedScript::New(child, "kill parent", "");
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        g_UIManager.Screen->DeleteChild(parent);
        return 0;
    };
    g_UIManager.Render();
    EXPECT_EQ(g_Drawn, (std::vector<std::string>{"parent@0,0 a100"}));
    EXPECT_EQ(g_UIManager.FindElement("parent"), nullptr);
}

TEST_F(Rendering, FadeDelaysFadesAndSnapsBackUnderThePointer) {
    TAVUElement* faded = Drawn("faded", nullptr, 100, 100);
    faded->FadeDelay = 1000;
    faded->FadeDuration = 500;
    faded->FadeAlpha = 0.2f;
    faded->FadeState = TAVU_FADE_NORMAL;
    // The fade state (normal 0, delaying 1, fading 2, faded 3) and alpha of each frame.
    std::string frames;
    auto frame = [&](unsigned ticks) {
        TavuAdvanceClock(ticks);
        g_UIManager.Render();
        frames += Words(faded->FadeState, faded->CurrentAlpha) + "; ";
    };
    g_UIManager.MousePosition = {0, 0};
    frame(0);    // pointer away: the delay starts now
    frame(1250); // half way through the fade
    frame(1000);
    g_UIManager.MousePosition = {105, 105};
    frame(0); // the pointer returns: back at one stroke
    EXPECT_EQ(frames, "1 1; 2 0.6; 3 0.2; 0 1; ");
}

TEST_F(Rendering, ANewElementWithAFadeFadesAtOnce) {
    TAVUElement* fresh = Drawn("fresh", nullptr, 300, 300);
    fresh->FadeDelay = 10;
    fresh->FadeAlpha = 0.0f; // no duration: straight to faded
    g_UIManager.Render();
    EXPECT_EQ(fresh->FadeState, unsigned(TAVU_FADE_FADED));
    TAVUElement* plain = Drawn("plain");
    g_UIManager.Render();
    EXPECT_EQ(plain->FadeState, unsigned(TAVU_FADE_NORMAL)); // no delay: normal at first call
}

TEST_F(Rendering, ScreenSizeChangesReachFractionalChildren) {
    TAVUElement* full = Drawn("full");
    full->WidthPosition = {ElementPosition::Fraction, {.Factor = 1.0f}};
    TAVUElement* fixed = Drawn("fixed");
    TAVUElement* inner = Drawn("inner", fixed);
    inner->WidthPosition = {ElementPosition::Fraction, {.Factor = 1.0f}};
    g_UIManager.Render();
    EXPECT_EQ(full->Width, 10); // the display kept the screen's 800 by 600: no walk
    Host.DisplayWidth = 1024;
    g_UIManager.Render();
    EXPECT_EQ(full->Width, 1024);
    EXPECT_EQ(inner->Width, 10); // an unchanged parent cut the walk
}
