// Fonts of the renderer. The toolkit hands text over as bytes and counts one
// character per byte, so a face here is a table of 256 glyphs: bytes up to
// 127 are ASCII, bytes above read as Windows-1252 (the code page the
// toolkit's platform layer converts with), so that what is measured is what
// is drawn, byte for byte. Control bytes (below 32) draw nothing and take no room.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

struct Glyph {
    int Left = 0;                  // from the pen to the first column of the bitmap
    int Top = 0;                   // from the baseline up to the first row of the bitmap
    int Width = 0;                 // of the bitmap
    int Height = 0;                // of the bitmap
    int Advance = 0;               // how far the pen moves, whole pixels
    std::vector<uint8_t> Coverage; // Width x Height, 0 to 255
};

class FontFace {
public:
    virtual ~FontFace() = default;

    // The glyph of one byte of text, made on first use and kept.
    const Glyph& GlyphOf(unsigned char byte);
    // Pixels from the top of a line of text down to its baseline.
    virtual int Ascent() const = 0;
    // The name of the face that was chosen, for messages.
    virtual std::string FamilyName() const = 0;

    // The character that a byte of text stands for.
    static char32_t CharacterOf(unsigned char byte);

protected:
    virtual void Render(char32_t character, Glyph& glyph) = 0;

private:
    std::array<std::unique_ptr<Glyph>, 256> Glyphs;
};

class FontLibrary {
public:
    virtual ~FontLibrary() = default;

    // The face for a name ("" or an unknown one gives the default sans face,
    // fixed a monospace one) at a pixel height; null when none can be had.
    virtual std::unique_ptr<FontFace> Open(const std::string& name, int height, bool fixed,
                                           bool bold) = 0;

    // Whether text in the named face is drawn in that face rather than in a
    // stand-in: what an author means by the font being found. The generic
    // names ("sans-serif", "serif", "monospace") always are.
    bool Has(const std::string& name);

    // The library of this build; null when it was built without one, and then
    // text is measured but not drawn.
    static std::unique_ptr<FontLibrary> Create();

protected:
    // The pixel height to open: 0 or less is the toolkit's usual height, and
    // absurd heights are cut.
    static int PixelHeight(int requested);
};
