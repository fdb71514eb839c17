#include "CTextEditLine.h"

#include <cstdlib>
#include <cstring>

CTextEditLine::CTextEditLine(const char* text, size_t lineNumber) : LineNumber(lineNumber) {
    size_t length = text ? strlen(text) : 0;
    Text = static_cast<char*>(malloc(length + 1));
    if (!Text) return; // an empty line without a buffer: every edit refuses
    if (length) memcpy(Text, text, length);
    Text[length] = 0;
    Length = length;
    Capacity = length + 1;
}

CTextEditLine::~CTextEditLine() {
    free(Text);
}

// The buffer at least doubles, so that a run of typing into one line
// reallocates a handful of times rather than once per character.
bool CTextEditLine::Reserve(size_t needed) {
    if (!Text) return false;
    if (needed + 1 <= Capacity) return true;
    if (needed > (size_t(-1) >> 2)) return false;
    size_t capacity = Capacity * 2 > needed + 8 ? Capacity * 2 : needed + 8;
    char* grown = static_cast<char*>(realloc(Text, capacity));
    if (!grown) return false;
    Text = grown;
    Capacity = capacity;
    return true;
}

bool CTextEditLine::InsertCharacter(size_t position, char c) {
    return InsertText(position, &c, 1);
}

bool CTextEditLine::InsertText(size_t position, const char* text, size_t count) {
    if (count == 0) return true;
    if (position > Length || !text || !Reserve(Length + count)) return false;
    memmove(Text + position + count, Text + position, Length - position + 1);
    memcpy(Text + position, text, count);
    Length += count;
    return true;
}

void CTextEditLine::Erase(size_t position, size_t count) {
    if (!Text || position >= Length) return;
    if (count > Length - position) count = Length - position;
    memmove(Text + position, Text + position + count, Length - position - count + 1);
    Length -= count;
}

void CTextEditLine::Truncate(size_t length) {
    if (!Text || length >= Length) return;
    Length = length;
    Text[length] = 0;
}
