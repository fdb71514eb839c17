// Sizes an interface file can ask for that no screen has: every sum of the
// bordered primitives wraps like the rest of the screen arithmetic, so none
// overflows (the undefined-behaviour sanitizer aborts the test if one does),
// and every piece still reaches the host.
#include "TAVUTexture.h"
#include "ToolkitTest.h"

#include <climits>

namespace {
class HostileDrawing : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        element = MakeElement("Canvas");
        Host.ClearRecords();
    }
    TAVUElement* element = nullptr;
};

struct HugeBorder {
    const char* Name;
    tagRECT Rect;
    unsigned Width;
    size_t Fills; // a bordered fill wholly off the screen draws nothing; a border always goes
};

const HugeBorder kHugeBorders[] = {
    {"largest int", {0, 0, 100, 50}, unsigned(INT_MAX), 9},
    {"lowest int", {0, 0, 100, 50}, unsigned(INT_MIN), 9},
    {"all bits", {0, 0, 100, 50}, UINT_MAX, 9},
    {"at the far corner", {INT_MAX - 10, INT_MAX - 10, INT_MAX, INT_MAX}, 1000, 4},
    {"at the near corner", {INT_MIN, INT_MIN, INT_MIN + 10, INT_MIN + 10}, 1000, 4},
};

TEST_F(HostileDrawing, HugeBordersWrapAndDrawEveryPiece) {
    Host.TextureSizes["frame.png"] = {30, 30};
    TAVUTexture* texture = TAVUTexture::New("frame.png");
    for (const HugeBorder& border : kHugeBorders) {
        SCOPED_TRACE(border.Name);
        Host.ClearRecords();
        tagRECT rect = border.Rect;
        element->FillRectBordered(rect, 0xFF000000u, border.Width, 0xFFFFFFFFu);
        element->DrawBorder(rect, border.Width, 0xFFFFFFFFu);
        EXPECT_EQ(Host.Fills.size(), border.Fills);
        texture->Border = border.Width;
        EXPECT_TRUE(element->TexturedRectBordered(rect, texture, border.Width));
        EXPECT_EQ(Host.DrawRecords.size(), 9u);
    }
    TAVUTexture::Delete(texture);
}

TEST_F(HostileDrawing, AHugeBorderCutsTheInsideByWrapping) {
    tagRECT rect{0, 0, 100, 50};
    element->FillRectBordered(rect, 0xFF000000u, unsigned(INT_MAX), 0xFFFFFFFFu);
    ASSERT_EQ(Host.Fills.size(), 5u);
    const tagRECT& inside = Host.Fills[4].Rect;
    EXPECT_EQ(inside.left, INT_MAX);
    EXPECT_EQ(inside.right, int(100u - unsigned(INT_MAX)));
}
} // namespace
