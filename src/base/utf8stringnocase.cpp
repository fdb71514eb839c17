#include "utf8stringnocase.h"

#include "StringHelpers.h"

int utf8stringnocase::Compare(const char* other) const {
    return StrCompareNoCase(c_str(), other);
}

// Map lookups are the hot use: compare directly, without the virtual call.
bool utf8stringnocase::operator<(const utf8stringnocase& other) const {
    return StrCompareNoCase(c_str(), other.c_str()) < 0;
}
