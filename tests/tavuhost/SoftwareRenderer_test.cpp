// The renderer on small frame buffers: blending, textures with their source
// rectangles, turns, masks, keys and triangles, lines, and text whose drawn
// extent is what was measured.
#include "ImageCompare.h"
#include "SoftwareRenderer.h"

#include "HostRenderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

const uint32_t Red = 0xFFFF0000, Green = 0xFF00FF00, Blue = 0xFF0000FF, White = 0xFFFFFFFF;
const uint32_t Black = 0xFF000000;

// Channels within one level, as rounding leaves them.
::testing::AssertionResult Near(uint32_t expected, uint32_t actual) {
    for (int shift = 0; shift < 32; shift += 8)
        if (std::abs(int((expected >> shift) & 0xFF) - int((actual >> shift) & 0xFF)) > 1)
            return ::testing::AssertionFailure()
                   << std::hex << "expected 0x" << expected << ", got 0x" << actual;
    return ::testing::AssertionSuccess();
}

TAVUDrawRecord Record(unsigned texture, int left, int top, int right, int bottom) {
    TAVUDrawRecord record{};
    record.Texture = texture;
    record.Left = left, record.Top = top, record.Right = right, record.Bottom = bottom;
    return record;
}

class SoftwareRendererTest : public ::testing::Test {
protected:
    SoftwareRendererTest() : Renderer(FontLibrary::Create()) { Renderer.Resize(8, 8); }

    // A picture written to a file and loaded as a texture, as the host loads them.
    unsigned LoadPicture(unsigned handle, int width, int height, std::vector<uint32_t> pixels,
                         uint32_t colorKey = 0) {
        std::string path = testing::TempDir() + "tavuhost_texture.png", error;
        EXPECT_TRUE(ImageFile::WritePng(path, pixels.data(), width, height, error)) << error;
        EXPECT_TRUE(Renderer.LoadTexture(handle, path, colorKey, error)) << error;
        remove(path.c_str());
        return handle;
    }
    // Red, green over blue, white: one colour a corner.
    unsigned Quadrants() { return LoadPicture(2, 2, 2, {Red, Green, Blue, White}); }
    uint32_t At(int x, int y) const { return Renderer.Frame().At(x, y); }
    // The pixels at the points, in hexadecimal, to compare at once.
    std::string Pixels(std::initializer_list<std::pair<int, int>> points) const {
        std::string text;
        char pixel[12];
        for (const auto& point : points) {
            snprintf(pixel, sizeof(pixel), "%s%08X", text.empty() ? "" : " ",
                     At(point.first, point.second));
            text += pixel;
        }
        return text;
    }
    // The first and last columns with any ink in them.
    std::pair<int, int> InkColumns() const {
        std::pair<int, int> ink{1000, -1};
        for (int y = 0; y < Renderer.Frame().Height(); ++y)
            for (int x = 0; x < Renderer.Frame().Width(); ++x)
                if (At(x, y) != Black) ink = {std::min(ink.first, x), std::max(ink.second, x)};
        return ink;
    }

    SoftwareRenderer Renderer;
};

} // namespace

TEST_F(SoftwareRendererTest, FillsBlendByTheirAlphaAndStayInsideTheFrame) {
    Renderer.FillRect(tagRECT{-5, -5, 2, 2}, Red);
    EXPECT_EQ(Pixels({{0, 0}, {1, 1}, {2, 2}}), "FFFF0000 FFFF0000 FF000000");
    Renderer.FillRect(tagRECT{0, 0, 8, 8}, 0x80FFFFFF);
    EXPECT_TRUE(Near(0xFFFF8080, At(0, 0))) << "half white over red";
    EXPECT_TRUE(Near(0xFF808080, At(5, 5))) << "half white over black";
    Renderer.FillRect(tagRECT{0, 0, 8, 8}, 0x00FFFFFF);
    EXPECT_TRUE(Near(0xFF808080, At(5, 5))) << "alpha 0 paints nothing";
    Renderer.FillRect(tagRECT{6, 6, 100000, 2147483647}, Blue);
    EXPECT_EQ(Blue, At(7, 7));
    Renderer.FillRect(tagRECT{5, 5, 3, 3}, Green);
    EXPECT_NE(Green, At(4, 4)) << "an inverted rectangle is empty";
    Renderer.BeginFrame();
    EXPECT_EQ(Black, At(7, 7)) << "a frame starts black";
}

