// A 32-bit DIB section whose rows run top down, four bytes a pixel in the
// order blue, green, red, alpha: the frame buffer's own layout, so that a
// frame or a glyph moves in and out of it by plain copies. Windows only.
#pragma once

#include <windows.h>

// Null when GDI cannot make one; bits then stays untouched.
inline HBITMAP CreateTopDownDib(HDC context, int width, int height, void** bits) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = -height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return CreateDIBSection(context, &info, DIB_RGB_COLORS, bits, nullptr, 0);
}
