// Paints the host's own overlays (the reload error, the inspector) over a
// frame that the toolkit has drawn, through the same renderer, with a font
// of the host's own. The font's handle lies far above the ones the host
// hands to the toolkit, so the two never meet.
#pragma once

#include <cstdint>
#include <string>

class SoftwareRenderer;

class OverlayPainter {
public:
    enum : int { LineHeight = 15, Margin = 4 };
    enum : unsigned { FontHandle = 0x7fff0000u };

    explicit OverlayPainter(SoftwareRenderer& renderer);

    int Width() const;
    int Height() const;
    void Box(int x, int y, int width, int height, uint32_t color);
    void Outline(int x, int y, int width, int height, uint32_t color, int thickness);
    // One line of text from (x, y), cut at the right edge of the frame.
    void Text(int x, int y, const std::string& text, uint32_t color);
    // The width of a line of text, in pixels.
    int TextWidth(const std::string& text) const;
    // The width of a panel that fits the lines.
    int FitWidth(const std::string* lines, size_t count) const;
    // A box of lines with a margin around them, as wide as asked.
    void Panel(int x, int y, int width, const std::string* lines, size_t count, uint32_t fill,
               uint32_t color);

private:
    SoftwareRenderer& Renderer;
    bool HasFont = false;
};
