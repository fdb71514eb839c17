#include "TAVUScreen.h"
#include "ToolkitTest.h"
#include "Words.h"

#include <gtest/gtest.h>

#include <string>

// How frames resolve what depends on time and on the display. What a frame
// draws, in which order, and elements deleted as they are drawn are compared
// end to end by tavuhost's drawing_order case.
using Rendering = ToolkitTest;

TEST_F(Rendering, FadeDelaysFadesAndSnapsBackUnderThePointer) {
    TAVUElement* faded = MakeBox("faded", 100, 100, 10, 10);
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
    TAVUElement* fresh = MakeBox("fresh", 300, 300, 10, 10);
    fresh->FadeDelay = 10;
    fresh->FadeAlpha = 0.0f; // no duration: straight to faded
    g_UIManager.Render();
    EXPECT_EQ(fresh->FadeState, unsigned(TAVU_FADE_FADED));
    TAVUElement* plain = MakeBox("plain", 0, 0, 10, 10);
    g_UIManager.Render();
    EXPECT_EQ(plain->FadeState, unsigned(TAVU_FADE_NORMAL)); // no delay: normal at first call
}

TEST_F(Rendering, ScreenSizeChangesReachFractionalChildren) {
    TAVUElement* full = MakeBox("full", 0, 0, 10, 10);
    full->WidthPosition = {ElementPosition::Fraction, {.Factor = 1.0f}};
    TAVUElement* fixed = MakeBox("fixed", 0, 0, 10, 10);
    TAVUElement* inner = MakeBox("inner", 0, 0, 10, 10, fixed);
    inner->WidthPosition = {ElementPosition::Fraction, {.Factor = 1.0f}};
    g_UIManager.Render();
    EXPECT_EQ(full->Width, 10); // the display kept the screen's 800 by 600: no walk
    Host.DisplayWidth = 1024;
    g_UIManager.Render();
    EXPECT_EQ(full->Width, 1024);
    EXPECT_EQ(inner->Width, 10); // an unchanged parent cut the walk
}
