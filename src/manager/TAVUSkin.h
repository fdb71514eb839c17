// A skin: a named table of template replacements. While a skin is current,
// every template name it maps is read as the template it maps to, so that one
// interface file can be drawn in several looks.
#pragma once

#include "TavuExport.h"
#include "utf8stringnocase.h"

#include <map>

class XMLNode;

class TAVU_API TAVUSkin {
public:
    explicit TAVUSkin(const char* name);
    ~TAVUSkin();
    TAVUSkin(const TAVUSkin&) = delete;
    TAVUSkin& operator=(const TAVUSkin&) = delete;

    // Maps base to templateName, replacing an earlier mapping of base. A null
    // or empty base is ignored.
    void AddTemplate(const char* base, const char* templateName);
    void RemoveTemplate(const char* base);
    // The template that replaces base, or null when the skin leaves base alone.
    const char* GetTemplate(const char* base) const;

    // Reads the "SkinTemplate" entries of the template, then of the node, so
    // that the node's entries win. Always true.
    bool FromXML(XMLNode* node, XMLNode* templateNode);

    char* Name;
    std::map<utf8stringnocase, char*> Templates;

private:
    void AddEntries(XMLNode* node);
};
