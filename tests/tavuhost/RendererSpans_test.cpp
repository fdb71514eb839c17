// The renderer's row-at-a-time painting: blended rows against a pixel-by-pixel
// reference written here, and rectangles and glyphs cut by each edge of the
// frame against the same drawing made whole and moved.
#include "SoftwareRenderer.h"

#include "HostRenderer.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <vector>

namespace {

uint32_t Times(uint32_t x, uint32_t y, int shift) {
    return (((x >> shift) & 0xFF) * ((y >> shift) & 0xFF) + 127) / 255;
}

// The colour tinted channel by channel, then painted over the destination.
uint32_t ReferenceBlend(uint32_t destination, uint32_t color, uint32_t tint) {
    uint32_t alpha = Times(color, tint, 24), keep = 255 - alpha;
    uint32_t result = (alpha + Times(destination, keep << 24, 24)) << 24;
    for (int shift = 0; shift < 24; shift += 8)
        result |=
            (Times(Times(color, tint, shift), alpha, 0) + Times(destination, keep << shift, shift))
            << shift;
    return result;
}

// Colours whose alphas are often 0 or 255, as pictures and glyphs have them.
uint32_t NextColor(uint32_t& state) {
    state = state * 1664525u + 1013904223u;
    return (state >> 8) | (state >> 30 == 0 ? 0u : state >> 30 == 1 ? state << 24 : 0xFF000000u);
}

TEST(RendererSpans, ABlendedRowMatchesThePixelByPixelReference) {
    uint32_t state = 7;
    for (uint32_t tint : {0xFFFFFFFFu, 0xA0FFFFFFu, 0x80402010u, 0x00FFFFFFu})
        for (size_t length = 0; length < 13; ++length)
            for (int round = 0; round < 20; ++round) {
                std::vector<uint32_t> row(length), colors(length), expected(length);
                for (size_t i = 0; i < length; ++i) {
                    row[i] = NextColor(state), colors[i] = NextColor(state);
                    expected[i] = ReferenceBlend(row[i], colors[i], tint);
                }
                Pixel::BlendRow(row.data(), colors.data(), length, tint);
                ASSERT_EQ(expected, row) << std::hex << "tint " << tint << ", length " << length;
            }
}

// The frame after drawing at each shift that cuts the drawing at one edge,
// against the frame after the whole drawing, moved by the shift.
void ExpectCutsMatchTheWhole(SoftwareRenderer& renderer,
                             const std::function<void(int, int)>& draw) {
    const FrameBuffer& frame = renderer.Frame();
    for (auto [dx, dy] : {std::pair{-9, 0}, std::pair{9, 0}, std::pair{0, -9}, std::pair{0, 9}}) {
        renderer.BeginFrame();
        draw(0, 0);
        std::vector<uint32_t> whole;
        for (int y = 0; y < frame.Height(); ++y)
            for (int x = 0; x < frame.Width(); ++x)
                whole.push_back(frame.Contains(x - dx, y - dy) ? frame.At(x - dx, y - dy)
                                                               : FrameBuffer::Background);
        renderer.BeginFrame();
        draw(dx, dy);
        EXPECT_NE(std::vector<uint32_t>(whole.size(), FrameBuffer::Background), whole);
        EXPECT_EQ(whole, std::vector<uint32_t>(frame.Pixels(), frame.Pixels() + whole.size()))
            << "moved by " << dx << "," << dy;
    }
}

TEST(RendererSpans, RectanglesAndGlyphsCutByAnEdgeMatchTheirWholeDrawing) {
    SoftwareRenderer renderer(FontLibrary::Create());
    renderer.Resize(24, 24);
    // Five by three, so that a turn that swapped the strides would show.
    std::vector<uint32_t> pixels;
    for (uint32_t i = 0, state = 3; i < 15; ++i)
        pixels.push_back(i % 5 == 0 ? 0x80FF8000u : 0xFF000000u | NextColor(state));
    std::string path = testing::TempDir() + "tavuhost_spans.png", error;
    ASSERT_TRUE(ImageFile::WritePng(path, pixels.data(), 5, 3, error)) << error;
    ASSERT_TRUE(renderer.LoadTexture(2, path, 0, error)) << error;
    remove(path.c_str());
    // Opaque, see-through, turned a quarter, see-through turned three quarters.
    for (auto [orientation, alpha] : {std::pair{0, 255}, {0, 150}, {1, 255}, {3, 90}})
        ExpectCutsMatchTheWhole(renderer, [&](int dx, int dy) {
            TAVUDrawRecord record{};
            record.Texture = 2, record.Flags = TAVUDrawRecord::HasAlpha,
            record.Alpha = uint8_t(alpha);
            record.Left = 5 + dx, record.Top = 6 + dy, record.Right = 18 + dx,
            record.Bottom = 17 + dy;
            record.Orientation = uint8_t(orientation);
            renderer.TexturedRect(record);
        });
    if (!renderer.OpenFont(1, "", 16, false, true))
        GTEST_SKIP() << "this build has no font library";
    ExpectCutsMatchTheWhole(renderer, [&](int dx, int dy) {
        size_t width = 0;
        renderer.DrawText(1, "W", tagRECT{4 + dx, 3 + dy, 22 + dx, 21 + dy}, 0xC0FFA040,
                          TAVU_DT_SINGLELINE | TAVU_DT_NOCLIP, width);
    });
}

} // namespace
