#include "TAVUFont.h"
#include "TAVUScreen.h"
#include "TAVUTexture.h"
#include "TAVUTexturedRect.h"
#include "ToolkitTest.h"

#include <gtest/gtest.h>

class Drawing : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        element = MakeElement("Canvas");
        Host.ClearRecords();
    }
    // The fills as "left,top,right,bottom colour" lines, in order.
    std::vector<std::string> Fills() const {
        std::vector<std::string> fills;
        for (const FakeHost::Fill& f : Host.Fills)
            fills.push_back(Rect(f.Rect.left, f.Rect.top, f.Rect.right, f.Rect.bottom) + " " +
                            Hex(f.Color));
        return fills;
    }
    static std::string Rect(long left, long top, long right, long bottom) {
        return std::to_string(left) + "," + std::to_string(top) + "," + std::to_string(right) +
               "," + std::to_string(bottom);
    }
    // A record as "flags rect source texture alpha orientation mask".
    static std::string Fields(const TAVUDrawRecord& r) {
        return Hex(r.Flags) + " " + Rect(r.Left, r.Top, r.Right, r.Bottom) + " " +
               Rect(r.TextureLeft, r.TextureTop, r.TextureRight, r.TextureBottom) + " " +
               std::to_string(r.Texture) + " " + std::to_string(r.Alpha) + " " +
               std::to_string(r.Orientation) + " " + Hex(r.ColorMask);
    }
    TAVUElement* element = nullptr;
};

TEST_F(Drawing, ColourAlphaScalesWithTheElementAndKeepsTheColour) {
    element->CurrentAlpha = 0.5f;
    EXPECT_EQ(element->AdjustColorAlpha(0xFF336699u), 0x7F336699u);
    EXPECT_EQ(element->AdjustColorAlpha(0x00336699u), 0x00336699u);
    element->CurrentAlpha = 2.0f;
    EXPECT_EQ(element->AdjustColorAlpha(0xC0000000u), 0xFF000000u); // capped
}

TEST_F(Drawing, FillsSkipOnlyWhatIsWhollyOffScreen) {
    // Starting exactly at the screen's width is still drawn.
    tagRECT rects[] = {{-50, 0, -1, 10}, {0, 601, 10, 700}, {800, 0, 900, 10}};
    for (tagRECT& rect : rects)
        EXPECT_TRUE(element->FillRect(rect, 0x80FF0000u));
    EXPECT_EQ(Fills(), std::vector<std::string>{"800,0,900,10 0x80ff0000"});
}

TEST_F(Drawing, BorderedFillDrawsFourStripsThenTheInside) {
    tagRECT rect{10, 20, 110, 70};
    element->FillRectBordered(rect, 0xFF0000FFu, 2, 0xFFFFFFFFu);
    EXPECT_EQ(Fills(),
              (std::vector<std::string>{"10,20,110,22 0xffffffff", "10,22,12,68 0xffffffff",
                                        "108,22,110,68 0xffffffff", "10,68,110,70 0xffffffff",
                                        "12,22,108,68 0xff0000ff"}));
    Host.ClearRecords();
    element->FillRectBordered(rect, 0xFF0000FFu, 0, 0xFFFFFFFFu); // no border: one fill
    EXPECT_EQ(Fills(), std::vector<std::string>{"10,20,110,70 0xff0000ff"});
    Host.ClearRecords();
    tagRECT offScreen{-100, -100, -90, -90};
    EXPECT_TRUE(element->DrawBorder(offScreen, 1, 0xFF00FF00u)); // no off-screen test here
    EXPECT_EQ(Host.Fills.size(), 4u);
}

