#include "FrameBuffer.h"

#include <algorithm>

#if defined(__SSE2__)
#include <emmintrin.h>

namespace {

// Scale in eight 16-bit lanes: every product and sum stays below 65536.
inline __m128i ScaleLanes(__m128i x, __m128i y) {
    __m128i product = _mm_add_epi16(_mm_mullo_epi16(x, y), _mm_set1_epi16(128));
    return _mm_srli_epi16(_mm_add_epi16(product, _mm_srli_epi16(product, 8)), 8);
}

// Two pixels widened to 16 bits a channel, painted over the destination
// with the same sums as Pixel::Over.
inline __m128i OverLanes(__m128i destination, __m128i source) {
    __m128i alpha = _mm_shufflehi_epi16(_mm_shufflelo_epi16(source, 0xFF), 0xFF);
    __m128i keep = _mm_sub_epi16(_mm_set1_epi16(255), alpha);
    __m128i opaque = _mm_or_si128(source, _mm_set_epi16(255, 0, 0, 0, 255, 0, 0, 0));
    return _mm_add_epi16(ScaleLanes(opaque, alpha), ScaleLanes(destination, keep));
}

} // namespace
#endif

namespace Pixel {

void BlendRow(uint32_t* row, const uint32_t* colors, size_t count, uint32_t tint) {
    size_t i = 0;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    const __m128i tintLanes = _mm_unpacklo_epi8(_mm_set1_epi32(int(tint)), zero);
    const __m128i opaque = _mm_set1_epi8(char(0xFF));
    for (; i + 4 <= count; i += 4) {
        __m128i color = _mm_loadu_si128(reinterpret_cast<const __m128i*>(colors + i));
        __m128i lowSource = ScaleLanes(_mm_unpacklo_epi8(color, zero), tintLanes);
        __m128i highSource = ScaleLanes(_mm_unpackhi_epi8(color, zero), tintLanes);
        __m128i source = _mm_packus_epi16(lowSource, highSource);
        // Four opaque pixels replace, four clear ones leave the row alone:
        // most of a picture is one or the other, and most of a glyph's box clear.
        int alphas = _mm_movemask_epi8(_mm_cmpeq_epi8(source, opaque)) & 0x8888;
        if (alphas == 0x8888) {
            _mm_storeu_si128(reinterpret_cast<__m128i*>(row + i), source);
            continue;
        }
        if ((_mm_movemask_epi8(_mm_cmpeq_epi8(source, zero)) & 0x8888) == 0x8888) continue;
        __m128i destination = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row + i));
        __m128i low = OverLanes(_mm_unpacklo_epi8(destination, zero), lowSource);
        __m128i high = OverLanes(_mm_unpackhi_epi8(destination, zero), highSource);
        _mm_storeu_si128(reinterpret_cast<__m128i*>(row + i), _mm_packus_epi16(low, high));
    }
#endif
    for (; i < count; ++i)
        row[i] = Over(row[i], Modulate(colors[i], tint));
}

uint32_t WithAlpha(uint32_t argb, uint32_t alpha) {
    return (argb & 0x00FFFFFFu) | Scale(AlphaOf(argb), alpha) << 24;
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
