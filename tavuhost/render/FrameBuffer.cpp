#include "FrameBuffer.h"

#include <algorithm>

namespace Pixel {

uint32_t Modulate(uint32_t a, uint32_t b) {
    uint32_t result = 0;
    for (int shift = 0; shift < 32; shift += 8)
        result |= Scale((a >> shift) & 0xFF, (b >> shift) & 0xFF) << shift;
    return result;
}

uint32_t WithAlpha(uint32_t argb, uint32_t alpha) {
    return (argb & 0x00FFFFFFu) | Scale(AlphaOf(argb), alpha) << 24;
}

uint32_t Over(uint32_t destination, uint32_t source) {
    uint32_t alpha = AlphaOf(source);
    if (alpha == 255) return source;
    if (alpha == 0) return destination;
    uint32_t keep = 255 - alpha;
    uint32_t result = (alpha + Scale(AlphaOf(destination), keep)) << 24;
    for (int shift = 0; shift < 24; shift += 8) {
        uint32_t channel =
            Scale((source >> shift) & 0xFF, alpha) + Scale((destination >> shift) & 0xFF, keep);
        result |= std::min(channel, 255u) << shift;
    }
    return result;
}

} // namespace Pixel

void FrameBuffer::Resize(int width, int height) {
    FrameWidth = std::max(width, 1);
    FrameHeight = std::max(height, 1);
    Data.assign(size_t(FrameWidth) * size_t(FrameHeight), Background);
}

void FrameBuffer::Clear(uint32_t color) {
    std::fill(Data.begin(), Data.end(), color);
}

void FrameBuffer::BlendSpan(int y, int x0, int x1, uint32_t color) {
    uint32_t* row = Data.data() + size_t(y) * size_t(FrameWidth);
    if (Pixel::AlphaOf(color) == 255) {
        std::fill(row + x0, row + x1, color);
        return;
    }
    for (int x = x0; x < x1; ++x)
        row[x] = Pixel::Over(row[x], color);
}
