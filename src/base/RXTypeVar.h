#pragma once

#include <cstdint>

class RXTypeDefinition;

// The 8 bytes of a script value: a pointer, an integer, a float or a text,
// as the value's type says.
union RXValueData {
    void* Pointer;
    const char* Text;
    int32_t Int;
    uint32_t UInt;
    int64_t Int64;
    uint64_t UInt64;
    float Float;
    double Double;
    bool Bool;
};
static_assert(sizeof(RXValueData) == 8, "a script value is 8 bytes");

// A typed value of the host's script engine: what Type says Value holds.
struct _RXTypeVar {
    RXTypeDefinition* Type;
    RXValueData Value;
};
static_assert(sizeof(_RXTypeVar) == 16, "a typed value is a type pointer and 8 bytes");
