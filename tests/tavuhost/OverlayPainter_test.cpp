// The overlays' outlines and boxes, painted without a font: where they land,
// and that rectangles from the toolkit as large or as far off as an int goes
// are cut to the frame rather than summed past it.
#include "OverlayPainter.h"
#include "SoftwareRenderer.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

const uint32_t Red = 0xFFFF0000;

class OverlayPainterTest : public ::testing::Test {
protected:
    OverlayPainterTest() : Renderer(nullptr), Painter(Renderer) {
        Renderer.Resize(20, 10);
        Renderer.BeginFrame();
    }
    bool Painted(int x, int y) const { return Renderer.Frame().At(x, y) == Red; }
    int PaintedCount() const {
        int count = 0;
        for (int y = 0; y < 10; ++y)
            for (int x = 0; x < 20; ++x)
                count += Painted(x, y);
        return count;
    }

    SoftwareRenderer Renderer;
    OverlayPainter Painter;
};

} // namespace

TEST_F(OverlayPainterTest, AnOutlineIsARingInsideTheRectangle) {
    Painter.Outline(2, 1, 5, 4, Red, 1);
    EXPECT_TRUE(Painted(2, 1));
    EXPECT_TRUE(Painted(6, 4));
    EXPECT_TRUE(Painted(4, 1));
    EXPECT_FALSE(Painted(4, 2)); // inside
    EXPECT_FALSE(Painted(7, 1)); // one past the right edge
    EXPECT_FALSE(Painted(2, 5)); // one below the bottom
    EXPECT_EQ(2 * 5 + 2 * 2, PaintedCount());
}

TEST_F(OverlayPainterTest, HostileRectanglesAreCutToTheFrame) {
    const struct {
        int X, Y, Width, Height;
        int Count; // painted pixels of a one-pixel outline
    } cases[] = {
        {INT_MAX - 1, INT_MAX - 1, INT_MAX, INT_MAX, 0},
        {INT_MIN, INT_MIN, INT_MAX, INT_MAX, 0},
        {-5, -5, INT_MAX, INT_MAX, 0}, // its edges all lie outside
        {0, 0, -3, 4, 0},
        {0, 0, 0, 0, 0},
        // Its top edge enters at x 0 and 1, its right edge runs down column 1
        // to the frame's end.
        {-1, 2, 3, INT_MAX, 9},
    };
    for (const auto& c : cases) {
        Renderer.BeginFrame();
        Painter.Box(c.X, c.Y, c.Width, c.Height, 0xFF0000FF); // must not overrun either
        Renderer.BeginFrame();
        Painter.Outline(c.X, c.Y, c.Width, c.Height, Red, 1);
        EXPECT_EQ(c.Count, PaintedCount())
            << c.X << "," << c.Y << " " << c.Width << "x" << c.Height;
    }
}
