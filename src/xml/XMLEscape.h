// Escaping of text for XML output: the quote, the ampersand and the angle
// brackets become entities, and every blank that follows a blank becomes
// "&#32;" so that a run of blanks survives a reader that collapses them.
#pragma once

#include "TavuExport.h"

#include <cstddef>
#include <string>

// Appends the escaped text to output; an empty or null text appends nothing.
TAVU_API void XMLEscape(const char* text, std::string& output);
// Writes the escaped text into a buffer of the given size, always terminated;
// an entity that does not fit whole is left out, as is all that follows it.
// Answers the bytes written, the terminator included (0 for a size of 0).
TAVU_API size_t XMLEscapeToBuffer(const char* text, char* buffer, size_t size);
