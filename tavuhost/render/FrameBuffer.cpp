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

// Four colours tinted and painted over four pixels of a row. Four opaque
// pixels replace, four clear ones leave the row alone: most of a picture is
// one or the other, and most of a glyph's box is clear. Without a tint
// (white scales nothing) the colours are taken as they are.
template <bool Tinted>
inline void BlendFour(uint32_t* row, const uint32_t* colors, __m128i tintLanes) {
    const __m128i zero = _mm_setzero_si128(), opaque = _mm_set1_epi8(char(0xFF));
    __m128i source = _mm_loadu_si128(reinterpret_cast<const __m128i*>(colors));
    if (Tinted)
        source = _mm_packus_epi16(ScaleLanes(_mm_unpacklo_epi8(source, zero), tintLanes),
                                  ScaleLanes(_mm_unpackhi_epi8(source, zero), tintLanes));
    if ((_mm_movemask_epi8(_mm_cmpeq_epi8(source, opaque)) & 0x8888) == 0x8888) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(row), source);
        return;
    }
    if ((_mm_movemask_epi8(_mm_cmpeq_epi8(source, zero)) & 0x8888) == 0x8888) return;
    __m128i destination = _mm_loadu_si128(reinterpret_cast<const __m128i*>(row));
    __m128i low = OverLanes(_mm_unpacklo_epi8(destination, zero), _mm_unpacklo_epi8(source, zero));
    __m128i high = OverLanes(_mm_unpackhi_epi8(destination, zero), _mm_unpackhi_epi8(source, zero));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(row), _mm_packus_epi16(low, high));
}

template <bool Tinted>
void BlendRowOf(uint32_t* row, const uint32_t* colors, size_t count, __m128i tintLanes) {
    size_t i = 0;
    for (; i + 4 <= count; i += 4)
        BlendFour<Tinted>(row + i, colors + i, tintLanes);
    if (i == count) return;
    // The last few go through the same four-pixel sums, padded with clear
    // colours that leave the padding alone.
    uint32_t rowTail[4] = {0, 0, 0, 0}, colorTail[4] = {0, 0, 0, 0};
    std::copy(row + i, row + count, rowTail);
    std::copy(colors + i, colors + count, colorTail);
    BlendFour<Tinted>(rowTail, colorTail, tintLanes);
    std::copy(rowTail, rowTail + (count - i), row + i);
}

} // namespace
#endif

namespace Pixel {

void BlendRow(uint32_t* row, const uint32_t* colors, size_t count, uint32_t tint) {
#if defined(__SSE2__)
    const __m128i tintLanes = _mm_unpacklo_epi8(_mm_set1_epi32(int(tint)), _mm_setzero_si128());
    if (tint == 0xFFFFFFFFu)
        BlendRowOf<false>(row, colors, count, tintLanes);
    else
        BlendRowOf<true>(row, colors, count, tintLanes);
#else
    for (size_t i = 0; i < count; ++i)
        row[i] = Over(row[i], Modulate(colors[i], tint));
#endif
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

void FrameBuffer::Prefetch(int y, int x0, int x1) const {
#if defined(__GNUC__)
    if (y >= FrameHeight) return;
    const uint32_t* row = Data.data() + size_t(y) * size_t(FrameWidth);
    for (int x = x0; x < x1; x += 16) // one cache line of 64 bytes
        __builtin_prefetch(row + x, 1);
    __builtin_prefetch(row + x1 - 1, 1);
#else
    (void)y, (void)x0, (void)x1;
#endif
}
