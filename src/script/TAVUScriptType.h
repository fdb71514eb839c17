// What the toolkit's script types share: no value can be made from text, a
// name a type lacks climbs to its parent type, and the argument conversions
// and result setters every handler uses.
#pragma once

#include "RXTypeDefinition.h"

class TAVUElement;

class TAVU_API TAVUScriptType : public RXTypeDefinition {
public:
    using RXTypeDefinition::RXTypeDefinition;

    bool FromText(RXObjectData& object, const char* text) override;
    int MemberFallback(RXObjectData& object, const char* name, int argc, char* argv[],
                       _RXTypeVar& result) override;
    int MethodFallback(RXObjectData& object, const char* name, int argc, char* argv[]) override;

    // The type a name this type lacks goes on to; null ends the climb with -1.
    virtual RXTypeDefinition* ParentType() { return nullptr; }

    // Argument conversions, as handlers read their text arguments.
    static int ArgInt(const char* text);     // leading decimal digits, 0 without
    static float ArgFloat(const char* text); // a decimal floating-point reading
    // Reads hexadecimal into field; text that does not parse leaves it as it was.
    static void ArgHex(const char* text, unsigned& field);
    static bool ArgWord(const char* text, const char* word); // equal, ignoring case
    static bool ArgCalc(const char* text);                   // the host's Calculate, non-zero
    static bool ArgToggle(const char* text);                 // "TRUE", or any non-zero number
    // Non-empty, and behind an optional '-' only digits and points.
    static bool IsNumericText(const char* text);

    // Result setters: each fills the value and the host type and answers true.
    static bool SetString(_RXTypeVar& result, const char* text);
    static bool SetInt(_RXTypeVar& result, int value);
    static bool SetUInt(_RXTypeVar& result, unsigned value);
    static bool SetBool(_RXTypeVar& result, unsigned word); // non-zero is true
    static bool SetFloat(_RXTypeVar& result, float value);
    // An element with its own most derived type; false for null.
    static bool SetElement(_RXTypeVar& result, TAVUElement* element);
    // Copies text into a buffer of size bytes; a name as long as the buffer is
    // cut without a terminator, as hosts of this interface expect.
    static bool CopyText(const char* text, char* buffer, size_t size);
};