TEST_F(Drawing, LineRecordsCarryTheirOddAlphaByte) {
    _Line line{1, 2, 30, 40};
    element->DrawLine(line, 0xFF123456u, 3);
    element->CurrentAlpha = 0.5f;
    element->DrawLine(line, 0xFF123456u, 1);
    ASSERT_EQ(Host.DrawRecords.size(), 2u);
    // Untextured, the colour as given, and the alpha the low byte of 255 * 255.
    EXPECT_EQ(Fields(Host.DrawRecords[0]), "0x00000006 1,2,30,40 0,0,0,0 1 1 0 0xff123456");
    EXPECT_EQ(Host.DrawRecords[1].Alpha, uint8_t(127 * 255));
    EXPECT_EQ(Host.LineWidths, (std::vector<unsigned>{3, 1}));

    // A batch shares one record, with the adjusted colour; even no lines draw one.
    Host.ClearRecords();
    element->CurrentAlpha = 1.0f;
    EXPECT_TRUE(element->DrawLines(nullptr, 0, 0xFF000000u, 1));
    _Line lines[2] = {{0, 0, 10, 10}, {5, 5, 6, 6}};
    element->CurrentAlpha = 0.5f;
    EXPECT_TRUE(element->DrawLines(lines, 2, 0xFF00FF00u, 2));
    ASSERT_EQ(Host.DrawRecords.size(), 2u);
    EXPECT_EQ(Host.DrawRecords[0].Flags, 4u);
    EXPECT_EQ(Host.DrawRecords[0].Alpha, 0);
    EXPECT_EQ(Host.DrawRecords[1].ColorMask, 0x7F00FF00u);
    EXPECT_EQ(Host.DrawRecords[1].Right, 6);
}

class TexturedDrawing : public Drawing {
protected:
    void SetUp() override {
        Drawing::SetUp();
        Host.TextureSizes["frame.png"] = {30, 30};
        texture = TAVUTexture::New("frame.png");
    }
    void TearDown() override {
        TAVUTexture::Delete(texture);
        Drawing::TearDown();
    }
    TAVUTexture* texture = nullptr;
};

TEST_F(TexturedDrawing, ATexturedRectCarriesTheTexturesFieldsAndItsAlphaUncapped) {
    texture->Alpha = 0.5f;
    texture->Orientation = 2;
    texture->ColorMask = 0xFF00FF00u;
    texture->Flags = TAVUTexture::HasColorMask;
    element->CurrentAlpha = 0.8f;
    tagRECT rect{5, 6, 50, 60};
    EXPECT_TRUE(element->TexturedRect(rect, texture));
    ASSERT_EQ(Host.DrawRecords.size(), 1u);
    // Colour mask and alpha flags; no size taken, so a zero source and no
    // rectangle flag; alpha 0.8 * 0.5 * 255.
    EXPECT_EQ(Fields(Host.DrawRecords[0]), "0x00000006 5,6,50,60 0,0,0,0 " +
                                               std::to_string(texture->Texture) +
                                               " 102 2 0xff00ff00");
    texture->Alpha = 1.5f; // no cap: the low byte of 306
    EXPECT_TRUE(element->TexturedRect(rect, texture));
    EXPECT_EQ(Host.DrawRecords[1].Alpha, uint8_t(int(0.8f * 1.5f * 255.0f)));
    EXPECT_FALSE(element->TexturedRect(rect, nullptr));
    Host.MissingTextures.insert("gone.png");
    TAVUTexture* missing = TAVUTexture::New("gone.png");
    EXPECT_FALSE(element->TexturedRect(rect, missing));
    TAVUTexture::Delete(missing);
}

TEST_F(TexturedDrawing, ABorderedTextureIsNineCellsKeepingItsFrame) {
    texture->Border = 10;
    tagRECT rect{0, 0, 100, 50};
    EXPECT_TRUE(element->TexturedRectBordered(rect, texture, 4));
    ASSERT_EQ(Host.Count("TexturedRects"), 1u);
    ASSERT_EQ(Host.DrawRecords.size(), 9u);
    const TAVUDrawRecord &corner = Host.DrawRecords[0], &middle = Host.DrawRecords[4];
    EXPECT_EQ(Rect(corner.Left, corner.Top, corner.Right, corner.Bottom), "0,0,4,4");
    EXPECT_EQ(corner.TextureRight, 10);
    EXPECT_EQ(Rect(middle.Left, middle.Top, middle.Right, middle.Bottom), "4,4,96,46");
    EXPECT_EQ(
        Rect(middle.TextureLeft, middle.TextureTop, middle.TextureRight, middle.TextureBottom),
        "10,10,20,20");
    EXPECT_EQ(Host.DrawRecords[8].TextureBottom, 30);
    Host.ClearRecords();
    EXPECT_TRUE(element->TexturedRectBordered(rect, texture, 0)); // no width: one plain rect
    EXPECT_EQ(Host.Count("TexturedRect"), 1u);
}

