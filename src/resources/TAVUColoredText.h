// Text with colour codes, drawn segment by segment.
//
// The byte 7 opens a code: "#RRGGBB" sets an opaque colour, a colour letter
// (or "-" and a letter, for the dark shade) sets a colour of the table, and
// "x" goes back to the colour before. A colour lasts until the next code, and
// within one call only: each call starts in the font's colour.
#pragma once

#include "TavuExport.h"

#include <cstddef>

class TAVUFont;
class TAVUColorStack;

class TAVU_API TAVUColoredText {
public:
    enum : char { Code = 7 };
    // The longest text drawn; the rest of a longer one is cut.
    enum : size_t { BufferSize = 2048 };

    // Draws text at x, y and answers the total width drawn. A null font
    // draws nothing.
    static size_t Draw(TAVUFont* font, const char* text, int x, int y);
    // The same, with every segment clipped at the right edge.
    static size_t DrawClipped(TAVUFont* font, const char* text, int x, int y, int right);

    // The colour of a letter of the table, plain or dark; false for any other byte.
    static bool LetterColor(char letter, bool dark, unsigned int& color);
    // Applies the code at the head of a segment (the text behind a byte 7) to
    // the current colour and answers where the visible text of the segment begins.
    static const char* ApplyCode(const char* segment, unsigned int& color, TAVUColorStack& stack);

private:
    static size_t DrawSegments(TAVUFont* font, const char* text, int x, int y, int right,
                               bool clipped);
};
