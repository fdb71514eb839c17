// The string class of the host's interface: an owned heap buffer of UTF-8 bytes
// with a virtual comparison, so that utf8stringnocase can key the toolkit's maps.
#pragma once

#include "TavuExport.h"

#include <cstddef>

class TAVU_API utf8string {
public:
    utf8string();
    utf8string(const char* text);
    utf8string(const utf8string& other);
    utf8string(utf8string&& other) noexcept;
    utf8string& operator=(const utf8string& other);
    utf8string& operator=(utf8string&& other) noexcept;
    utf8string& operator=(const char* text);
    virtual ~utf8string();

    // strcmp order; utf8stringnocase ignores ASCII case.
    virtual int Compare(const char* other) const;

    const char* c_str() const { return Buffer ? Buffer : ""; }
    size_t Length() const { return Size; }
    bool Empty() const { return Size == 0; }

    bool operator<(const utf8string& other) const { return Compare(other.c_str()) < 0; }
    bool operator==(const utf8string& other) const { return Compare(other.c_str()) == 0; }
    bool operator==(const char* other) const { return Compare(other) == 0; }

protected:
    void Assign(const char* text, size_t size);

    char* Buffer = nullptr;
    size_t Size = 0;
};
