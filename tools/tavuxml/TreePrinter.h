// Writes a parsed document as plain ASCII lines, one per node, so that a
// person can read it and a test can compare it byte for byte.
#pragma once

#include <string>

class XMLNode;

class TreePrinter {
public:
    // Every node below the root, depth first, indented two blanks per level.
    static std::string Print(const XMLNode* root);
    // Backslash escapes for quotes, backslashes, line ends and tabs, and \xHH
    // for every other byte outside printable ASCII.
    static std::string Escape(const char* text);

private:
    static void PrintNode(const XMLNode* node, int depth, std::string& out);
    static void PrintAttributes(const XMLNode* node, std::string& out);
};
