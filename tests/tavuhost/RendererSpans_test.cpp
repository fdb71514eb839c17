// The renderer's row-at-a-time painting against a pixel-by-pixel reference
// written here: blended rows of every length and alpha, and rectangles and
// glyphs cut by each edge of the frame, which must match the same drawing
// made whole and shifted.
#include "SoftwareRenderer.h"

#include "HostRenderer.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

const uint32_t Backdrop = 0xFF305070;

// x * y / 255 to the nearest whole number, as plain division.
uint32_t Times(uint32_t x, uint32_t y) {
    return (x * y + 127) / 255;
}

uint32_t Channel(uint32_t color, int shift) {
    return (color >> shift) & 0xFF;
}

// The colour tinted channel by channel, then painted over the destination.
uint32_t ReferenceBlend(uint32_t destination, uint32_t color, uint32_t tint) {
    uint32_t alpha = Times(Channel(color, 24), Channel(tint, 24)), keep = 255 - alpha;
    uint32_t result = (alpha + Times(Channel(destination, 24), keep)) << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        uint32_t source = Times(Channel(color, shift), Channel(tint, shift));
        result |= (Times(source, alpha) + Times(Channel(destination, shift), keep)) << shift;
    }
    return result;
}

// A fixed stream of colours whose alphas are often 0 or 255, in runs, as
// pictures and glyphs have them.
uint32_t NextColor(uint32_t& state) {
    state = state * 1664525u + 1013904223u;
    uint32_t color = state >> 8, pick = state >> 28;
    uint32_t alpha = pick < 5 ? 0xFFu : pick < 9 ? 0u : (state >> 3) & 0xFF;
    return (color & 0x00FFFFFFu) | alpha << 24;
}

TEST(RendererSpans, ABlendedRowMatchesThePixelByPixelReference) {
    const uint32_t tints[] = {0xFFFFFFFF, 0xA0FFFFFF, 0xFF00FFFF, 0x80402010, 0x00FFFFFF};
    uint32_t state = 7;
    for (uint32_t tint : tints)
        for (size_t length = 0; length < 13; ++length)
            for (int round = 0; round < 20; ++round) {
                std::vector<uint32_t> row(length), colors(length), expected(length);
                for (size_t i = 0; i < length; ++i) {
                    row[i] = NextColor(state);
                    colors[i] = round % 4 == 0 ? 0xFF000000u | NextColor(state) : NextColor(state);
                    expected[i] = ReferenceBlend(row[i], colors[i], tint);
                }
                Pixel::BlendRow(row.data(), colors.data(), length, tint);
                ASSERT_EQ(expected, row) << std::hex << "tint 0x" << tint << std::dec << ", length "
                                         << length << ", round " << round;
            }
}

// Frame pixels by rows, to compare pictures whole.
std::vector<uint32_t> Shifted(const FrameBuffer& frame, int dx, int dy, uint32_t outside) {
    std::vector<uint32_t> pixels;
    for (int y = 0; y < frame.Height(); ++y)
        for (int x = 0; x < frame.Width(); ++x)
            pixels.push_back(frame.Contains(x - dx, y - dy) ? frame.At(x - dx, y - dy) : outside);
    return pixels;
}

struct Edge {
    const char* Name;
    int Dx, Dy;
};
const Edge kEdges[] = {{"left", -9, 0}, {"right", 9, 0}, {"top", 0, -9}, {"bottom", 0, 9}};
const int Side = 24;

class RendererClipTest : public ::testing::Test {
protected:
    RendererClipTest() : Renderer(FontLibrary::Create()) { Renderer.Resize(Side, Side); }

    void Start() {
        Renderer.BeginFrame();
        Renderer.FillRect(tagRECT{0, 0, Side, Side}, Backdrop);
    }
    // The frame with the drawing made at the shift, where it is cut by an
    // edge, compared with the whole drawing moved by the same shift; the
    // pixels that the move brings in from outside are the backdrop.
    void ExpectCutMatchesWhole(const std::function<void(int, int)>& draw, const char* what) {
        Start();
        draw(0, 0);
        for (const Edge& edge : kEdges) {
            std::vector<uint32_t> whole = Shifted(Renderer.Frame(), edge.Dx, edge.Dy, Backdrop);
            Start();
            draw(edge.Dx, edge.Dy);
            EXPECT_EQ(whole, Shifted(Renderer.Frame(), 0, 0, Backdrop))
                << what << " cut by the " << edge.Name << " edge";
            Start();
            draw(0, 0);
        }
    }

