// One name="value" pair of an element, a link in the element's attribute chain.
#pragma once

#include "TavuExport.h"

#include <cstddef>
#include <cstdint>

class XMLArena;

class TAVU_API XMLAttribute {
public:
    // Both texts are copied; a null text is taken as empty.
    XMLAttribute(const char* name, const char* value);
    // The same with both texts in the attribute's own allocation, or in the
    // arena's chunk when one is given.
    static XMLAttribute* Create(const char* name, const char* value, XMLArena* arena = nullptr);
    static void* operator new(size_t size) noexcept;
    static void* operator new(size_t size, size_t extraBytes, XMLArena* arena) noexcept;
    static void operator delete(void* block) noexcept;
    static void operator delete(void* block, size_t extraBytes, XMLArena* arena) noexcept;
    XMLAttribute(const XMLAttribute&) = delete;
    XMLAttribute& operator=(const XMLAttribute&) = delete;
    // Frees the two texts only: the owning node deletes the rest of the chain.
    virtual ~XMLAttribute();
    // Deletes the attribute through its destructor.
    virtual void Destroy();

    // Replaces the value with a copy of the given text. Name and Value belong
    // to the attribute and may share its allocation: nobody else frees them.
    void SetValue(const char* value);

    char* Name;
    char* Value;
    XMLAttribute* Next = nullptr;

private:
    // Where the texts started out: in the chunk of the attribute's arena
    // (Place, its place there, is not 0), or, with TextsInBlock, in the
    // attribute's own block, name first. A text found anywhere else is a
    // heap copy of its own and is freed.
    bool TextsInBlock = false;
    uint16_t Place = 0;

    XMLAttribute() = default;
    char* BlockName() { return reinterpret_cast<char*>(this + 1); }
    // Whether the text lies where the name (or the value) started out.
    bool StoredWithAttribute(const char* text, bool isValue) const;
};
