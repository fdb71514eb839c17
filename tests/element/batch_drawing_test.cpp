// A batch of textured rectangles reaches the host whole and in order, both
// when its records fit on the stack and when they must be allocated.
#include "TAVUTexture.h"
#include "TAVUTexturedRect.h"
#include "ToolkitTest.h"

#include <gtest/gtest.h>

#include <vector>

class BatchDrawing : public ToolkitTest {};

TEST_F(BatchDrawing, SmallAndLargeBatchesReachTheHostWholeAndInOrder) {
    TAVUElement* element = MakeElement("Canvas");
    TAVUTexture* texture = TAVUTexture::New("frame.png");
    ASSERT_TRUE(texture->Prepare());
    std::vector<TAVUTexturedRect> cells(40, TAVUTexturedRect{});
    for (unsigned i = 0; i < cells.size(); ++i)
        cells[i] = {texture, {LONG(i), 0, LONG(i + 1), 1}, 0, {}, uint8_t(i), 0, 0};
    for (unsigned count : {16u, 17u, 40u}) {
        Host.ClearRecords();
        EXPECT_TRUE(element->TexturedRects(count, cells.data()));
        ASSERT_EQ(Host.DrawRecords.size(), size_t(count));
        for (unsigned i = 0; i < count; ++i)
            EXPECT_EQ(Host.DrawRecords[i].Left, int32_t(i));
    }
    TAVUTexture::Delete(texture);
}
