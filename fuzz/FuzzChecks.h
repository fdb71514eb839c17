// What every fuzz input must leave behind besides "no crash": a tree whose
// links agree with each other and an error text that is terminated.
#pragma once

#include "XMLAttribute.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace fuzzcheck {

[[noreturn]] inline void Fail(const char* what) {
    fprintf(stderr, "fuzz check failed: %s\n", what);
    abort();
}

inline void Require(bool condition, const char* what) {
    if (!condition) Fail(what);
}

inline bool KnownType(uint32_t type) {
    return type == XMLNode::Element || type == XMLNode::Comment || type == XMLNode::Text ||
           type == XMLNode::ProcessingInstruction || type == XMLNode::Doctype;
}

// Walks the tree without recursion and checks each node's links.
inline void CheckTree(const XMLNode* root) {
    if (!root) return;
    Require(root->Parent == nullptr && root->Type == XMLNode::DocumentRoot, "root");
    Require(strcmp(root->Name, "DOCUMENT ROOT") == 0, "root name");
    const XMLNode* node = root;
    for (;;) {
        Require(node->Name != nullptr, "name");
        for (XMLAttribute* a = node->FirstAttribute; a; a = a->Next)
            Require(a->Name && a->Value, "attribute texts");
        const XMLNode* previous = nullptr;
        for (const XMLNode* child = node->FirstChild; child; child = child->Next) {
            Require(child->Parent == node, "parent link");
            Require(child->Prev == previous, "prev link");
            Require(KnownType(child->Type), "node type");
            if (child->Type == XMLNode::Text) Require(child->Name[0] != 0, "empty text node");
            previous = child;
        }
        Require(node->LastChild == previous, "last child");
        if (node->FirstChild) {
            node = node->FirstChild;
            continue;
        }
        while (node != root && !node->Next)
            node = node->Parent;
        if (node == root) return;
        node = node->Next;
    }
}

inline void CheckParser(const XMLParser& parser, bool parsed) {
    Require(memchr(parser.ErrorText, 0, sizeof parser.ErrorText) != nullptr, "error text end");
    Require(parser.Stream == nullptr, "stream after parse");
    if (parsed) Require(parser.Root && parser.Current == parser.Root, "current after success");
    CheckTree(parser.Root);
}

// A picture of the tree for comparing two parses.
inline std::string Dump(const XMLNode* root) {
    std::string out;
    if (!root) return out;
    const XMLNode* node = root;
    for (;;) {
        out += std::to_string(node->Type) + ":" + node->Name;
        for (XMLAttribute* a = node->FirstAttribute; a; a = a->Next)
            out += std::string(" ") + a->Name + "=" + a->Value;
        out += node->FirstChild ? "{" : ";";
        if (node->FirstChild) {
            node = node->FirstChild;
            continue;
        }
        while (node != root && !node->Next) {
            node = node->Parent;
            out += "}";
        }
        if (node == root) return out;
        node = node->Next;
    }
}

} // namespace fuzzcheck
