#include "StringHelpers.h"

#include <cstdlib>
#include <cstring>

namespace {
inline int LowerAscii(unsigned char c) {
    return (c >= 'A' && c <= 'Z') ? c + ('a' - 'A') : c;
}
} // namespace

int StrCompareNoCase(const char* a, const char* b) {
    const unsigned char* x = reinterpret_cast<const unsigned char*>(a ? a : "");
    const unsigned char* y = reinterpret_cast<const unsigned char*>(b ? b : "");
    for (;; ++x, ++y) {
        int difference = LowerAscii(*x) - LowerAscii(*y);
        if (difference != 0 || *x == 0) return difference;
    }
}

int StrCompareNoCaseN(const char* a, const char* b, size_t count) {
    const unsigned char* x = reinterpret_cast<const unsigned char*>(a ? a : "");
    const unsigned char* y = reinterpret_cast<const unsigned char*>(b ? b : "");
    for (; count > 0; --count, ++x, ++y) {
        int difference = LowerAscii(*x) - LowerAscii(*y);
        if (difference != 0 || *x == 0) return difference;
    }
    return 0;
}

char* StrDuplicate(const char* text) {
    if (!text) return nullptr;
    size_t size = strlen(text) + 1;
    char* copy = static_cast<char*>(malloc(size));
    if (copy) memcpy(copy, text, size);
    return copy;
}

void StrFree(char* text) {
    free(text);
}

char* StrLower(char* text) {
    if (!text) return text;
    for (char* c = text; *c; ++c)
        *c = char(LowerAscii(static_cast<unsigned char>(*c)));
    return text;
}

size_t StrCopyBounded(char* destination, const char* source, size_t size) {
    if (!destination || size == 0) return 0;
    size_t length = source ? strnlen(source, size - 1) : 0;
    if (length) memcpy(destination, source, length);
    destination[length] = 0;
    return length;
}
