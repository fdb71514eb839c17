// The render services of the host object: its second table of functions.
// Colours are ARGB with alpha in the top byte; rectangles are in screen pixels.
#pragma once

#include "Platform.h"
#include "Point2i.h"
#include "TAVUDrawRecord.h"

#include <cstddef>
#include <cstdint>

// DrawText format flags, with the values of the Windows DT_ flags.
enum : unsigned {
    TAVU_DT_CENTER = 0x1,
    TAVU_DT_RIGHT = 0x2,
    TAVU_DT_SINGLELINE = 0x20,
    TAVU_DT_NOCLIP = 0x100,
};

class HostRenderer {
public:
    // Fills a rectangle; the colour's alpha is final.
    virtual bool FillRect(tagRECT* rect, unsigned color) = 0;
    // Draws one textured rectangle: the source rectangle (the whole image
    // without flag 1) stretched over the destination. Orientation turns the
    // source inside the destination: 0 as it is, 1 a quarter turn clockwise,
    // 2 a half turn, 3 three quarters clockwise. A bordered texture arrives as
    // nine records whose cells are already placed for the turn.
    virtual bool TexturedRect(TAVUDrawRecord* record) = 0;
    // Draws many; the array is the toolkit's and is freed after the call.
    virtual bool TexturedRects(unsigned count, TAVUDrawRecord* records) = 0;
    // Draws a line from (Left, Top) to (Right, Bottom) of the record, width pixels wide.
    virtual bool DrawLine(TAVUDrawRecord* record, unsigned width) = 0;
    // Gets a font of a pixel height; 0 on failure.
    virtual unsigned AcquireFont(const char* name, int height, bool fixed, bool bold) = 0;
    // Gives a font back.
    virtual void ReleaseFont(unsigned font) = 0;
    // Draws one line of text in the rectangle and answers the width drawn.
    virtual size_t DrawText(unsigned font, const char* text, tagRECT* rect, unsigned color,
                            unsigned format) = 0;
    // Writes the width of the text in pixels (the toolkit presets 12).
    virtual void MeasureText(unsigned font, const char* text, size_t* width) = 0;
    // The three spacing values of a character; its advance is their sum.
    virtual bool GetCharWidths(unsigned font, unsigned first, unsigned last, float* abc) = 0;
    // The size of the display area; false keeps the old size.
    virtual bool GetDisplaySize(uint64_t* width, uint64_t* height) = 0;
    // Loads a texture; the colour key becomes transparent. 0 on failure.
    virtual unsigned AcquireTexture(const char* file, unsigned colorKey) = 0;
    // Width and height of a loaded texture.
    virtual bool GetTextureSize(unsigned texture, _Point2i& size) = 0;
    // Gives a texture back.
    virtual void ReleaseTexture(unsigned texture) = 0;

protected:
    ~HostRenderer() = default;
};
