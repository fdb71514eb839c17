#include "TAVUScreen.h"
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
