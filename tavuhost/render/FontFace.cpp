#include "FontFace.h"

#include "Platform.h"

#include <algorithm>

namespace {
const int DefaultHeight = 12;
const int MaxHeight = 512;
} // namespace

int FontLibrary::PixelHeight(int requested) {
    return requested <= 0 ? DefaultHeight : std::min(requested, MaxHeight);
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
