// The picture a frame paints: 32-bit pixels in the toolkit's own colour form,
// ARGB with alpha in the top byte, row after row from the top left. The frame
// is opaque; what is painted onto it blends by its alpha.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Pixel {
inline uint32_t AlphaOf(uint32_t argb) {
    return argb >> 24;
}
// x * y / 255, rounded, for bytes.
inline uint32_t Scale(uint32_t x, uint32_t y) {
    uint32_t product = x * y + 128;
    return (product + (product >> 8)) >> 8;
}
// Scale for the two bytes at bits 0 and 16 of pair at once (the others are
// ignored): each product stays below 16 bits, so the halves never mix.
inline uint32_t ScalePair(uint32_t pair, uint32_t y) {
    uint32_t product = (pair & 0x00FF00FFu) * y + 0x00800080u;
    return ((product + ((product >> 8) & 0x00FF00FFu)) >> 8) & 0x00FF00FFu;
}
// Each channel of a times the same channel of b, as fractions of 255.
inline uint32_t Modulate(uint32_t a, uint32_t b) {
    return Scale(a & 0xFF, b & 0xFF) | Scale((a >> 8) & 0xFF, (b >> 8) & 0xFF) << 8 |
           Scale((a >> 16) & 0xFF, (b >> 16) & 0xFF) << 16 | Scale(a >> 24, b >> 24) << 24;
}
// The colour with its alpha multiplied by alpha / 255.
uint32_t WithAlpha(uint32_t argb, uint32_t alpha);
// source painted over destination by the source's alpha: each channel is
// Scale(source, alpha) + Scale(destination, 255 - alpha), and the alpha is
// alpha + Scale(destination's alpha, 255 - alpha). Neither sum can pass 255,
// as Scale(255, alpha) is alpha, so two channels go through one multiply and
// no pixel takes a branch; alpha 255 gives the source and 0 the destination.
inline uint32_t Over(uint32_t destination, uint32_t source) {
    uint32_t alpha = AlphaOf(source), keep = 255 - alpha;
    uint32_t redBlue = ScalePair(source, alpha) + ScalePair(destination, keep);
    // The source's own alpha byte is taken as 255 here, which scales to alpha.
    uint32_t alphaGreen =
        ScalePair((source >> 8) | 0x00FF0000u, alpha) + ScalePair(destination >> 8, keep);
    return redBlue | alphaGreen << 8;
}
// Each colour tinted (Modulate) and painted over its pixel of the row, as
// Over(row[i], Modulate(colors[i], tint)) does, several pixels at a time
// where the processor can.
void BlendRow(uint32_t* row, const uint32_t* colors, size_t count, uint32_t tint);
} // namespace Pixel

class FrameBuffer {
public:
    enum : uint32_t { Background = 0xFF000000u };

    // Both sides are at least one pixel, so that every frame has a picture.
    void Resize(int width, int height);
    void Clear(uint32_t color = Background);
    int Width() const { return FrameWidth; }
    int Height() const { return FrameHeight; }
    const uint32_t* Pixels() const { return Data.data(); }
    uint32_t At(int x, int y) const { return Data[size_t(y) * size_t(FrameWidth) + size_t(x)]; }
    bool Contains(int x, int y) const {
        return x >= 0 && y >= 0 && x < FrameWidth && y < FrameHeight;
    }
    // Paints one pixel over what is there; points outside the frame are dropped.
    void Blend(int x, int y, uint32_t color) {
        if (!Contains(x, y)) return;
        uint32_t& pixel = Data[size_t(y) * size_t(FrameWidth) + size_t(x)];
        pixel = Pixel::Over(pixel, color);
    }
    // The pixels of one row, which must be inside the frame.
    uint32_t* Row(int y) { return Data.data() + size_t(y) * size_t(FrameWidth); }
    // The same for a span of one row, x0 to x1 (x1 excluded), already inside the frame.
    void BlendSpan(int y, int x0, int x1, uint32_t color);
    // Asks the processor to fetch a span of a row that is about to be
    // blended: rows of a frame are far apart in memory, and a narrow span of
    // each is too short for the processor to foresee.
    void Prefetch(int y, int x0, int x1) const;

private:
    int FrameWidth = 1;
    int FrameHeight = 1;
    std::vector<uint32_t> Data = std::vector<uint32_t>(1, Background);
};
