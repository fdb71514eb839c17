// Number conversions shared by the toolkit.
#pragma once

#include "Platform.h"

#include <cstdint>

// Float to int as the processor truncates: a value out of range (or NaN) gives
// the one "indefinite" integer rather than undefined behaviour.
inline int TruncateToInt(float value) {
    if (!(value > -2147483904.0f && value < 2147483648.0f)) return INT32_MIN;
    return int(value);
}

// Float to unsigned, saturating: NaN and anything below 1 give 0, anything
// beyond the 32-bit range gives its largest value.
inline unsigned TruncateToUnsigned(float value) {
    if (!(value > 0.0f)) return 0;
    return value >= 4294967296.0f ? 0xFFFFFFFFu : unsigned(value);
}

// Screen arithmetic that wraps as the processor does, rather than overflowing:
// extreme sizes (a fraction of a negative parent size) must not be undefined.
inline int WrapAdd(int a, int b) {
    return int(unsigned(a) + unsigned(b));
}

inline int WrapSubtract(int a, int b) {
    return int(unsigned(a) - unsigned(b));
}

// A rectangle moved in by `inset` on every side (out for a negative one).
inline tagRECT InsetRect(const tagRECT& rect, int inset) {
    return tagRECT{WrapAdd(rect.left, inset), WrapAdd(rect.top, inset),
                   WrapSubtract(rect.right, inset), WrapSubtract(rect.bottom, inset)};
}
