#include "OverlayPainter.h"

#include "HostRenderer.h"
#include "SoftwareRenderer.h"

#include <algorithm>

OverlayPainter::OverlayPainter(SoftwareRenderer& renderer) : Renderer(renderer) {
    HasFont = Renderer.OpenFont(FontHandle, "monospace", 12, true, false);
}

int OverlayPainter::Width() const {
    return Renderer.Frame().Width();
}

int OverlayPainter::Height() const {
    return Renderer.Frame().Height();
}

void OverlayPainter::Box(int x, int y, int width, int height, uint32_t color) {
    if (width <= 0 || height <= 0) return;
    // Sums in 64 bits: element rectangles come from the toolkit and may be huge.
    int64_t right = std::min<int64_t>(int64_t(x) + width, Width());
    int64_t bottom = std::min<int64_t>(int64_t(y) + height, Height());
    tagRECT rect{std::max(x, 0), std::max(y, 0), LONG(right), LONG(bottom)};
    if (rect.left >= rect.right || rect.top >= rect.bottom) return;
    Renderer.FillRect(rect, color);
}

void OverlayPainter::Outline(int x, int y, int width, int height, uint32_t color, int thickness) {
    if (width <= 0 || height <= 0) return;
    int64_t right = int64_t(x) + width, bottom = int64_t(y) + height;
    auto clamp = [](int64_t value) { return int(std::clamp<int64_t>(value, -1, 1 << 20)); };
    int left = clamp(x), top = clamp(y), w = clamp(right) - left, h = clamp(bottom) - top;
    Box(left, top, w, thickness, color);
    Box(left, top + h - thickness, w, thickness, color);
    Box(left, top, thickness, h, color);
    Box(left + w - thickness, top, thickness, h, color);
}

void OverlayPainter::Text(int x, int y, const std::string& text, uint32_t color) {
    if (!HasFont || text.empty()) return;
    tagRECT rect{x, y, Width(), y + LineHeight};
    size_t width = 0;
    Renderer.DrawText(FontHandle, text.c_str(), rect, color, TAVU_DT_SINGLELINE, width);
}

int OverlayPainter::TextWidth(const std::string& text) const {
    size_t width = 0;
    // Without a font the text is not drawn; a fixed advance keeps the boxes sized.
    if (!HasFont || !Renderer.MeasureText(FontHandle, text.c_str(), width)) width = text.size() * 7;
    return int(std::min<size_t>(width, 1 << 20));
}

int OverlayPainter::FitWidth(const std::string* lines, size_t count) const {
    int widest = 0;
    for (size_t i = 0; i < count; ++i)
        widest = std::max(widest, TextWidth(lines[i]));
    return widest + 2 * Margin;
}

void OverlayPainter::Panel(int x, int y, int width, const std::string* lines, size_t count,
                           uint32_t fill, uint32_t color) {
    Box(x, y, width, int(count) * LineHeight + 2 * Margin, fill);
    for (size_t i = 0; i < count; ++i)
        Text(x + Margin, y + Margin + int(i) * LineHeight, lines[i], color);
}
