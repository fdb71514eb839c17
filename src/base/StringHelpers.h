// Small text helpers shared by the whole toolkit. Owned text is a heap copy
// made with StrDuplicate and given back with StrFree.
#pragma once

#include "TavuExport.h"

#include <cstddef>

// strcmp that ignores ASCII case, as every name comparison in the toolkit does.
TAVU_API int StrCompareNoCase(const char* a, const char* b);
TAVU_API int StrCompareNoCaseN(const char* a, const char* b, size_t count);
// Whether two names are equal ignoring ASCII case. Lower-casing changes only
// the 0x20 bit, so first bytes that differ in any other bit settle it without
// a call: the usual case when a key is looked for among an element's keys.
inline bool StrEqualNoCase(const char* a, const char* b) {
    if (a && b && ((static_cast<unsigned char>(*a) ^ static_cast<unsigned char>(*b)) & ~0x20u))
        return false;
    return StrCompareNoCase(a, b) == 0;
}
// A heap copy of text; null gives null.
TAVU_API char* StrDuplicate(const char* text);
TAVU_API void StrFree(char* text);
// Lower-cases ASCII letters in place and answers text.
TAVU_API char* StrLower(char* text);
// Copies at most size - 1 bytes and always terminates (size 0 writes nothing).
TAVU_API size_t StrCopyBounded(char* destination, const char* source, size_t size);
