// One entry of a batch of textured rectangles, as controls hand them to
// TAVUElement::TexturedRects. Alpha is final: the batch applies no element alpha.
#pragma once

#include "Platform.h"

#include <cstdint>

class TAVUTexture;

struct TAVUTexturedRect {
    TAVUTexture* Texture; // must not be null
    tagRECT Rect;         // destination
    uint32_t Flags;       // as TAVUDrawRecord::Flags
    tagRECT TextureRect;  // source
    uint8_t Alpha;
    uint32_t ColorMask;
    uint8_t Orientation;
};