    SoftwareRenderer Renderer;
};

TEST_F(RendererClipTest, RectanglesCutByAnEdgeMatchTheirWholeDrawing) {
    // Five by three, so that a turn that swapped the strides would show.
    std::vector<uint32_t> pixels;
    uint32_t state = 3;
    for (int i = 0; i < 15; ++i)
        pixels.push_back(i % 5 == 0 ? 0x80FF8000u : 0xFF000000u | NextColor(state));
    std::string path = testing::TempDir() + "tavuhost_spans.png", error;
    ASSERT_TRUE(ImageFile::WritePng(path, pixels.data(), 5, 3, error)) << error;
    ASSERT_TRUE(Renderer.LoadTexture(2, path, 0, error)) << error;
    remove(path.c_str());

    struct Case {
        const char* Name;
        uint8_t Orientation, Flags, Alpha;
        bool Fill;
    };
    const Case cases[] = {
        {"an opaque picture", 0, 0, 0, false},
        {"a see-through picture", 0, TAVUDrawRecord::HasAlpha, 150, false},
        {"a picture turned a quarter", 1, 0, 0, false},
        {"a see-through picture turned three quarters", 3, TAVUDrawRecord::HasAlpha, 90, false},
        {"a see-through fill", 0, TAVUDrawRecord::HasAlpha, 100, true},
    };
    for (const Case& c : cases) {
        ExpectCutMatchesWhole(
            [&](int dx, int dy) {
                TAVUDrawRecord record{};
                record.Texture = c.Fill ? TAVUDrawRecord::NoTexture : 2;
                record.ColorMask = 0xFF20C040;
                record.Left = 5 + dx, record.Top = 6 + dy;
                record.Right = record.Left + 13, record.Bottom = record.Top + 11;
                record.Orientation = c.Orientation;
                record.Flags = c.Flags;
                record.Alpha = c.Alpha;
                Renderer.TexturedRect(record);
            },
            c.Name);
    }
    Start();
    TAVUDrawRecord whole{};
    whole.Texture = 2;
    whole.Right = 5, whole.Bottom = 3;
    Renderer.TexturedRect(whole);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 5; ++x)
            EXPECT_EQ(ReferenceBlend(Backdrop, pixels[size_t(y * 5 + x)], 0xFFFFFFFF),
                      Renderer.Frame().At(x, y))
                << "texel " << x << "," << y;
}

TEST_F(RendererClipTest, AGlyphCutByAnEdgeMatchesItsCoverageBlended) {
    if (!Renderer.HasFonts()) GTEST_SKIP() << "this build has no font library";
    ASSERT_TRUE(Renderer.OpenFont(1, "", 16, false, true));
    std::unique_ptr<FontLibrary> library = FontLibrary::Create();
    std::unique_ptr<FontFace> face = library->Open("", 16, false, true);
    ASSERT_TRUE(face);
    const Glyph& glyph = face->GlyphOf('W');
    ASSERT_GT(glyph.Width * glyph.Height, 0);
    const uint32_t color = 0xC0FFA040;
    auto draw = [&](int dx, int dy) {
        size_t width = 0;
        Renderer.DrawText(1, "W", tagRECT{4 + dx, 3 + dy, 4 + dx + 16, 3 + dy + 18}, color,
                          TAVU_DT_SINGLELINE | TAVU_DT_NOCLIP, width);
    };
    ExpectCutMatchesWhole(draw, "the glyph");

    Start();
    draw(0, 0);
    int left = 4 + glyph.Left, top = 3 + face->Ascent() - glyph.Top;
    for (int y = 0; y < Side; ++y)
        for (int x = 0; x < Side; ++x) {
            bool inside = x >= left && y >= top && x < left + glyph.Width && y < top + glyph.Height;
            uint32_t coverage =
                inside ? glyph.Coverage[size_t((y - top) * glyph.Width + (x - left))] : 0;
            uint32_t expected = ReferenceBlend(Backdrop, (color & 0xFFFFFF) | coverage << 24,
                                               0x00FFFFFF | (color & 0xFF000000u));
            ASSERT_EQ(expected, Renderer.Frame().At(x, y)) << "pixel " << x << "," << y;
        }
}

} // namespace