TEST_F(SoftwareRendererTest, TexturesStretchTheWholeImageOrTheirSourceRectangle) {
    unsigned texture = Quadrants();
    Renderer.TexturedRect(Record(texture, 0, 0, 4, 4));
    EXPECT_EQ(Pixels({{0, 0}, {1, 1}, {2, 0}, {1, 3}, {3, 3}, {4, 4}}),
              "FFFF0000 FFFF0000 FF00FF00 FF0000FF FFFFFFFF FF000000");

    TAVUDrawRecord right = Record(texture, 4, 0, 8, 4);
    right.Flags = TAVUDrawRecord::HasSourceRect;
    right.TextureLeft = 1, right.TextureTop = 0, right.TextureRight = 2, right.TextureBottom = 2;
    Renderer.TexturedRect(right);
    EXPECT_EQ(Pixels({{4, 0}, {7, 1}, {4, 3}}), "FF00FF00 FF00FF00 FFFFFFFF");

    TAVUDrawRecord outside = Record(texture, 0, 4, 8, 8);
    outside.Flags = TAVUDrawRecord::HasSourceRect;
    outside.TextureLeft = -100, outside.TextureTop = 50, outside.TextureRight = 2147483647,
    outside.TextureBottom = -2147483647 - 1;
    Renderer.TexturedRect(outside);
    EXPECT_EQ(0xFF, At(0, 7) >> 24) << "a source beyond the image reads its nearest edge";

    Renderer.BeginFrame();
    Renderer.TexturedRect(Record(99, 0, 0, 8, 8));
    EXPECT_EQ(Black, At(3, 3)) << "an unknown handle draws nothing";
}

TEST_F(SoftwareRendererTest, OrientationTurnsTheSourceClockwise) {
    unsigned texture = Quadrants();
    const char* corners[] = {
        // top left, top right, bottom left, bottom right
        "FFFF0000 FF00FF00 FF0000FF FFFFFFFF", "FF0000FF FFFF0000 FFFFFFFF FF00FF00",
        "FFFFFFFF FF0000FF FF00FF00 FFFF0000", "FF00FF00 FFFFFFFF FFFF0000 FF0000FF"};
    for (uint8_t orientation = 0; orientation < 4; ++orientation) {
        TAVUDrawRecord record = Record(texture, 0, 0, 8, 8);
        record.Orientation = orientation;
        Renderer.TexturedRect(record);
        EXPECT_EQ(Pixels({{1, 1}, {6, 1}, {1, 6}, {6, 6}}), corners[orientation])
            << "orientation " << int(orientation);
    }
}

TEST_F(SoftwareRendererTest, MaskAndAlphaTintTheTextureAndAnEmptyNameIsAFill) {
    unsigned texture = Quadrants();
    TAVUDrawRecord masked = Record(texture, 0, 0, 8, 8);
    masked.Flags = TAVUDrawRecord::HasColorMask;
    masked.ColorMask = 0xFF00FFFF;
    Renderer.TexturedRect(masked);
    EXPECT_EQ(0xFF00FFFF, At(7, 7)) << "white through a teal mask";
    EXPECT_EQ(Black, At(0, 0)) << "red through a mask without red";

    masked.Flags |= TAVUDrawRecord::HasAlpha;
    masked.Alpha = 128;
    Renderer.BeginFrame();
    Renderer.TexturedRect(masked);
    EXPECT_TRUE(Near(0xFF008080, At(7, 7)));

    std::string error;
    ASSERT_TRUE(Renderer.LoadTexture(5, "", 0, error));
    int width = 0, height = 0;
    EXPECT_FALSE(Renderer.TextureSize(5, width, height)) << "a fill has no size";
    TAVUDrawRecord fill = Record(5, 0, 0, 2, 2);
    fill.ColorMask = Blue;
    Renderer.TexturedRect(fill);
    EXPECT_EQ(Blue, At(1, 1)) << "a fill takes the mask even without its flag";
    Renderer.ReleaseTexture(5);
    fill.ColorMask = Red;
    Renderer.TexturedRect(fill);
    EXPECT_EQ(Blue, At(1, 1)) << "a released handle draws nothing";
}

