// The colour drawing primitives of every element. Each builds its host call on
// the stack; nothing is queued, and the host draws at once.
#include "TAVUElement.h"

#include "CUIManager.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "TAVUScreen.h"

#include <cstdint>

namespace {
// The alpha byte of a colour scaled by an element's alpha, capped at a byte.
uint8_t ScaledAlpha(unsigned color, float currentAlpha) {
    float scaled = (float(color >> 24) / 255.0f) * currentAlpha * 255.0f;
    if (scaled > 255.0f) return 255;
    return uint8_t(TruncateToInt(scaled));
}
} // namespace

unsigned TAVUElement::AdjustColorAlpha(unsigned color) {
    return (unsigned(ScaledAlpha(color, CurrentAlpha)) << 24) | (color & 0x00FFFFFFu);
}

// Wholly left of or above the screen, or starting beyond its size. A rectangle
// that starts exactly at the screen's width still goes to the host.
bool TAVUElement::IsOffScreen(const tagRECT& rect) {
    TAVUScreen* screen = g_UIManager.Screen;
    if (rect.right < 0 || rect.bottom < 0) return true;
    return screen && (rect.left > screen->Width || rect.top > screen->Height);
}

bool TAVUElement::FillRect(tagRECT& rect, unsigned color) {
    if (IsOffScreen(rect)) return true;
    return g_pHost->FillRect(&rect, AdjustColorAlpha(color));
}

// Top, left, right and bottom strips, in that order; the sides run between
// the top and bottom strips.
bool TAVUElement::FillBorderStrips(const tagRECT& rect, unsigned width, unsigned color) {
    LONG w = LONG(width);
    tagRECT strips[4] = {
        {rect.left, rect.top, rect.right, rect.top + w},
        {rect.left, rect.top + w, rect.left + w, rect.bottom - w},
        {rect.right - w, rect.top + w, rect.right, rect.bottom - w},
        {rect.left, rect.bottom - w, rect.right, rect.bottom},
    };
    bool result = true;
    for (tagRECT& strip : strips)
        result = g_pHost->FillRect(&strip, color);
    return result;
}

bool TAVUElement::FillRectBordered(tagRECT& rect, unsigned color, unsigned borderWidth,
                                   unsigned borderColor) {
    if (IsOffScreen(rect)) return true;
    if (borderWidth == 0) return g_pHost->FillRect(&rect, AdjustColorAlpha(color));
    FillBorderStrips(rect, borderWidth, AdjustColorAlpha(borderColor));
    LONG w = LONG(borderWidth);
    tagRECT inside{rect.left + w, rect.top + w, rect.right - w, rect.bottom - w};
    return g_pHost->FillRect(&inside, AdjustColorAlpha(color));
}

bool TAVUElement::DrawBorder(tagRECT& rect, unsigned width, unsigned color) {
    FillBorderStrips(rect, width, AdjustColorAlpha(color));
    return true;
}

// The record's Alpha comes from the scaled alpha byte times 255, cut to its
// low byte: full alpha gives 1. Hosts rely on that value as it stands.
bool TAVUElement::DrawLine(_Line& line, unsigned color, unsigned width) {
    TAVUDrawRecord record{};
    record.Flags = TAVUDrawRecord::HasAlpha | TAVUDrawRecord::HasColorMask;
    record.Left = line.x1;
    record.Top = line.y1;
    record.Right = line.x2;
    record.Bottom = line.y2;
    record.Texture = TAVUDrawRecord::NoTexture;
    record.Orientation = 0;
    record.ColorMask = color;
    float alpha = float(ScaledAlpha(color, CurrentAlpha)) * 255.0f;
    record.Alpha = uint8_t(TruncateToInt(alpha));
    return g_pHost->DrawLine(&record, width);
}

bool TAVUElement::DrawLines(_Line* lines, unsigned count, unsigned color, unsigned width) {
    if (count == 0) return true;
    if (!lines) return false;
    TAVUDrawRecord record{};
    record.Flags = TAVUDrawRecord::HasColorMask;
    record.Texture = TAVUDrawRecord::NoTexture;
    record.ColorMask = AdjustColorAlpha(color);
    for (unsigned i = 0; i < count; ++i) {
        record.Left = lines[i].x1;
        record.Top = lines[i].y1;
        record.Right = lines[i].x2;
        record.Bottom = lines[i].y2;
        g_pHost->DrawLine(&record, width);
    }
    return true;
}
