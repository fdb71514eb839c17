// Reads the pixel size of an image from its header: PNG, BMP, TGA and DDS,
// the formats textures come in. Only the header is read.
#pragma once

#include <cstddef>
#include <cstdint>

class ImageSize {
public:
    // False when the file cannot be read or its format is not one of these.
    static bool Read(const char* path, int32_t& width, int32_t& height);
    // The same over bytes already in memory (the first bytes of a file).
    static bool Parse(const unsigned char* bytes, size_t count, int32_t& width, int32_t& height);
};
