// The template and skin registries of the manager.
//
// A template may name a base in its "Template" attribute; adding it merges the
// whole inheritance chain into one stored tree, so that reading an element
// later looks at one template only. While a skin is current, every template
// name goes through the skin's table first.

#include "CTemplateStack.h"
#include "CUIManager.h"
#include "Module.h"
#include "StringHelpers.h"
#include "TAVUSkin.h"
#include "XMLAttribute.h"
#include "XMLHelper.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <cstring>
#include <string>

namespace {
// Bases are merged a whole layer at a time, and a list of bases is walked
// twice, so a chain may push a template more than once. Loops among stored
// templates could push forever; a chain this long is cut with a message.
const size_t kMaxChainLength = 1024;

bool IsTemplateNode(const XMLNode* node) {
    return node && node->Type == XMLNode::Element && StrCompareNoCase(node->Name, "Template") == 0;
}

// Pushes a template and its bases on the stack, the node itself first and the
// deepest base last, so that popping gives the deepest base first.
class ChainCollector {
public:
    ChainCollector(CUIManager& manager, CTemplateStack& stack) : Manager(manager), Stack(stack) {}

    // A single base is followed until a template has none, names an unknown
    // one, or names the template visited just before. A list "a,b," collects
    // each name that a comma ends; the name after the last comma is ignored,
    // so authors end a list with a comma. The node with the list is then
    // visited once more, with its list, before the same-node rule ends it.
    void Collect(XMLNode* node) {
        XMLNode* previous = nullptr;
        while (node) {
            if (Stack.Size() >= kMaxChainLength) {
                WasCut = true;
                return;
            }
            Stack.Push(node);
            const char* base = XMLHelper::GetStringAttribute(node, "Template", "");
            if (!base[0]) return;
            XMLNode* next = node;
            if (strchr(base, ','))
                CollectList(base);
            else
                next = Manager.FindTemplate(base);
            if (!next || next == previous) return;
            previous = node;
            node = next;
        }
    }

    bool WasCut = false;

private:
    void CollectList(const char* list) {
        for (const char* comma = strchr(list, ','); comma; comma = strchr(list, ',')) {
            std::string part(list, size_t(comma - list));
            if (XMLNode* base = Manager.FindTemplate(part.c_str())) Collect(base);
            list = comma + 1;
        }
    }

    CUIManager& Manager;
    CTemplateStack& Stack;
};

void DeleteChild(XMLNode* parent, XMLNode* child) {
    if (child->Prev)
        child->Prev->Next = child->Next;
    else
        parent->FirstChild = child->Next;
    if (child->Next)
        child->Next->Prev = child->Prev;
    else
        parent->LastChild = child->Prev;
    child->Parent = child->Prev = child->Next = nullptr;
    child->Destroy();
}

XMLNode* FindChildElement(XMLNode* parent, const char* tag) {
    for (XMLNode* child = parent->FirstChild; child; child = child->Next)
        if (child->Type == XMLNode::Element && StrCompareNoCase(child->Name, tag) == 0)
            return child;
    return nullptr;
}

// A derived template replaces a base's attribute one by one, but a base's
// child element as a whole: the child is not merged key by key.
void LayOver(XMLNode* result, XMLNode* layer) {
    for (XMLAttribute* attribute = layer->FirstAttribute; attribute; attribute = attribute->Next)
        result->SetAttribute(attribute->Name, attribute->Value);
    for (XMLNode* child = layer->FirstChild; child; child = child->Next) {
        if (child->Type == XMLNode::Element)
            if (XMLNode* replaced = FindChildElement(result, child->Name))
                DeleteChild(result, replaced);
        child->Clone(result);
    }
}

XMLNode* MergeChain(CTemplateStack& stack) {
    XMLNode* result = stack.Pop()->Clone(nullptr);
    while (XMLNode* layer = stack.Pop())
        LayOver(result, layer);
    return result;
}

// The only top-level node of a parsed text, when it is one.
XMLNode* SoleTopLevelNode(XMLParser& parser) {
    XMLNode* root = parser.Root;
    if (!root || !root->FirstChild || root->FirstChild != root->LastChild) return nullptr;
    return root->FirstChild;
}
} // namespace

