// Glyphs blend by their coverage times the text colour's alpha, placed by
// their offsets from the pen and the baseline: first with a face of known
// coverage, so that the pixels are exact whatever fonts the system has, then
// with the system's own faces (GDI on Windows, FreeType elsewhere).
#include "SoftwareRenderer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>

namespace {

// 'A' is a 2x2 glyph one pixel right of the pen, its top two above the
// baseline; every other byte only moves the pen.
class KnownFace final : public FontFace {
public:
    int Ascent() const override { return 3; }
    std::string FamilyName() const override { return "Known"; }

protected:
    void Render(char32_t character, Glyph& glyph) override {
        glyph.Advance = character == 'A' ? 4 : 2;
        if (character != 'A') return;
        glyph.Left = 1, glyph.Top = 2, glyph.Width = 2, glyph.Height = 2;
        glyph.Coverage = {255, 128, 64, 0};
    }
};

class KnownLibrary final : public FontLibrary {
public:
    std::unique_ptr<FontFace> Open(const std::string&, int, bool, bool) override {
        return std::make_unique<KnownFace>();
    }
};

std::string Row(const FrameBuffer& frame, int y) {
    std::string text;
    char pixel[12];
    for (int x = 0; x < frame.Width(); ++x) {
        snprintf(pixel, sizeof(pixel), "%s%08X", x ? " " : "", frame.At(x, y));
        text += pixel;
    }
    return text;
}

TEST(GlyphBlending, CoverageTimesAlphaOverTheFrameAtThePenAndBaseline) {
    struct Case {
        const char* Name;
        uint32_t Color;
        tagRECT Rect;
        const char* Row1;
        const char* Row2;
    } cases[] = {
        {"opaque white",
         0xFFFFFFFF,
         {0, 0, 8, 4},
         "FF000000 FFFFFFFF FF808080 FF000000 FF000000 FFFFFFFF FF808080 FF000000",
         "FF000000 FF404040 FF000000 FF000000 FF000000 FF404040 FF000000 FF000000"},
        {"half red",
         0x80FF0000,
         {0, 0, 8, 4},
         "FF000000 FF800000 FF400000 FF000000 FF000000 FF800000 FF400000 FF000000",
         "FF000000 FF200000 FF000000 FF000000 FF000000 FF200000 FF000000 FF000000"},
        {"clipped after two columns, a row lower",
         0xFFFFFFFF,
         {0, 1, 2, 4},
         "FF000000 FF000000 FF000000 FF000000 FF000000 FF000000 FF000000 FF000000",
         "FF000000 FFFFFFFF FF000000 FF000000 FF000000 FF000000 FF000000 FF000000"},
    };
    for (const Case& c : cases) {
        SoftwareRenderer renderer(std::make_unique<KnownLibrary>());
        renderer.Resize(8, 4);
        ASSERT_TRUE(renderer.OpenFont(1, "", 12, false, false));
        size_t width = 0;
        ASSERT_TRUE(renderer.DrawText(1, "AA", c.Rect, c.Color, 0, width));
        EXPECT_EQ(8u, width);
        EXPECT_EQ(c.Row1, Row(renderer.Frame(), 1)) << c.Name;
        EXPECT_EQ(c.Row2, Row(renderer.Frame(), 2)) << c.Name;
    }
}

// The system's faces: a glyph's ink sits above the baseline within the
// ascent, is fully covered somewhere, is wider in bold, and a name the
// system does not know gives the default face rather than nothing.
TEST(GlyphBlending, TheSystemFacesInkTheirGlyphsWithinTheLine) {
    std::unique_ptr<FontLibrary> fonts = FontLibrary::Create();
    if (!fonts) GTEST_SKIP() << "this build has no font library";
    auto regular = fonts->Open("", 20, false, false);
    auto bold = fonts->Open("", 20, false, true);
    auto unknown = fonts->Open("NoSuchFaceAnywhere", 20, false, false);
    ASSERT_TRUE(regular && bold && unknown);
    EXPECT_EQ(regular->FamilyName(), unknown->FamilyName());

    const Glyph& h = regular->GlyphOf('H');
    EXPECT_GT(h.Width, 4);
    EXPECT_GT(h.Top, 8);
    EXPECT_LE(h.Top, regular->Ascent());
    EXPECT_LE(h.Top - h.Height, 1) << "an H stands on the baseline";
    EXPECT_GE(h.Left, 0);
    EXPECT_LE(h.Left + h.Width, h.Advance + 1);
    EXPECT_GE(*std::max_element(h.Coverage.begin(), h.Coverage.end()), 250);
    EXPECT_GT(bold->GlyphOf('H').Advance, h.Advance);
    EXPECT_TRUE(regular->GlyphOf(' ').Coverage.empty());
    EXPECT_GT(regular->GlyphOf(' ').Advance, 0);
}

} // namespace
