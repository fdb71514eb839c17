// The record of the render services. The host reads it byte by byte, so its
// layout is fixed: 48 bytes, little-endian, every offset pinned below.
#pragma once

#include <cstddef>
#include <cstdint>

struct TAVUDrawRecord {
    enum : uint32_t {
        HasSourceRect = 1, // TextureLeft..TextureBottom count
        HasAlpha = 2,      // Alpha counts
        HasColorMask = 4,  // ColorMask counts
        HasTriangle = 16,  // the texture is a triangle
    };
    enum : uint32_t { NoTexture = 1 }; // Texture value of a line drawn in a colour

    uint32_t Flags;
    int32_t Left;   // for a line: x of the first point
    int32_t Top;    // y of the first point
    int32_t Right;  // x of the second point
    int32_t Bottom; // y of the second point
    int32_t TextureLeft;
    int32_t TextureTop;
    int32_t TextureRight;
    int32_t TextureBottom;
    uint32_t Texture;
    uint8_t Alpha;
    uint8_t Orientation;
    uint8_t Reserved[2]; // never written
    uint32_t ColorMask;  // ARGB
};

static_assert(sizeof(TAVUDrawRecord) == 48, "TAVUDrawRecord is 48 bytes");
static_assert(offsetof(TAVUDrawRecord, Flags) == 0);
static_assert(offsetof(TAVUDrawRecord, Left) == 4);
static_assert(offsetof(TAVUDrawRecord, Top) == 8);
static_assert(offsetof(TAVUDrawRecord, Right) == 12);
static_assert(offsetof(TAVUDrawRecord, Bottom) == 16);
static_assert(offsetof(TAVUDrawRecord, TextureLeft) == 20);
static_assert(offsetof(TAVUDrawRecord, TextureTop) == 24);
static_assert(offsetof(TAVUDrawRecord, TextureRight) == 28);
static_assert(offsetof(TAVUDrawRecord, TextureBottom) == 32);
static_assert(offsetof(TAVUDrawRecord, Texture) == 36);
static_assert(offsetof(TAVUDrawRecord, Alpha) == 40);
static_assert(offsetof(TAVUDrawRecord, Orientation) == 41);
static_assert(offsetof(TAVUDrawRecord, ColorMask) == 44);
