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
    static std::string RectOf(const FakeHost::Fill& fill) {
        return std::to_string(fill.Rect.left) + "," + std::to_string(fill.Rect.top) + "," +
               std::to_string(fill.Rect.right) + "," + std::to_string(fill.Rect.bottom);
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
    tagRECT left{-50, 0, -1, 10};
    EXPECT_TRUE(element->FillRect(left, 0xFF000000u));
    tagRECT below{0, 601, 10, 700};
    EXPECT_TRUE(element->FillRect(below, 0xFF000000u));
    EXPECT_TRUE(Host.Fills.empty());
    tagRECT edge{800, 0, 900, 10}; // starts exactly at the screen's width: still drawn
    EXPECT_TRUE(element->FillRect(edge, 0x80FF0000u));
    ASSERT_EQ(Host.Fills.size(), 1u);
    EXPECT_EQ(Host.Fills[0].Color, 0x80FF0000u);
}

TEST_F(Drawing, BorderedFillDrawsFourStripsThenTheInside) {
    tagRECT rect{10, 20, 110, 70};
    element->FillRectBordered(rect, 0xFF0000FFu, 2, 0xFFFFFFFFu);
    ASSERT_EQ(Host.Fills.size(), 5u);
    EXPECT_EQ(RectOf(Host.Fills[0]), "10,20,110,22");
    EXPECT_EQ(RectOf(Host.Fills[1]), "10,22,12,68");
    EXPECT_EQ(RectOf(Host.Fills[2]), "108,22,110,68");
    EXPECT_EQ(RectOf(Host.Fills[3]), "10,68,110,70");
    EXPECT_EQ(RectOf(Host.Fills[4]), "12,22,108,68");
    EXPECT_EQ(Host.Fills[3].Color, 0xFFFFFFFFu);
    EXPECT_EQ(Host.Fills[4].Color, 0xFF0000FFu);
    Host.ClearRecords();
    element->FillRectBordered(rect, 0xFF0000FFu, 0, 0xFFFFFFFFu); // no border: one fill
    ASSERT_EQ(Host.Fills.size(), 1u);
    EXPECT_EQ(RectOf(Host.Fills[0]), "10,20,110,70");
    Host.ClearRecords();
    tagRECT offScreen{-100, -100, -90, -90};
    EXPECT_TRUE(element->DrawBorder(offScreen, 1, 0xFF00FF00u)); // no off-screen test here
    EXPECT_EQ(Host.Fills.size(), 4u);
}

TEST_F(Drawing, LineRecordsCarryTheirOddAlphaByte) {
    _Line line{1, 2, 30, 40};
    element->DrawLine(line, 0xFF123456u, 3);
    ASSERT_EQ(Host.DrawRecords.size(), 1u);
    const TAVUDrawRecord& record = Host.DrawRecords[0];
    EXPECT_EQ(record.Flags, 6u);
    EXPECT_EQ(record.Left, 1);
    EXPECT_EQ(record.Top, 2);
    EXPECT_EQ(record.Right, 30);
    EXPECT_EQ(record.Bottom, 40);
    EXPECT_EQ(record.Texture, 1u);
    EXPECT_EQ(record.ColorMask, 0xFF123456u); // the colour as given
    EXPECT_EQ(record.Alpha, 1);               // 255 * 255, low byte
    EXPECT_EQ(Host.LineWidths[0], 3u);
    element->CurrentAlpha = 0.5f;
    element->DrawLine(line, 0xFF123456u, 1);
    EXPECT_EQ(Host.DrawRecords[1].Alpha, uint8_t(127 * 255));
}

TEST_F(Drawing, LineBatchesShareOneRecordWithTheAdjustedColour) {
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
    const TAVUDrawRecord& record = Host.DrawRecords[0];
    EXPECT_EQ(record.Flags, 6u); // colour mask, and alpha always
    EXPECT_EQ(record.Right, 50);
    EXPECT_EQ(record.TextureRight, 0); // no size taken: zeros, rectangle flag clear
    EXPECT_EQ(record.Texture, texture->Texture);
    EXPECT_EQ(record.Alpha, 102); // 0.8 * 0.5 * 255
    EXPECT_EQ(record.Orientation, 2);
    EXPECT_EQ(record.ColorMask, 0xFF00FF00u);
    texture->Alpha = 1.5f; // no cap: the low byte of 382
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
    const TAVUDrawRecord& corner = Host.DrawRecords[0];
    EXPECT_EQ(corner.Right, 4);
    EXPECT_EQ(corner.Bottom, 4);
    EXPECT_EQ(corner.TextureRight, 10);
    const TAVUDrawRecord& middle = Host.DrawRecords[4];
    EXPECT_EQ(middle.Left, 4);
    EXPECT_EQ(middle.Right, 96);
    EXPECT_EQ(middle.Bottom, 46);
    EXPECT_EQ(middle.TextureLeft, 10);
    EXPECT_EQ(middle.TextureRight, 20);
    EXPECT_EQ(Host.DrawRecords[8].TextureBottom, 30);
    Host.ClearRecords();
    EXPECT_TRUE(element->TexturedRectBordered(rect, texture, 0)); // no width: one plain rect
    EXPECT_EQ(Host.Count("TexturedRect"), 1u);
}

TEST_F(TexturedDrawing, TurnedBorderedTexturesMoveTheSourceCellsAround) {
    texture->Border = 10;
    tagRECT rect{0, 0, 90, 90};
    auto sourceOf = [&](int cell) {
        const TAVUDrawRecord& r = Host.DrawRecords[size_t(cell)];
        return std::to_string(r.TextureLeft / 10) + std::to_string(r.TextureTop / 10);
    };
    texture->Orientation = 1; // a quarter turn clockwise: bottom-left comes to top-left
    element->TexturedRectBordered(rect, texture, 10);
    EXPECT_EQ(sourceOf(0), "02");
    EXPECT_EQ(sourceOf(2), "00");
    EXPECT_EQ(sourceOf(8), "20");
    Host.ClearRecords();
    texture->Orientation = 2;
    element->TexturedRectBordered(rect, texture, 10);
    EXPECT_EQ(sourceOf(0), "22");
    EXPECT_EQ(sourceOf(1), "12");
    Host.ClearRecords();
    texture->Orientation = 3;
    element->TexturedRectBordered(rect, texture, 10);
    EXPECT_EQ(sourceOf(0), "20");
    EXPECT_EQ(sourceOf(6), "00");
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
}

TEST_F(TexturedDrawing, TexturedLinesNeedATextureEvenForNoLines) {
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
