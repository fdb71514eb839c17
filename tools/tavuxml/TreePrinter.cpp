#include "TreePrinter.h"

#include "EscapedText.h"

#include "XMLAttribute.h"
#include "XMLNode.h"

namespace {

const char* KindWord(uint32_t type) {
    switch (type) {
    case XMLNode::Element:
        return "element";
    case XMLNode::Comment:
        return "comment";
    case XMLNode::Text:
        return "text";
    case XMLNode::ProcessingInstruction:
        return "pi";
    case XMLNode::Doctype:
        return "doctype";
    default:
        return "node";
    }
}

} // namespace

std::string TreePrinter::Escape(const char* text) {
    return EscapedText(text);
}

void TreePrinter::PrintAttributes(const XMLNode* node, std::string& out) {
    for (const XMLAttribute* a = node->FirstAttribute; a; a = a->Next)
        out += " " + Escape(a->Name) + "=\"" + Escape(a->Value) + "\"";
}

void TreePrinter::PrintNode(const XMLNode* node, int depth, std::string& out) {
    out.append(size_t(depth) * 2, ' ');
    out += KindWord(node->Type);
    if (node->Type == XMLNode::Text || node->Type == XMLNode::Comment) {
        out += " \"" + Escape(node->Name) + "\"";
    } else {
        out += " " + Escape(node->Name);
        PrintAttributes(node, out);
    }
    out += "\n";
}

// A walk rather than recursion, so that a deep document prints as well.
std::string TreePrinter::Print(const XMLNode* root) {
    std::string out;
    if (!root) return out;
    const XMLNode* node = root->FirstChild;
    int depth = 0;
    while (node) {
        PrintNode(node, depth, out);
        if (node->FirstChild) {
            node = node->FirstChild;
            ++depth;
            continue;
        }
        while (node != root && !node->Next) {
            node = node->Parent;
            --depth;
        }
        node = node == root ? nullptr : node->Next;
    }
    return out;
}
