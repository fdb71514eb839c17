#include "ImageSize.h"

#include <cstdio>
#include <cstring>

namespace {

uint32_t BigEndian32(const unsigned char* p) {
    return uint32_t(p[0]) << 24 | uint32_t(p[1]) << 16 | uint32_t(p[2]) << 8 | p[3];
}
uint32_t LittleEndian32(const unsigned char* p) {
    return uint32_t(p[3]) << 24 | uint32_t(p[2]) << 16 | uint32_t(p[1]) << 8 | p[0];
}
uint16_t LittleEndian16(const unsigned char* p) {
    return uint16_t(p[1] << 8 | p[0]);
}

bool Positive(int64_t width, int64_t height) {
    return width > 0 && height > 0 && width <= 0x7fffffff && height <= 0x7fffffff;
}

} // namespace

bool ImageSize::Read(const char* path, int32_t& width, int32_t& height) {
    FILE* file = path ? fopen(path, "rb") : nullptr;
    if (!file) return false;
    unsigned char header[32] = {0};
    size_t count = fread(header, 1, sizeof(header), file);
    fclose(file);
    return Parse(header, count, width, height);
}

bool ImageSize::Parse(const unsigned char* bytes, size_t count, int32_t& width, int32_t& height) {
    static const unsigned char png[8] = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
    int64_t w = 0, h = 0;
    if (count >= 24 && memcmp(bytes, png, 8) == 0 && memcmp(bytes + 12, "IHDR", 4) == 0) {
        w = BigEndian32(bytes + 16);
        h = BigEndian32(bytes + 20);
    } else if (count >= 26 && bytes[0] == 'B' && bytes[1] == 'M') {
        w = int32_t(LittleEndian32(bytes + 18));
        h = int32_t(LittleEndian32(bytes + 22));
        if (h < 0) h = -h; // a top-down bitmap
    } else if (count >= 20 && memcmp(bytes, "DDS ", 4) == 0) {
        h = LittleEndian32(bytes + 12);
        w = LittleEndian32(bytes + 16);
    } else if (count >= 18 && bytes[1] <= 1 &&
               (bytes[2] == 1 || bytes[2] == 2 || bytes[2] == 3 || bytes[2] == 9 ||
                bytes[2] == 10 || bytes[2] == 11)) {
        // TGA has no signature: a known image type and a colour-map flag of 0 or 1.
        w = LittleEndian16(bytes + 12);
        h = LittleEndian16(bytes + 14);
    } else {
        return false;
    }
    if (!Positive(w, h)) return false;
    width = int32_t(w);
    height = int32_t(h);
    return true;
}
