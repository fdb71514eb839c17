#include "XMLEscape.h"

#include <cstring>

namespace {

// The replacement for one byte, or null when the byte is copied as it is.
const char* Replacement(char c, char previous) {
    switch (c) {
    case '"':
        return "&quot;";
    case '&':
        return "&amp;";
    case '<':
        return "&lt;";
    case '>':
        return "&gt;";
    case ' ':
        return previous == ' ' ? "&#32;" : nullptr;
    default:
        return nullptr;
    }
}

} // namespace

void XMLEscape(const char* text, std::string& output) {
    if (!text) return;
    char previous = 0;
    for (const char* c = text; *c; previous = *c++) {
        const char* replacement = Replacement(*c, previous);
        if (replacement)
            output += replacement;
        else
            output += *c;
    }
}

size_t XMLEscapeToBuffer(const char* text, char* buffer, size_t size) {
    if (!buffer || size == 0) return 0;
    size_t used = 0;
    char previous = 0;
    for (const char* c = text ? text : ""; *c; previous = *c++) {
        const char* replacement = Replacement(*c, previous);
        size_t length = replacement ? strlen(replacement) : 1;
        if (used + length >= size) break;
        memcpy(buffer + used, replacement ? replacement : c, length);
        used += length;
    }
    buffer[used] = 0;
    return used + 1;
}
