#include "ImageFile.h"

#include <cstdio>

// stb does its own allocation and bounds checks; only its warnings are muted.
#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wall"
#pragma GCC diagnostic ignored "-Wextra"
#pragma GCC diagnostic ignored "-Wmissing-field-initializers"
#pragma GCC diagnostic ignored "-Wunused-function"
#pragma GCC diagnostic ignored "-Wunused-but-set-variable"
#endif
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_NO_STDIO
#define STBI_FAILURE_USERMSG
#include <stb/stb_image.h>
#define STB_IMAGE_WRITE_IMPLEMENTATION
#define STB_IMAGE_WRITE_STATIC
#define STBI_WRITE_NO_STDIO
#include <stb/stb_image_write.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

namespace {

// Images larger than this many pixels a side are refused rather than
// decoded: a texture of the interface is never so large, a damaged header may be.
const int MaxSide = 16384;

bool ReadWholeFile(const std::string& path, std::vector<unsigned char>& bytes) {
    FILE* file = fopen(path.c_str(), "rb");
    if (!file) return false;
    unsigned char buffer[65536];
    size_t count = 0;
    while ((count = fread(buffer, 1, sizeof(buffer), file)) > 0)
        bytes.insert(bytes.end(), buffer, buffer + count);
    fclose(file);
    return true;
}

void AppendToVector(void* context, void* data, int size) {
    auto* out = static_cast<std::vector<unsigned char>*>(context);
    auto* bytes = static_cast<unsigned char*>(data);
    out->insert(out->end(), bytes, bytes + size);
}

} // namespace

bool ImageFile::Load(const std::string& path, uint32_t colorKey, Image& image, std::string& error) {
    std::vector<unsigned char> bytes;
    if (!ReadWholeFile(path, bytes)) {
        error = "cannot read '" + path + "'";
        return false;
    }
    if (Decode(bytes.data(), bytes.size(), colorKey, image, error)) return true;
    error = "cannot decode '" + path + "': " + error;
    return false;
}

bool ImageFile::Decode(const unsigned char* bytes, size_t count, uint32_t colorKey, Image& image,
                       std::string& error) {
    int width = 0, height = 0, channels = 0;
    if (count == 0 || count > 0x7fffffff ||
        !stbi_info_from_memory(bytes, int(count), &width, &height, &channels)) {
        error = count == 0 ? "the file is empty" : stbi_failure_reason();
        return false;
    }
    if (width > MaxSide || height > MaxSide) {
        error = "the image is larger than 16384 pixels a side";
        return false;
    }
    unsigned char* rgba = stbi_load_from_memory(bytes, int(count), &width, &height, &channels, 4);
    if (!rgba) {
        error = stbi_failure_reason();
        return false;
    }
    image.Width = width;
    image.Height = height;
    image.Pixels.resize(size_t(width) * size_t(height));
    const uint32_t key = colorKey & 0x00FFFFFFu;
    for (size_t i = 0; i < image.Pixels.size(); ++i) {
        const unsigned char* p = rgba + i * 4;
        uint32_t rgb = uint32_t(p[0]) << 16 | uint32_t(p[1]) << 8 | p[2];
        bool keyed = colorKey != 0 && rgb == key;
        image.Pixels[i] = keyed ? rgb : uint32_t(p[3]) << 24 | rgb;
    }
    stbi_image_free(rgba);
    return true;
}

bool ImageFile::WritePng(const std::string& path, const uint32_t* pixels, int width, int height,
                         std::string& error) {
    std::vector<unsigned char> rgba(size_t(width) * size_t(height) * 4);
    for (size_t i = 0; i < size_t(width) * size_t(height); ++i) {
        uint32_t argb = pixels[i];
        rgba[i * 4 + 0] = uint8_t(argb >> 16);
        rgba[i * 4 + 1] = uint8_t(argb >> 8);
        rgba[i * 4 + 2] = uint8_t(argb);
        rgba[i * 4 + 3] = uint8_t(argb >> 24);
    }
    std::vector<unsigned char> encoded;
    if (!stbi_write_png_to_func(AppendToVector, &encoded, width, height, 4, rgba.data(),
                                width * 4)) {
        error = "cannot encode the picture as PNG";
        return false;
    }
    FILE* file = fopen(path.c_str(), "wb");
    bool written = file && fwrite(encoded.data(), 1, encoded.size(), file) == encoded.size();
    if (file && fclose(file) != 0) written = false;
    if (!written) error = "cannot write '" + path + "'";
    return written;
}
