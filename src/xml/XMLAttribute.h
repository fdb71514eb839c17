// One name="value" pair of an element, a link in the element's attribute chain.
#pragma once

#include "TavuExport.h"

class TAVU_API XMLAttribute {
public:
    // Both texts are copied; a null text is taken as empty.
    XMLAttribute(const char* name, const char* value);
    XMLAttribute(const XMLAttribute&) = delete;
    XMLAttribute& operator=(const XMLAttribute&) = delete;
    // Frees the two texts only: the owning node deletes the rest of the chain.
    virtual ~XMLAttribute();
    // Deletes the attribute through its destructor.
    virtual void Destroy();

    // Replaces the value with a copy of the given text.
    void SetValue(const char* value);

    char* Name;
    char* Value;
    XMLAttribute* Next = nullptr;
};
