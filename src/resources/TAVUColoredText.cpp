#include "TAVUColoredText.h"

#include "StringHelpers.h"
#include "TAVUColorStack.h"
#include "TAVUFont.h"

#include <cstdio>
#include <cstring>

namespace {
struct LetterColors {
    char Letter;
    unsigned int Plain;
    unsigned int Dark;
};

// Black has alpha 0 on purpose: it hides text on a host that honours alpha.
const LetterColors kLetters[] = {
    {'b', 0x00000000, 0x00000000}, {'g', 0xFF00FF00, 0xFF009900}, {'m', 0xFFFF00FF, 0xFF990099},
    {'o', 0xFFFF9900, 0xFF996600}, {'p', 0xFF9900FF, 0xFF660099}, {'r', 0xFFFF0000, 0xFF990000},
    {'t', 0xFF00FFFF, 0xFF009999}, {'u', 0xFF0000FF, 0xFF000099}, {'w', 0xFFFFFFFF, 0xFF999999},
    {'y', 0xFFFFFF00, 0xFF999900},
};

const size_t kHashDigits = 6;

// "#RRGGBB": up to six digits, fewer when the segment ends inside the code.
const char* ApplyHash(const char* digits, unsigned int& color, TAVUColorStack& stack) {
    char copy[kHashDigits + 1] = {0};
    size_t count = strnlen(digits, kHashDigits);
    memcpy(copy, digits, count);
    unsigned value = 0;
    sscanf(copy, "%x", &value);
    stack.Push(color);
    color = 0xFF000000u | (value & 0x00FFFFFFu);
    return digits + count;
}
} // namespace

bool TAVUColoredText::LetterColor(char letter, bool dark, unsigned int& color) {
    for (const LetterColors& entry : kLetters) {
        if (entry.Letter != letter) continue;
        color = dark ? entry.Dark : entry.Plain;
        return true;
    }
    return false;
}

// An unknown code changes nothing and its byte stays text, but a leading "-"
// is dropped all the same.
const char* TAVUColoredText::ApplyCode(const char* segment, unsigned int& color,
                                       TAVUColorStack& stack) {
    if (segment[0] == '#') return ApplyHash(segment + 1, color, stack);
    bool dark = segment[0] == '-';
    const char* letter = dark ? segment + 1 : segment;
    if (*letter == 'x') {
        stack.Pop(color);
        return letter + 1;
    }
    unsigned int table = 0;
    if (!*letter || !LetterColor(*letter, dark, table)) return letter;
    stack.Push(color);
    color = table;
    return letter + 1;
}

size_t TAVUColoredText::Draw(TAVUFont* font, const char* text, int x, int y) {
    return DrawSegments(font, text, x, y, 0, false);
}

size_t TAVUColoredText::DrawClipped(TAVUFont* font, const char* text, int x, int y, int right) {
    return DrawSegments(font, text, x, y, right, true);
}

// The text is cut into segments at each byte 7, as strtok cuts: a run of
// codes bytes counts as one and no segment is empty. Each segment after the
// first begins with its code.
size_t TAVUColoredText::DrawSegments(TAVUFont* font, const char* text, int x, int y, int right,
                                     bool clipped) {
    if (!text || !text[0] || !font) return 0;
    auto drawOne = [&](const char* part, int at) -> size_t {
        return clipped ? font->DrawClipped(part, at, y, right) : font->Draw(part, at, y, 0);
    };
    if (!strchr(text, Code)) return drawOne(text, x);

    char buffer[BufferSize];
    StrCopyBounded(buffer, text, sizeof(buffer));
    unsigned int saved = font->Color;
    unsigned int current = saved;
    TAVUColorStack stack;
    size_t total = 0;
    int pen = x;
    bool first = buffer[0] != Code;
    for (char* position = buffer; *position;) {
        while (*position == Code)
            ++position;
        if (!*position) break;
        char* end = strchr(position, Code);
        if (end) *end = 0;
        const char* visible = position;
        if (!first) {
            visible = ApplyCode(position, current, stack);
            font->Color = current;
        }
        first = false;
        size_t width = drawOne(visible, pen);
        total += width;
        pen += int(width);
        position = end ? end + 1 : position + strlen(position);
    }
    font->Color = saved;
    return total;
}
