// Images in and out of the renderer, through stb_image: PNG, TGA, BMP, JPEG,
// GIF, PSD and the other formats it reads come in as ARGB pixels; frames go
// out as PNG.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

struct Image {
    int Width = 0;
    int Height = 0;
    std::vector<uint32_t> Pixels; // ARGB, row after row from the top left

    uint32_t At(int x, int y) const { return Pixels[size_t(y) * size_t(Width) + size_t(x)]; }
};

class ImageFile {
public:
    // Reads an image. A colour key other than 0 makes every pixel of its red,
    // green and blue transparent (the key's own alpha byte does not count).
    // False, with the reason in error, when the file cannot be read or decoded.
    static bool Load(const std::string& path, uint32_t colorKey, Image& image, std::string& error);
    // The same over bytes in memory.
    static bool Decode(const unsigned char* bytes, size_t count, uint32_t colorKey, Image& image,
                       std::string& error);
    // Writes ARGB pixels as an RGBA PNG.
    static bool WritePng(const std::string& path, const uint32_t* pixels, int width, int height,
                         std::string& error);
};
