// How a line of text sits in its box: three horizontal and three vertical ways.
#pragma once

#include <cstdint>

enum eTextAlign : uint32_t {
    TAVU_ALIGN_LEFT = 0,
    TAVU_ALIGN_CENTER = 1, // horizontal centre
    TAVU_ALIGN_RIGHT = 2,
    TAVU_ALIGN_TOP = 3,
    TAVU_ALIGN_VCENTER = 4, // vertical centre
    TAVU_ALIGN_BOTTOM = 5,
};
