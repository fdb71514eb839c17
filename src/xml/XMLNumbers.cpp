#include "XMLNumbers.h"

#include <cstdlib>

namespace {

bool IsSpaceChar(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r');
}

const char* SkipSpace(const char* text) {
    while (IsSpaceChar(*text))
        ++text;
    return text;
}

// Reads an optional sign; answers true for a minus.
bool ReadSign(const char*& text) {
    if (*text != '-' && *text != '+') return false;
    return *text++ == '-';
}

int HexDigit(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

} // namespace

int32_t XMLReadDecimal(const char* text) {
    if (!text) return 0;
    text = SkipSpace(text);
    bool negative = ReadSign(text);
    int64_t value = 0;
    const int64_t limit = negative ? int64_t(INT32_MAX) + 1 : INT32_MAX;
    for (; *text >= '0' && *text <= '9'; ++text) {
        value = value * 10 + (*text - '0');
        if (value > limit) value = limit;
    }
    return int32_t(negative ? -value : value);
}

uint32_t XMLReadHex(const char* text) {
    if (!text) return 0;
    text = SkipSpace(text);
    bool negative = ReadSign(text);
    if (text[0] == '0' && (text[1] == 'x' || text[1] == 'X') && HexDigit(text[2]) >= 0) text += 2;
    uint32_t value = 0;
    for (int digit; (digit = HexDigit(*text)) >= 0; ++text)
        value = value * 16 + uint32_t(digit);
    return negative ? 0u - value : value;
}

float XMLReadFloat(const char* text) {
    return text ? float(strtod(text, nullptr)) : 0.0f;
}