TEST_F(SoftwareRendererTest, TheColorKeyBecomesTransparentOnLoad) {
    unsigned texture = LoadPicture(3, 2, 1, {0xFFFF00FF, Red}, 0x00FF00FF);
    int width = 0, height = 0;
    ASSERT_TRUE(Renderer.TextureSize(texture, width, height));
    EXPECT_EQ(2, width);
    EXPECT_EQ(1, height);
    Renderer.FillRect(tagRECT{0, 0, 8, 8}, Green);
    Renderer.TexturedRect(Record(texture, 0, 0, 8, 8));
    EXPECT_EQ(Green, At(1, 1)) << "the key's alpha byte does not count";
    EXPECT_EQ(Red, At(6, 1));

    std::string error;
    EXPECT_FALSE(
        Renderer.LoadTexture(4, std::string(TAVU_TEST_DATA_DIR) + "/tavuhost/flow.tss", 0, error));
    EXPECT_NE(std::string::npos, error.find("cannot decode")) << error;
    EXPECT_FALSE(Renderer.LoadTexture(4, "no/such/file.png", 0, error));
    EXPECT_NE(std::string::npos, error.find("cannot read")) << error;
}

TEST_F(SoftwareRendererTest, TheFormatsOfTheTestDataDecode) {
    struct Case {
        const char* File;
        int Width, Height;
        uint32_t Pixel;
    } cases[] = {
        {"red3x2.png", 3, 2, Red}, {"green5x4.bmp", 5, 4, Green}, {"blue7x6.tga", 7, 6, Blue}};
    for (const Case& c : cases) {
        Image image;
        std::string error;
        std::string path = std::string(TAVU_TEST_DATA_DIR) + "/tavuhost/textures/" + c.File;
        ASSERT_TRUE(ImageFile::Load(path, 0, image, error)) << error;
        EXPECT_EQ(c.Width, image.Width) << c.File;
        EXPECT_EQ(c.Height, image.Height) << c.File;
        EXPECT_EQ(c.Pixel & 0x00FFFFFF, image.At(0, 0) & 0x00FFFFFF) << c.File;
    }
}

TEST_F(SoftwareRendererTest, ATrianglePointsUpAndTurnsWithTheTexture) {
    std::string error;
    ASSERT_TRUE(Renderer.LoadTexture(2, "", 0, error));
    TAVUDrawRecord triangle = Record(2, 0, 0, 8, 8);
    triangle.Flags = TAVUDrawRecord::HasTriangle;
    triangle.ColorMask = White;
    Renderer.TexturedRect(triangle);
    // The top corners stay black; by the tip and the base are white.
    EXPECT_EQ(Pixels({{0, 0}, {7, 0}, {4, 1}, {0, 7}, {7, 7}}),
              "FF000000 FF000000 FFFFFFFF FFFFFFFF FFFFFFFF");
    Renderer.BeginFrame();
    triangle.Orientation = 1; // a quarter turn points right
    Renderer.TexturedRect(triangle);
    EXPECT_EQ(Pixels({{6, 4}, {0, 0}, {7, 0}}), "FFFFFFFF FFFFFFFF FF000000");
}

TEST_F(SoftwareRendererTest, LinesHaveTheirWidthAndColour) {
    TAVUDrawRecord line = Record(TAVUDrawRecord::NoTexture, 1, 4, 7, 4);
    line.Flags = TAVUDrawRecord::HasColorMask;
    line.ColorMask = Red;
    Renderer.DrawLine(line, 1);
    EXPECT_EQ(Pixels({{1, 4}, {6, 4}, {3, 3}, {3, 5}}), "FFFF0000 FFFF0000 FF000000 FF000000");

    Renderer.BeginFrame();
    line.Flags = TAVUDrawRecord::HasColorMask | TAVUDrawRecord::HasAlpha;
    line.Alpha = 1; // how an opaque line arrives: the low byte of 255 x 255
    Renderer.DrawLine(line, 3);
    EXPECT_EQ(Pixels({{3, 3}, {3, 4}, {3, 5}, {3, 6}}), "FFFF0000 FFFF0000 FFFF0000 FF000000");
    line.Alpha = 128; // 128 x 255 ends in 128 too: half
    line.ColorMask = White;
    Renderer.DrawLine(line, 1);
    EXPECT_TRUE(Near(0xFFFF8080, At(3, 4)));

    Renderer.BeginFrame();
    TAVUDrawRecord diagonal = Record(TAVUDrawRecord::NoTexture, 0, 0, 7, 7);
    diagonal.Flags = TAVUDrawRecord::HasColorMask;
    diagonal.ColorMask = Green;
    Renderer.DrawLine(diagonal, 1);
    EXPECT_EQ(Pixels({{3, 3}, {6, 1}}), "FF00FF00 FF000000");

    // The source lies along the line, its lower half on this side.
    Renderer.DrawLine(Record(Quadrants(), 0, 7, 8, 7), 2);
    EXPECT_EQ(Pixels({{1, 7}, {6, 7}}), "FF0000FF FFFFFFFF");
    Renderer.DrawLine(Record(TAVUDrawRecord::NoTexture, -2147483647, 0, 2147483647, 0),
                      4000000000u);
}

