// One line of a text editor: an owned, zero-terminated byte buffer with no
// line end, linked to its neighbours. Lines grow in place, so that typing
// costs the length of the line it goes into and nothing else.
#pragma once

#include "TavuExport.h"

#include <cstddef>

class TAVU_API CTextEditLine {
public:
    // A null text makes an empty line.
    CTextEditLine(const char* text, size_t lineNumber);
    ~CTextEditLine();

    CTextEditLine(const CTextEditLine&) = delete;
    CTextEditLine& operator=(const CTextEditLine&) = delete;

    // False when position lies past the end of the text.
    bool InsertCharacter(size_t position, char c);
    // True at once for no bytes; false when position lies past the end.
    bool InsertText(size_t position, const char* text, size_t count);
    // Removes up to count bytes from position on; nothing past the end.
    void Erase(size_t position, size_t count);
    // Keeps the first length bytes (a longer length keeps them all).
    void Truncate(size_t length);

    char* Text = nullptr;
    size_t Capacity = 0; // bytes the buffer holds, terminator included
    size_t Length = 0;
    size_t LineNumber = 0;
    CTextEditLine* Prev = nullptr;
    CTextEditLine* Next = nullptr;

private:
    // Room for at least needed bytes of text and the terminator; false when
    // the memory cannot be had, and then the line stays as it was.
    bool Reserve(size_t needed);
};

struct TextEditPos {
    CTextEditLine* Line = nullptr;
    size_t Pos = 0;

    bool operator==(const TextEditPos& other) const {
        return Line == other.Line && Pos == other.Pos;
    }
};
