// A batch of textured rectangles reaches the host whole and in order, both
// when its records fit on the stack and when they must be allocated.
#include "TAVUTexture.h"
#include "TAVUTexturedRect.h"
#include "ToolkitTest.h"

#include <gtest/gtest.h>

#include <vector>

class BatchDrawing : public ToolkitTest {};

TEST_F(BatchDrawing, EveryRecordOfSmallAndLargeBatchesReachesTheHostInOrder) {
    TAVUElement* element = MakeElement("Canvas");
    TAVUTexture* texture = TAVUTexture::New("frame.png");
    ASSERT_TRUE(texture->Prepare());
    for (unsigned count : {1u, 16u, 17u, 40u}) {
        Host.ClearRecords();
        std::vector<TAVUTexturedRect> cells(count, TAVUTexturedRect{});
        for (unsigned i = 0; i < count; ++i) {
            cells[i].Texture = texture;
            cells[i].Rect = {LONG(i), 0, LONG(i + 1), 1};
            cells[i].Alpha = uint8_t(i);
        }
        EXPECT_TRUE(element->TexturedRects(count, cells.data()));
        EXPECT_EQ(Host.Count("TexturedRects"), 1u);
        ASSERT_EQ(Host.DrawRecords.size(), size_t(count)) << count;
        for (unsigned i = 0; i < count; ++i) {
            EXPECT_EQ(Host.DrawRecords[i].Left, int32_t(i)) << count;
            EXPECT_EQ(Host.DrawRecords[i].Alpha, uint8_t(i)) << count;
            EXPECT_EQ(Host.DrawRecords[i].Texture, texture->Texture) << count;
        }
    }
    TAVUTexture::Delete(texture);
}