TEST_F(SoftwareRendererTest, TextIsDrawnWhereAndAsWideAsItIsMeasured) {
    if (!Renderer.HasFonts()) GTEST_SKIP() << "this build has no font library";
    Renderer.Resize(120, 24);
    ASSERT_TRUE(Renderer.OpenFont(1, "", 16, false, false));
    size_t width = 0, sum = 0;
    ASSERT_TRUE(Renderer.MeasureText(1, "Tavukit", width));
    for (char c : std::string("Tavukit")) {
        int advance = 0;
        ASSERT_TRUE(Renderer.CharAdvance(1, static_cast<unsigned char>(c), advance));
        sum += size_t(advance);
    }
    EXPECT_EQ(sum, width) << "the text's width is the sum of its bytes";
    EXPECT_GT(width, 30u);

    size_t drawn = 0;
    ASSERT_TRUE(Renderer.DrawText(1, "Tavukit", tagRECT{10, 2, 110, 24}, White, 0x20, drawn));
    EXPECT_EQ(width, drawn);
    auto [leftmost, rightmost] = InkColumns();
    EXPECT_GE(leftmost, 9);
    EXPECT_LE(leftmost, 12);
    EXPECT_LE(rightmost, 10 + int(width));
    EXPECT_GE(rightmost, 10 + int(width) - 4);

    size_t ignored = 0;
    EXPECT_FALSE(Renderer.MeasureText(9, "x", ignored)) << "an unknown font";
    const LONG most = 2147483647, least = -most - 1;
    for (unsigned format : {0x20u, 0x21u, 0x22u, 0x120u, 0x122u})
        EXPECT_TRUE(
            Renderer.DrawText(1, "far", tagRECT{least, least, most, most}, White, format, ignored))
            << "the widest rectangle, format " << format;
}

TEST_F(SoftwareRendererTest, TextAlignsAndClipsByItsFormat) {
    if (!Renderer.HasFonts()) GTEST_SKIP() << "this build has no font library";
    Renderer.Resize(100, 20);
    ASSERT_TRUE(Renderer.OpenFont(1, "NoSuchFaceAnywhere", 14, false, true));
    size_t width = 0;
    ASSERT_TRUE(Renderer.MeasureText(1, "MMMMMMMM", width));
    auto ink = [&](const char* text, LONG right, unsigned format) {
        Renderer.BeginFrame();
        Renderer.DrawText(1, text, tagRECT{0, 0, right, 20}, White, TAVU_DT_SINGLELINE | format,
                          width);
        return InkColumns();
    };
    EXPECT_LT(ink("MMMMMMMM", 20, 0).second, 20) << "clipped to the rectangle";
    EXPECT_GT(ink("MMMMMMMM", 20, TAVU_DT_NOCLIP).second, 40) << "no clipping";
    EXPECT_GE(ink("MM", 100, TAVU_DT_RIGHT).second, 95);
    auto [first, last] = ink("MM", 100, TAVU_DT_CENTER);
    EXPECT_NEAR(50, (first + last) / 2, 2);
}

