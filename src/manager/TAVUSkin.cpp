#include "TAVUSkin.h"

#include "StringHelpers.h"
#include "XMLHelper.h"
#include "XMLNode.h"

#include <string>

TAVUSkin::TAVUSkin(const char* name) : Name(StrDuplicate(name ? name : "")) {}

TAVUSkin::~TAVUSkin() {
    for (auto& entry : Templates)
        StrFree(entry.second);
    StrFree(Name);
}

void TAVUSkin::AddTemplate(const char* base, const char* templateName) {
    if (!base || !base[0]) return;
    char*& replacement = Templates[utf8stringnocase(base)];
    StrFree(replacement);
    replacement = StrDuplicate(templateName);
}

void TAVUSkin::RemoveTemplate(const char* base) {
    auto found = Templates.find(utf8stringnocase(base ? base : ""));
    if (found == Templates.end()) return;
    StrFree(found->second);
    Templates.erase(found);
}

const char* TAVUSkin::GetTemplate(const char* base) const {
    auto found = Templates.find(utf8stringnocase(base ? base : ""));
    return found == Templates.end() ? nullptr : found->second;
}

bool TAVUSkin::FromXML(XMLNode* node, XMLNode* templateNode) {
    AddEntries(templateNode);
    AddEntries(node);
    return true;
}

// <SkinTemplate Base="button" Skin="dark button"/> maps one template; with
// SkinPrefix="dark " instead of Skin the replacement is the prefix and the base.
void TAVUSkin::AddEntries(XMLNode* node) {
    if (!node) return;
    for (XMLNode* child = node->FirstChild; child; child = child->Next) {
        if (child->Type != XMLNode::Element || StrCompareNoCase(child->Name, "SkinTemplate") != 0)
            continue;
        const char* base = XMLHelper::GetStringAttribute(child, "Base", "");
        if (!base[0]) continue;
        const char* skin = XMLHelper::GetStringAttribute(child, "Skin", "");
        const char* prefix = XMLHelper::GetStringAttribute(child, "SkinPrefix", "");
        if (skin[0])
            AddTemplate(base, skin);
        else if (prefix[0])
            AddTemplate(base, (std::string(prefix) + base).c_str());
    }
}
