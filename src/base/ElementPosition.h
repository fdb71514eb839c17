#pragma once

#include <cstdint>

// How one of an element's four integers derives from its parent.
struct ElementPosition {
    enum : uint32_t {
        Absolute = 0, // the integer stands as read
        Fraction = 2, // Value.Factor times the parent's size
        FarEdge = 3,  // the parent's size minus Value.Pixels
    };
    uint32_t Type;
    union {
        int32_t Pixels; // Absolute and FarEdge
        float Factor;   // Fraction
    } Value;
};
static_assert(sizeof(ElementPosition) == 8, "ElementPosition is two 32-bit fields");
