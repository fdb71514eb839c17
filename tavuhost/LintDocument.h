// An interface file read for checking: elements and attributes with the line
// and column where each begins, which the toolkit's own reader does not keep.
// Only a text that the well-formedness check passed is read, so this reader
// may be lenient.
#pragma once

#include <memory>
#include <string>
#include <vector>

struct LintPlace {
    int Line = 1;
    int Column = 1;
};

struct LintAttribute {
    std::string Name;
    std::string Value;
    LintPlace Place;
};

struct LintElement {
    std::string Name;
    LintPlace Place;
    std::vector<LintAttribute> Attributes;
    std::vector<std::unique_ptr<LintElement>> Children;
    std::string Text;    // character data and CDATA, joined
    LintPlace TextPlace; // where the first text begins

    // The attribute's value ignoring the name's case; null when absent.
    const LintAttribute* Attribute(const char* name) const;
    // The first child element of that name ignoring case; null when absent.
    const LintElement* Child(const char* name) const;
};

class LintDocument {
public:
    // The root element; null when the text has none.
    static std::unique_ptr<LintElement> Read(const std::string& text);
};
