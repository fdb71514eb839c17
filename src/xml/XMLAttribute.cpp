#include "XMLAttribute.h"

#include "StringHelpers.h"
#include "XMLArena.h"

#include <cstdlib>
#include <cstring>

XMLAttribute::XMLAttribute(const char* name, const char* value)
    : Name(StrDuplicate(name ? name : "")), Value(StrDuplicate(value ? value : "")) {}

XMLAttribute::XMLAttribute(const char* name, size_t nameLength, const char* value,
                           size_t valueLength)
    : NameInBlock(true) {
    Name = BlockName();
    memcpy(Name, name, nameLength + 1);
    Value = ValueInBlock = Name + nameLength + 1;
    memcpy(Value, value, valueLength + 1);
}

XMLAttribute* XMLAttribute::Create(const char* name, const char* value, XMLArena* arena) {
    if (!name) name = "";
    if (!value) value = "";
    size_t nameLength = strlen(name);
    size_t valueLength = strlen(value);
    XMLAttribute* attribute = new (nameLength + valueLength + 2, arena)
        XMLAttribute(name, nameLength, value, valueLength);
    if (attribute && arena) attribute->Place = arena->PlaceOf(attribute);
    return attribute;
}

void* XMLAttribute::operator new(size_t size) noexcept {
    return XMLArena::AllocateLoose(size);
}
void* XMLAttribute::operator new(size_t size, size_t extraBytes, XMLArena* arena) noexcept {
    return arena ? arena->Allocate(size + extraBytes) : XMLArena::AllocateLoose(size + extraBytes);
}
void XMLAttribute::operator delete(void* block) noexcept {
    XMLArena::Release(block);
}
void XMLAttribute::operator delete(void* block, size_t, XMLArena*) noexcept {
    XMLArena::Release(block);
}

XMLAttribute::~XMLAttribute() {
    if (!NameInBlock || Name != BlockName()) StrFree(Name);
    if (Value != ValueInBlock) StrFree(Value);
    XMLArena::WillRelease(this, Place);
}

void XMLAttribute::Destroy() {
    delete this;
}

void XMLAttribute::SetValue(const char* value) {
    // A heap copy hung on an arena's attribute has to be freed on its own.
    if (Place) XMLArena::NoteChange(this, Place);
    if (Value != ValueInBlock) StrFree(Value);
    Value = StrDuplicate(value ? value : "");
}
