// Which keys each element type reads from an interface file, with what kind
// of value and what it does. The linter, the schema and the documentation of
// the format all come from here; a test runs every type's reader and fails
// when the reader and its row disagree, so the list cannot drift from what is
// read.
#pragma once

#include "TavuExport.h"

enum TAVUKeyKind : unsigned {
    TAVUKeyNumber,    // a whole or decimal number
    TAVUKeyPosition,  // pixels, "r10" from the far edge, or "50%"
    TAVUKeyToggle,    // empty or 1 for on, 0 for off
    TAVUKeyColor,     // hexadecimal ARGB
    TAVUKeyText,      // free text
    TAVUKeyTemplate,  // the name of a template
    TAVUKeyTexture,   // a texture element
    TAVUKeyFont,      // a font element
    TAVUKeyScript,    // script run on an event
    TAVUKeyChildren,  // elements made as children
    TAVUKeyStructure, // an element with settings of its own
    TAVUKeyAttribute, // an attribute of the element's tag
};

struct TAVUKeyInfo {
    const char* Name;
    TAVUKeyKind Kind;
    const char* Documentation;
};

// A type that a module adds, with rows of its own that the module keeps for
// as long as the type is registered.
struct TAVUKeyType {
    const char* Name;
    const char* Base; // a type already known, whose keys this one reads too
    const TAVUKeyInfo* Keys;
    unsigned KeyCount;
    const char* Documentation;
};

class TAVU_API TAVUKeyRegistry {
public:
    // Element types by index: "element" (the keys every type reads) first.
    static unsigned TypeCount();
    static const char* TypeName(unsigned type);
    static const char* TypeDocumentation(unsigned type);
    // The type whose keys this one reads as well; null for "element".
    static const char* BaseType(unsigned type);
    // False for the types that only their owners make (a gauge its filler, a
    // command its message box): no interface file can make one.
    static bool MadeFromFiles(unsigned type);
    // The type's index ignoring case, or -1.
    static int FindType(const char* name);

    // The keys a type reads of its own, without those of its base.
    static unsigned KeyCount(unsigned type);
    static const TAVUKeyInfo* Key(unsigned type, unsigned index);

    // The key as the type or one of its bases reads it, ignoring case; null
    // when none reads it.
    static const TAVUKeyInfo* FindKey(unsigned type, const char* name);
    // The key the type reads that is fewest edits from name (ignoring case),
    // when that is close enough to be a likely typo; null otherwise.
    static const TAVUKeyInfo* NearestKey(unsigned type, const char* name);

    static const char* KindName(TAVUKeyKind kind);

    // A module's type, after the toolkit's; false when the name is taken,
    // the base is unknown, or the room for modules' types (MaxAddedTypes) is full.
    enum : unsigned { MaxAddedTypes = 64 };
    static bool AddType(const TAVUKeyType* type);
    static void RemoveType(const TAVUKeyType* type);
};

// Lists a module's type while the module is loaded, as its factory makes it:
//     static TAVUKeyTypeRegistration g_MyGaugeKeys(kMyGaugeType);
class TAVUKeyTypeRegistration {
public:
    explicit TAVUKeyTypeRegistration(const TAVUKeyType& type) : Type(&type) {
        TAVUKeyRegistry::AddType(Type);
    }
    ~TAVUKeyTypeRegistration() { TAVUKeyRegistry::RemoveType(Type); }
    TAVUKeyTypeRegistration(const TAVUKeyTypeRegistration&) = delete;
    TAVUKeyTypeRegistration& operator=(const TAVUKeyTypeRegistration&) = delete;

private:
    const TAVUKeyType* Type;
};

// The same for hosts that load the module at run time and see only what it
// exports by plain name: "TavuKeyRegistry" answers these entries.
struct TAVUKeyRegistryTable {
    unsigned (*TypeCount)();
    const char* (*TypeName)(unsigned type);
    const char* (*TypeDocumentation)(unsigned type);
    const char* (*BaseType)(unsigned type);
    bool (*MadeFromFiles)(unsigned type);
    int (*FindType)(const char* name);
    unsigned (*KeyCount)(unsigned type);
    const TAVUKeyInfo* (*Key)(unsigned type, unsigned index);
    const TAVUKeyInfo* (*FindKey)(unsigned type, const char* name);
    const TAVUKeyInfo* (*NearestKey)(unsigned type, const char* name);
    const char* (*KindName)(TAVUKeyKind kind);
};

extern "C" TAVU_API const TAVUKeyRegistryTable* TavuKeyRegistry();
