// Test helpers: a parse in one call and a compact text picture of a tree.
#pragma once

#include "XMLAttribute.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <string>

namespace xmltest {

// One line per node below the given one, children indented by two blanks:
// "e:name k=v", "t:text", "c:comment", "p:target k=v", "d:name k=v".
inline std::string Dump(const XMLNode* node) {
    std::string out;
    int depth = 0;
    const XMLNode* at = node ? node->FirstChild : nullptr;
    while (at) {
        static const char* const kPrefix[] = {"r:", "e:", "c:", "t:", "p:", "?:", "d:"};
        out.append(size_t(depth) * 2, ' ');
        out += at->Type <= 6 ? kPrefix[at->Type] : "?:";
        out += at->Name;
        for (XMLAttribute* a = at->FirstAttribute; a; a = a->Next)
            out += std::string(" ") + a->Name + "=" + a->Value;
        out += "\n";
        if (at->FirstChild) {
            at = at->FirstChild;
            ++depth;
            continue;
        }
        while (at != node && !at->Next) {
            at = at->Parent;
            --depth;
        }
        at = at == node ? nullptr : at->Next;
    }
    return out;
}

struct Parsed {
    bool Ok;
    std::string Tree;
    std::string Error;
};

inline Parsed ParseText(const std::string& text) {
    XMLParser parser;
    bool ok = parser.ParseBuffer(text.data(), text.size());
    return {ok, Dump(parser.Root), parser.ErrorText};
}

} // namespace xmltest