TEST_F(SoftwareRendererTest, BytesReadAsWindows1252AndFixedFacesHaveOneAdvance) {
    if (!Renderer.HasFonts()) GTEST_SKIP() << "this build has no font library";
    EXPECT_EQ(char32_t(0x20AC), FontFace::CharacterOf(0x80)) << "the euro sign";
    EXPECT_EQ(char32_t(0xE9), FontFace::CharacterOf(0xE9));
    EXPECT_EQ(char32_t('A'), FontFace::CharacterOf('A'));
    ASSERT_TRUE(Renderer.OpenFont(1, "", 12, true, false));
    int a = 0, i = 0, accented = 0, bell = -1;
    Renderer.CharAdvance(1, 'W', a);
    Renderer.CharAdvance(1, 'i', i);
    Renderer.CharAdvance(1, 0xE9, accented);
    Renderer.CharAdvance(1, 7, bell);
    EXPECT_GT(a, 0);
    EXPECT_EQ(a, i) << "a fixed face";
    EXPECT_EQ(a, accented);
    EXPECT_EQ(0, bell) << "control bytes take no room";
    Renderer.ReleaseFont(1);
    EXPECT_FALSE(Renderer.CharAdvance(1, 'W', a));
}

// A scene with every kind of drawing, against a golden picture. Set
// TAVU_UPDATE_GOLDEN=1 to write the picture anew after a deliberate change.
// The text is drawn in faces named outright, not in whatever the system's
// font configuration makes of "sans-serif": the picture depends on the font
// files (fonts-dejavu-core, and Wine's own fonts-wine for the Windows build,
// which the install step brings), not on what else is installed or preferred
// on the machine. Each platform draws its own fonts, so each has its picture.
TEST_F(SoftwareRendererTest, ASceneMatchesItsGoldenPicture) {
    if (!Renderer.HasFonts()) GTEST_SKIP() << "this build has no font library";
#if defined(_WIN32)
    const char* const kFaces[] = {"Tahoma", "DejaVu Sans Mono"};
    const char* const kGolden = "/tavuhost/golden/scene-windows.png";
#else
    const char* const kFaces[] = {"DejaVu Sans", "DejaVu Sans Mono"};
    const char* const kGolden = "/tavuhost/golden/scene.png";
#endif
    ASSERT_TRUE(Renderer.OpenFont(1, kFaces[0], 13, false, true));
    ASSERT_TRUE(Renderer.OpenFont(2, kFaces[1], 12, true, false));
    for (unsigned font : {1u, 2u}) {
        if (Renderer.FontFamily(font) != kFaces[font - 1])
            GTEST_SKIP() << "the golden picture is drawn in " << kFaces[font - 1]
                         << ", which this system does not have (it gives "
                         << Renderer.FontFamily(font) << ")";
    }
    Renderer.Resize(160, 64);
    Renderer.FillRect(tagRECT{0, 0, 160, 64}, 0xFF202830);
    unsigned texture = Quadrants();
    TAVUDrawRecord turned = Record(texture, 4, 4, 28, 28);
    turned.Orientation = 1;
    Renderer.TexturedRect(turned);
    std::string error;
    ASSERT_TRUE(Renderer.LoadTexture(3, "", 0, error));
    TAVUDrawRecord arrow = Record(3, 32, 4, 48, 20);
    arrow.Flags = TAVUDrawRecord::HasTriangle;
    arrow.ColorMask = 0xFFFFD700;
    arrow.Orientation = 2;
    Renderer.TexturedRect(arrow);
    TAVUDrawRecord line = Record(TAVUDrawRecord::NoTexture, 4, 34, 150, 40);
    line.Flags = TAVUDrawRecord::HasColorMask;
    line.ColorMask = 0xC000FF80;
    Renderer.DrawLine(line, 2);
    size_t width = 0;
    Renderer.DrawText(1, "Tavukit \xE9t\xE9 \x80", tagRECT{52, 4, 160, 24}, White, 0x20, width);
    Renderer.DrawText(2, "fixed 0123", tagRECT{4, 44, 156, 64}, 0xFF80C0FF, 0x21, width);

    const FrameBuffer& frame = Renderer.Frame();
    std::string golden = std::string(TAVU_TEST_DATA_DIR) + kGolden;
    if (getenv("TAVU_UPDATE_GOLDEN")) {
        ASSERT_TRUE(
            ImageFile::WritePng(golden, frame.Pixels(), frame.Width(), frame.Height(), error));
    }
    Image expected, actual;
    ASSERT_TRUE(ImageFile::Load(golden, 0, expected, error)) << error;
    actual.Width = frame.Width(), actual.Height = frame.Height();
    actual.Pixels.assign(frame.Pixels(), frame.Pixels() + size_t(frame.Width()) * frame.Height());
    ImageDifference difference = CompareImages(expected, actual);
    EXPECT_TRUE(difference.Acceptable()) << difference.Describe();
}