XMLNode* CUIManager::AddTemplate(const char* name, XMLNode* node) {
    if (!name || !name[0] || !IsTemplateNode(node)) return nullptr;
    // The old template leaves the registry now but is deleted only at the end:
    // the node being added may be that very template, or a part of it.
    XMLNode* old = TakeTemplate(name);
    XMLNode* merged;
    if (!XMLHelper::GetStringAttribute(node, "Template", "")[0]) {
        merged = node->Clone(nullptr);
    } else {
        CTemplateStack stack;
        ChainCollector chain(*this, stack);
        chain.Collect(node);
        if (chain.WasCut)
            g_pHost->ConsolePrintf("Template '%s': inheritance chain cut after %u templates", name,
                                   unsigned(kMaxChainLength));
        merged = MergeChain(stack);
    }
    Templates[utf8stringnocase(name)] = merged;
    if (old) old->Destroy();
    return merged;
}

XMLNode* CUIManager::AddTemplate(const char* name, const char* xmlText) {
    if (!name || !name[0] || !xmlText || !xmlText[0]) return nullptr;
    XMLParser parser;
    if (!parser.ParseBuffer(xmlText, 0)) return nullptr;
    XMLNode* node = SoleTopLevelNode(parser);
    if (!IsTemplateNode(node)) return nullptr;
    RemoveTemplate(name);
    XMLNode* copy = node->Clone(nullptr);
    Templates[utf8stringnocase(name)] = copy;
    return copy;
}

// A skin that maps the name decides alone: when its replacement does not
// exist, there is no template, and the name itself is not tried.
XMLNode* CUIManager::FindTemplate(const char* name) {
    if (!name || !name[0]) return nullptr;
    if (CurrentSkin)
        if (const char* replacement = CurrentSkin->GetTemplate(name)) name = replacement;
    auto found = Templates.find(utf8stringnocase(name));
    return found == Templates.end() ? nullptr : found->second;
}

XMLNode* CUIManager::TakeTemplate(const char* name) {
    auto found = Templates.find(utf8stringnocase(name ? name : ""));
    if (found == Templates.end()) return nullptr;
    XMLNode* node = found->second;
    Templates.erase(found);
    return node;
}

void CUIManager::RemoveTemplate(const char* name) {
    if (XMLNode* node = TakeTemplate(name)) node->Destroy();
}

void CUIManager::ClearTemplates() {
    for (auto& entry : Templates)
        if (entry.second) entry.second->Destroy();
    Templates.clear();
}

// A skin that is current when it is replaced or removed stops being current,
// or follows its replacement, so that CurrentSkin never points at a deleted skin.
TAVUSkin* CUIManager::NewSkin(const char* name) {
    if (!name || !name[0]) return nullptr;
    TAVUSkin* skin = new TAVUSkin(name);
    TAVUSkin*& entry = Skins[utf8stringnocase(name)];
    if (entry && CurrentSkin == entry) CurrentSkin = skin;
    delete entry;
    entry = skin;
    return skin;
}

TAVUSkin* CUIManager::FindSkin(const char* name) {
    if (!name || !name[0]) return nullptr;
    auto found = Skins.find(utf8stringnocase(name));
    return found == Skins.end() ? nullptr : found->second;
}

void CUIManager::RemoveSkin(const char* name) {
    auto found = Skins.find(utf8stringnocase(name ? name : ""));
    if (found == Skins.end()) return;
    if (CurrentSkin == found->second) CurrentSkin = nullptr;
    delete found->second;
    Skins.erase(found);
}

void CUIManager::ClearSkins() {
    CurrentSkin = nullptr;
    for (auto& entry : Skins)
        delete entry.second;
    Skins.clear();
}

void CUIManager::RestoreSkin(TAVUSkin* remembered) {
    CurrentSkin = nullptr;
    for (auto& entry : Skins)
        if (entry.second == remembered) CurrentSkin = remembered;
}
