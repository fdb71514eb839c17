// Bytes made printable the one way that Tavukit's tools print them: \\, \",
// \n, \r, \t, and \xhh (two lower-case digits) for every other byte below 0x20,
// for 0x7F and for every byte from 0x80 up. The XML tool, the reference host's
// trace and the tests all show text this way, so that their outputs compare.
#pragma once

#include <string>

inline std::string EscapedText(const char* text) {
    static const char kHex[] = "0123456789abcdef";
    std::string out;
    if (!text) return out;
    for (const unsigned char* c = reinterpret_cast<const unsigned char*>(text); *c; ++c) {
        switch (*c) {
        case '\\':
            out += "\\\\";
            break;
        case '"':
            out += "\\\"";
            break;
        case '\n':
            out += "\\n";
            break;
        case '\r':
            out += "\\r";
            break;
        case '\t':
            out += "\\t";
            break;
        default:
            if (*c < 0x20 || *c >= 0x7F) {
                out += "\\x";
                out += kHex[*c >> 4];
                out += kHex[*c & 15];
            } else {
                out += char(*c);
            }
        }
    }
    return out;
}

// The same in double quotes; a null text is the word null.
inline std::string QuotedText(const char* text) {
    return text ? "\"" + EscapedText(text) + "\"" : "null";
}
