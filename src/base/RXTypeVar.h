#pragma once

#include <cstdint>

class RXTypeDefinition;

// A typed value of the host's script engine: what Type says Value holds.
struct _RXTypeVar {
    RXTypeDefinition* Type;
    union {
        void* Pointer;
        const char* Text;
        int32_t Int;
        uint32_t UInt;
        int64_t Int64;
        uint64_t UInt64;
        float Float;
        double Double;
        bool Bool;
    } Value;
};
static_assert(sizeof(_RXTypeVar) == 16, "a typed value is a type pointer and 8 bytes");
