// A utf8string that compares ignoring ASCII case: the key of every name-keyed
// map in the toolkit (elements, factories, templates, skins, metadata keys).
#pragma once

#include "utf8string.h"

class TAVU_API utf8stringnocase : public utf8string {
public:
    using utf8string::utf8string;
    utf8stringnocase() = default;
    utf8stringnocase(const utf8string& other) : utf8string(other) {}

    int Compare(const char* other) const override;

    bool operator<(const utf8stringnocase& other) const;
};
