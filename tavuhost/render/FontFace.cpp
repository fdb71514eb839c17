#include "FontFace.h"

#include "Platform.h"

#include <algorithm>
#include <cctype>

namespace {
const int DefaultHeight = 12;
const int MaxHeight = 512;
} // namespace

int FontLibrary::PixelHeight(int requested) {
    return requested <= 0 ? DefaultHeight : std::min(requested, MaxHeight);
}

bool FontLibrary::Has(const std::string& name) {
    auto same = [](const std::string& a, const char* b) {
        size_t i = 0;
        for (; i < a.size() && b[i]; ++i)
            if (std::tolower((unsigned char)a[i]) != std::tolower((unsigned char)b[i]))
                return false;
        return i == a.size() && !b[i];
    };
    for (const char* generic : {"sans-serif", "serif", "monospace"})
        if (same(name, generic)) return true;
    std::unique_ptr<FontFace> face = Open(name, 0, false, false);
    return face && same(name, face->FamilyName().c_str());
}

const Glyph& FontFace::GlyphOf(unsigned char byte) {
    std::unique_ptr<Glyph>& glyph = Glyphs[byte];
    if (!glyph) {
        glyph = std::make_unique<Glyph>();
        if (byte >= 32) Render(CharacterOf(byte), *glyph);
    }
    return *glyph;
}

// The platform layer knows Windows-1252 as the system code page, on every
// system; the five bytes it leaves unassigned stand for themselves.
char32_t FontFace::CharacterOf(unsigned char byte) {
    if (byte < 0x80) return byte;
#if defined(_WIN32)
    const UINT codePage = 1252;
#else
    const UINT codePage = CP_ACP;
#endif
    const char text[1] = {char(byte)};
    WCHAR wide[2] = {0, 0};
    if (MultiByteToWideChar(codePage, 0, text, 1, wide, 2) != 1) return byte;
    return char32_t(wide[0]);
}
