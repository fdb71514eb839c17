// Fonts through fontconfig (which face a name means) and FreeType (its glyphs).
#include "FontFace.h"

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <cstring>

namespace {

class FreeTypeFace final : public FontFace {
public:
    explicit FreeTypeFace(FT_Face face) : Face(face) {}
    ~FreeTypeFace() override { FT_Done_Face(Face); }

    int Ascent() const override { return int((Face->size->metrics.ascender + 63) >> 6); }
    std::string FamilyName() const override { return Face->family_name ? Face->family_name : ""; }

protected:
    void Render(char32_t character, Glyph& glyph) override {
        if (FT_Load_Char(Face, FT_ULong(character), FT_LOAD_RENDER | FT_LOAD_TARGET_LIGHT)) return;
        FT_GlyphSlot slot = Face->glyph;
        glyph.Advance = int((slot->advance.x + 32) >> 6);
        const FT_Bitmap& bitmap = slot->bitmap;
        if (bitmap.pixel_mode != FT_PIXEL_MODE_GRAY || !bitmap.buffer) return;
        glyph.Left = slot->bitmap_left;
        glyph.Top = slot->bitmap_top;
        glyph.Width = int(bitmap.width);
        glyph.Height = int(bitmap.rows);
        glyph.Coverage.resize(size_t(glyph.Width) * size_t(glyph.Height));
        for (int row = 0; row < glyph.Height; ++row)
            memcpy(glyph.Coverage.data() + size_t(row) * size_t(glyph.Width),
                   bitmap.buffer + ptrdiff_t(row) * bitmap.pitch, size_t(glyph.Width));
    }

private:
    FT_Face Face;
};

class FreeTypeLibrary final : public FontLibrary {
public:
    FreeTypeLibrary() {
        if (FT_Init_FreeType(&Library)) Library = nullptr;
        Config = FcInitLoadConfigAndFonts();
    }
    ~FreeTypeLibrary() override {
        if (Library) FT_Done_FreeType(Library);
        if (Config) FcConfigDestroy(Config);
    }
    bool Ready() const { return Library && Config; }

    std::unique_ptr<FontFace> Open(const std::string& name, int height, bool fixed,
                                   bool bold) override {
        std::string file;
        int index = 0;
        if (!Match(name, fixed, bold, file, index) &&
            !(fixed && Match("", fixed, bold, file, index)))
            return nullptr;
        FT_Face face = nullptr;
        if (FT_New_Face(Library, file.c_str(), index, &face)) return nullptr;
        if (FT_Set_Pixel_Sizes(face, 0, FT_UInt(PixelHeight(height)))) {
            FT_Done_Face(face);
            return nullptr;
        }
        return std::make_unique<FreeTypeFace>(face);
    }

private:
    // The file of the face that fontconfig would give for the name. A fixed
    // request that lands on a face with proportional spacing is refused, so
    // that the caller can ask for plain "monospace".
    bool Match(const std::string& name, bool fixed, bool bold, std::string& file, int& index) {
        const char* family = !name.empty() ? name.c_str() : fixed ? "monospace" : "sans-serif";
        FcPattern* pattern = FcPatternCreate();
        FcPatternAddString(pattern, FC_FAMILY, reinterpret_cast<const FcChar8*>(family));
        FcPatternAddInteger(pattern, FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
        if (fixed) FcPatternAddInteger(pattern, FC_SPACING, FC_MONO);
        FcConfigSubstitute(Config, pattern, FcMatchPattern);
        FcDefaultSubstitute(pattern);
        FcResult result = FcResultNoMatch;
        FcPattern* match = FcFontMatch(Config, pattern, &result);
        FcPatternDestroy(pattern);
        if (!match) return false;
        FcChar8* path = nullptr;
        int spacing = FC_PROPORTIONAL;
        FcPatternGetInteger(match, FC_SPACING, 0, &spacing);
        bool found = FcPatternGetString(match, FC_FILE, 0, &path) == FcResultMatch && path &&
                     (!fixed || spacing >= FC_MONO);
        if (found) {
            file = reinterpret_cast<const char*>(path);
            if (FcPatternGetInteger(match, FC_INDEX, 0, &index) != FcResultMatch) index = 0;
        }
        FcPatternDestroy(match);
        return found;
    }

    FT_Library Library = nullptr;
    FcConfig* Config = nullptr;
};

} // namespace

std::unique_ptr<FontLibrary> FontLibrary::Create() {
    auto library = std::make_unique<FreeTypeLibrary>();
    if (!library->Ready()) return nullptr;
    return library;
}
