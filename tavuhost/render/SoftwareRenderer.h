// The reference host's renderer: everything the toolkit draws, painted in
// software into a frame buffer, with textures from image files and text from
// the fonts of the system. Handles are the host's: it numbers textures and
// fonts and tells the renderer which number stands for what.
//
// How the draw record reads here:
//   - a textured rectangle stretches its source rectangle (the whole image
//     without flag 1) over the destination, nearest pixel, turned by
//     Orientation (1 a quarter turn clockwise, 2 a half, 3 three quarters);
//   - the colour mask (flag 4) multiplies each channel, alpha included; a
//     texture without an image (an empty file name) is a fill in the mask
//     colour, with or without the flag;
//   - Alpha (flag 2) multiplies the alpha once more;
//   - a triangle (flag 16) paints only the triangle whose tip is the middle of
//     the source's top edge and whose base is its bottom edge, so that with
//     the orientation it points up, right, down or left. The record carries
//     no corners, so the shape is the host's;
//   - a line of colour (texture 1) is ColorMask; when flag 2 is set, its
//     alpha byte arrives as the low byte of alpha x 255, which is 256 - alpha
//     modulo 256, and is read back so;
//   - a textured line lays the source along its length and across its width.
#pragma once

#include "FontFace.h"
#include "FrameBuffer.h"
#include "ImageFile.h"
#include "Platform.h"
#include "TAVUDrawRecord.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <vector>

class SoftwareRenderer {
public:
    // Without a font library, text is measured by FallbackAdvance and not drawn.
    explicit SoftwareRenderer(std::unique_ptr<FontLibrary> fonts);
    ~SoftwareRenderer();

    FrameBuffer& Frame() { return Picture; }
    const FrameBuffer& Frame() const { return Picture; }
    void Resize(int width, int height) { Picture.Resize(width, height); }
    void BeginFrame() { Picture.Clear(); }
    bool HasFonts() const { return Fonts != nullptr; }

    // An empty path is a texture without an image: a fill. False, with the
    // reason, when the image cannot be read; the handle then stays unknown.
    bool LoadTexture(unsigned handle, const std::string& path, uint32_t colorKey,
                     std::string& error);
    // A texture from pixels the host made itself.
    void LoadPicture(unsigned handle, Image picture);
    bool TextureSize(unsigned handle, int& width, int& height) const;
    void ReleaseTexture(unsigned handle) { Textures.erase(handle); }

    // False when the library has no face to give (or there is no library).
    bool OpenFont(unsigned handle, const std::string& name, int height, bool fixed, bool bold);
    void ReleaseFont(unsigned handle) { FontFaces.erase(handle); }
    // The family of the face the system gave for a font; "" for no such font.
    std::string FontFamily(unsigned handle) const;
    // The width of a text, the sum of its bytes' advances; false for an unknown font.
    bool MeasureText(unsigned font, const char* text, size_t& width);
    bool CharAdvance(unsigned font, unsigned char byte, int& advance);
    // One line of text at the top of the rectangle, aligned by the format's
    // centre and right flags, clipped to the rectangle unless the no-clip flag
    // is set. Answers the text's width; false for an unknown font.
    bool DrawText(unsigned font, const char* text, const tagRECT& rect, uint32_t color,
                  unsigned format, size_t& width);

    void FillRect(const tagRECT& rect, uint32_t color);
    void TexturedRect(const TAVUDrawRecord& record);
    void DrawLine(const TAVUDrawRecord& record, unsigned width);

private:
    struct Texture {
        bool Fill = false;
        Image Picture;
    };
    struct Sampler;

    Sampler SamplerFor(const TAVUDrawRecord& record) const;
    void DrawGlyph(const Glyph& glyph, int64_t penX, int64_t baseline, uint32_t color,
                   const tagRECT& clip);
    void PaintPicture(const Sampler& sampler, bool sideways, const tagRECT& area);
    void PaintTriangle(const Sampler& sampler, bool sideways, const tagRECT& area);

    FrameBuffer Picture;
    std::map<unsigned, Texture> Textures;
    // The library is declared first, so that its faces are closed before it.
    std::unique_ptr<FontLibrary> Fonts;
    std::map<unsigned, std::unique_ptr<FontFace>> FontFaces;
    // Where each column and row of a textured rectangle finds its source, kept
    // between draws so that a frame of rectangles allocates nothing.
    std::vector<float> ColumnAt, RowAt;
    std::vector<int> ColumnSource, RowSource;
    std::vector<size_t> ColumnOffset;
    std::vector<uint32_t> Line; // the colours of one row, before they are blended
};