TEST_F(TexturedDrawing, TurnedBorderedTexturesMoveTheSourceCellsAround) {
    texture->Border = 10;
    tagRECT rect{0, 0, 90, 90};
    // Per orientation, the source cell (column, row) of drawn cells 0, 1, 2, 6
    // and 8: a quarter turn clockwise brings bottom-left to top-left.
    const std::pair<uint8_t, const char*> cases[] = {
        {1, "02 01 00 22 20"}, {2, "22 12 02 20 00"}, {3, "20 21 22 00 02"}};
    for (const auto& c : cases) {
        Host.ClearRecords();
        texture->Orientation = c.first;
        element->TexturedRectBordered(rect, texture, 10);
        std::string sources;
        for (int cell : {0, 1, 2, 6, 8}) {
            const TAVUDrawRecord& r = Host.DrawRecords[size_t(cell)];
            sources += (sources.empty() ? "" : " ") + std::to_string(r.TextureLeft / 10) +
                       std::to_string(r.TextureTop / 10);
        }
        EXPECT_EQ(sources, c.second) << "orientation " << int(c.first);
    }
}

TEST_F(TexturedDrawing, BatchesRefuseAnyMissingTextureAndDrawNothing) {
    ASSERT_TRUE(texture->Prepare());
    TAVUTexturedRect cells[2] = {};
    cells[0].Texture = texture;
    cells[0].Rect = {1, 2, 3, 4};
    cells[0].Alpha = 77;
    EXPECT_FALSE(element->TexturedRects(2, cells)); // the second has no texture
    EXPECT_TRUE(Host.DrawRecords.empty());
    EXPECT_FALSE(element->TexturedRects(1, nullptr));
    EXPECT_TRUE(element->TexturedRects(0, cells));
    element->CurrentAlpha = 0.1f; // final alpha: not applied again
    EXPECT_TRUE(element->TexturedRects(1, cells));
    ASSERT_EQ(Host.DrawRecords.size(), 1u);
    EXPECT_EQ(Host.DrawRecords[0].Alpha, 77);
    EXPECT_EQ(Host.DrawRecords[0].Bottom, 4);

    // Textured lines need a texture even for no lines.
    Host.ClearRecords();
    EXPECT_FALSE(element->DrawLines(nullptr, 0, static_cast<TAVUTexture*>(nullptr), 1));
    EXPECT_TRUE(element->DrawLines(nullptr, 0, texture, 1));
    _Line line{0, 0, 5, 5};
    EXPECT_TRUE(element->DrawLine(line, texture, 2));
    ASSERT_EQ(Host.DrawRecords.size(), 1u);
    EXPECT_EQ(Host.DrawRecords[0].Texture, texture->Texture);
    EXPECT_EQ(Host.DrawRecords[0].Flags & 2u, 2u);
}

TEST_F(Drawing, TextStopsAtTheElementsRightEdgeAndNeedsAFont) {
    element->AbsolutePosition = {100, 0};
    element->Width = 50;
    EXPECT_EQ(element->DrawText(nullptr, "text", 0, 0), 0u);
    TAVUFont* font = TAVUFont::New(element, "Sans", 12, false, false);
    EXPECT_EQ(element->DrawTextClipped(font, "abc", 150, 0), 0u); // at the edge: nothing
    EXPECT_EQ(element->DrawTextClipped(font, "abc", 120, 0), 21u);
    ASSERT_EQ(Host.Texts.size(), 1u);
    EXPECT_EQ(Host.Texts[0].Rect.right - Host.Texts[0].Rect.left, 30); // clipped to the edge
    EXPECT_EQ(element->DrawTextCenter(font, "", 100, 0), 0u);          // empty: nothing
    EXPECT_EQ(element->DrawColoredText(font, "a\a#FF0000b", 100, 0), 14u);
    TAVUFont::Delete(font);
}

TEST_F(Drawing, ExtremeSizesWrapInsteadOfOverflowing) {
    element->AbsolutePosition = {0x7FFFFFF0, 0};
    element->Width = 0x7FFFFFFF;
    element->Height = 10;
    _Point2i point{0x7FFFFFF8, 5};
    EXPECT_TRUE(element->HitTest(point));
    TAVUElement* child = MakeElement("Far", element);
    child->X = 0x7FFFFFFF;
    _Point2i start{0x7FFFFFF0, 0};
    element->SetAbsolutePosition(start); // wraps, as the processor adds
    EXPECT_EQ(child->AbsolutePosition.x, int(0x7FFFFFF0u + 0x7FFFFFFFu));
}
