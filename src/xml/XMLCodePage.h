// Conversions between the system code page and UTF-8, for text that crosses
// between the documents (always UTF-8) and the system.
#pragma once

#include "TavuExport.h"

// Both answer a heap copy to be freed with StrFree, or null for a null text or
// when the conversion fails.
TAVU_API char* XMLAnsiToUtf8(const char* text);
TAVU_API char* XMLUtf8ToAnsi(const char* text);
