// The number readers behind character references and typed values. They
// behave like the C library's readers, with the same answer on every system.
#pragma once

#include <cstdint>

// Leading whitespace, a sign and decimal digits, as atoi reads them; anything
// unreadable is 0 and the value saturates at the limits of a 32-bit int.
int32_t XMLReadDecimal(const char* text);
// Leading whitespace, a sign, an optional "0x" and hexadecimal digits, as
// scanf's "%x" reads them; unreadable text is 0 and the value wraps at 32 bits.
uint32_t XMLReadHex(const char* text);
// A C-style atof, narrowed to float.
float XMLReadFloat(const char* text);
