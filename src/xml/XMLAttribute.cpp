#include "XMLAttribute.h"

#include "StringHelpers.h"
#include "XMLArena.h"

#include <cstdlib>
#include <cstring>

XMLAttribute::XMLAttribute(const char* name, const char* value)
    : Name(StrDuplicate(name ? name : "")), Value(StrDuplicate(value ? value : "")) {}

// Three pointers and the virtual table; the flags fill the last word.
static_assert(sizeof(void*) != 8 || sizeof(XMLAttribute) == 40, "XMLAttribute grew");

XMLAttribute* XMLAttribute::Create(const char* name, const char* value, XMLArena* arena) {
    if (!name) name = "";
    if (!value) value = "";
    size_t nameLength = strlen(name);
    size_t valueLength = strlen(value);
    XMLAttribute* attribute = new (nameLength + valueLength + 2, arena) XMLAttribute();
    if (!attribute) return nullptr;
    if (arena) attribute->Place = arena->LastPlace;
    if (attribute->Place) {
        attribute->Name = arena->KeepText(name, nameLength);
        attribute->Value = arena->KeepText(value, valueLength);
    } else {
        attribute->TextsInBlock = true;
        attribute->Name = attribute->BlockName();
        memcpy(attribute->Name, name, nameLength + 1);
        attribute->Value = attribute->Name + nameLength + 1;
        memcpy(attribute->Value, value, valueLength + 1);
    }
    return attribute;
}

void* XMLAttribute::operator new(size_t size) noexcept {
    return XMLArena::AllocateLoose(size);
}
void* XMLAttribute::operator new(size_t size, size_t extraBytes, XMLArena* arena) noexcept {
    return arena ? arena->Allocate(size, extraBytes) : XMLArena::AllocateLoose(size + extraBytes);
}
void XMLAttribute::operator delete(void* block) noexcept {
    XMLArena::Release(block);
}
void XMLAttribute::operator delete(void* block, size_t, XMLArena*) noexcept {
    XMLArena::Release(block);
}

// The value of a block stands behind the name that the block started with,
// whatever Name points at now.
bool XMLAttribute::StoredWithAttribute(const char* text, bool isValue) const {
    if (Place) return XMLArena::InChunk(this, Place, text);
    if (!TextsInBlock) return false;
    const char* block = reinterpret_cast<const char*>(this + 1);
    return text == (isValue ? block + strlen(block) + 1 : block);
}

XMLAttribute::~XMLAttribute() {
    if (!StoredWithAttribute(Name, false)) StrFree(Name);
    if (!StoredWithAttribute(Value, true)) StrFree(Value);
    XMLArena::WillRelease(this, Place);
}

void XMLAttribute::Destroy() {
    delete this;
}

void XMLAttribute::SetValue(const char* value) {
    // A heap copy hung on an arena's attribute has to be freed on its own.
    if (Place) XMLArena::NoteChange(this, Place);
    if (!StoredWithAttribute(Value, true)) StrFree(Value);
    Value = StrDuplicate(value ? value : "");
}
