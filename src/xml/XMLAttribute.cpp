#include "XMLAttribute.h"

#include "StringHelpers.h"

XMLAttribute::XMLAttribute(const char* name, const char* value)
    : Name(StrDuplicate(name ? name : "")), Value(StrDuplicate(value ? value : "")) {}

XMLAttribute::~XMLAttribute() {
    StrFree(Name);
    StrFree(Value);
}

void XMLAttribute::Destroy() {
    delete this;
}

void XMLAttribute::SetValue(const char* value) {
    StrFree(Value);
    Value = StrDuplicate(value ? value : "");
}
