// Interface files: a document whose Prefix node ("TAVU") lists templates,
// skins and elements, read top to bottom. A failing entry prints its message
// and the load goes on.
#include "CUIManager.h"

#include "Module.h"
#include "StringHelpers.h"
#include "TAVUElement.h"
#include "TAVUElementFactory.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUScreen.h"
#include "TAVUSkin.h"
#include "XMLHelper.h"
#include "XMLNode.h"
#include "XMLParser.h"

namespace {
// An "OnUnload" may load elements while its own element, an ancestor or the
// whole screen is being torn down. Whatever it loaded there would be deleted
// at once by the same teardown, running its own "OnUnload" again, which can
// load again without end; so nothing is loaded under a parent on its way out.
bool RefuseDyingParent(TAVUElement* parent, const char* name) {
    if (!parent->IsBeingDeleted()) return false;
    g_pHost->ConsolePrintf("Cannot load '%s' under '%s': it is being deleted", name, parent->Name);
    return true;
}

// An "OnLoad" may load another file, whose elements may load again: fine a
// few levels deep, but a file whose element reloads that same file would
// recurse until the stack runs out. Loads nested deeper than this are refused.
class LoadNesting {
public:
    static constexpr int kMaxDepth = 16;
    LoadNesting() { ++Depth; }
    ~LoadNesting() { --Depth; }
    bool TooDeep() const { return Depth > kMaxDepth; }

private:
    static int Depth;
};
int LoadNesting::Depth = 0;

bool IsElementNode(XMLNode* node) {
    return node && node->Type == XMLNode::Element;
}

const char* NameOf(XMLNode* node) {
    return XMLHelper::GetStringAttribute(node, "name", "");
}
} // namespace

bool CUIManager::LoadInterfaceXML(TAVUElement* parent, const char* file, const char* elementName,
                                  const char* newName, bool reload, TAVUSkin* skin) {
    if (!parent) return false;
    LoadNesting nesting;
    if (nesting.TooDeep()) {
        g_pHost->ConsolePrintf("Failed to load %s: loads nested more than %d deep",
                               file ? file : "", LoadNesting::kMaxDepth);
        return false;
    }
    XMLParser parser;
    XMLNode* contents = OpenInterfaceFile(file, parser);
    if (!contents) return false;
    TAVUSkin* savedSkin = CurrentSkin;
    if (skin) CurrentSkin = skin;
    for (XMLNode* entry = contents->FirstChild; entry; entry = entry->Next) {
        if (!IsElementNode(entry)) continue;
        if (!LoadEntry(parent, entry, elementName, newName, reload)) break;
    }
    RestoreSkin(savedSkin);
    return true;
}

bool CUIManager::LoadInterfaceXML(TAVUElement* parent, const char* file, bool reload,
                                  TAVUSkin* skin) {
    return LoadInterfaceXML(parent, file, nullptr, nullptr, reload, skin);
}

bool CUIManager::LoadInterfaceXML(const char* file, const char* elementName, const char* newName,
                                  bool reload, TAVUSkin* skin) {
    return LoadInterfaceXML(Screen, file, elementName, newName, reload, skin);
}

bool CUIManager::LoadInterfaceXML(const char* file, bool reload, TAVUSkin* skin) {
    return LoadInterfaceXML(Screen, file, nullptr, nullptr, reload, skin);
}

// Finds, parses and opens a file: the Prefix node, or null after a message.
XMLNode* CUIManager::OpenInterfaceFile(const char* file, XMLParser& parser) {
    char path[TAVU_INTERFACE_PATH_BUFFER] = {0};
    if (!g_pHost->FindInterfaceFile(file ? file : "", path)) {
        g_pHost->ConsolePrintf("Could not locate file");
        return nullptr;
    }
    path[sizeof(path) - 1] = 0;
    StrCopyBounded(CurrentFile, path, sizeof(CurrentFile));
    if (!parser.ParseFile(path)) {
        g_pHost->ConsolePrintf("Failed to parse %s: %s", path, parser.ErrorText);
        return nullptr;
    }
    for (XMLNode* node = parser.Root ? parser.Root->FirstChild : nullptr; node; node = node->Next)
        if (IsElementNode(node) && StrCompareNoCase(node->Name, Prefix) == 0) return node;
    g_pHost->ConsolePrintf("Failed to find %s element in %s", Prefix, path);
    return nullptr;
}

// A reload deletes from the screen, even when the file loads under another
// parent: an element elsewhere stays, and the new one then meets it.
// Gives false when the parent is gone: the deletion of a reload, or a script
// of an element loaded before, may delete it (or reset the whole screen).
bool CUIManager::LoadEntry(TAVUElement* parent, XMLNode* entry, const char* elementName,
                           const char* newName, bool reload) {
    const char* name = NameOf(entry);
    if (StrCompareNoCase(entry->Name, "Template") == 0) {
        AddTemplate(name, entry);
        return true;
    }
    if (StrCompareNoCase(entry->Name, "Skin") == 0) {
        TAVUSkin* skin = NewSkin(name);
        if (!skin) return true;
        XMLNode* base = FindTemplate(XMLHelper::GetStringAttribute(entry, "Template", ""));
        if (!skin->FromXML(entry, base)) RemoveSkin(name);
        return true;
    }
    if (elementName) {
        if (StrCompareNoCase(name, elementName) != 0) return true;
        name = newName;
    }
    unsigned parentID = parent->ID;
    auto parentStays = [&] { return parent == Screen || FindElementByID(parentID); };
    if (reload) {
        if (TAVUElement* loaded = FindElement(name)) Screen->DeleteChild(loaded);
        if (!parentStays()) return false;
    }
    LoadElement(parent, entry->Name, name, entry, nullptr);
    return parentStays();
}

bool CUIManager::UnloadInterfaceXML(const char* file) {
    XMLParser parser;
    XMLNode* contents = OpenInterfaceFile(file, parser);
    if (!contents) return false;
    for (XMLNode* entry = contents->FirstChild; entry; entry = entry->Next) {
        if (!IsElementNode(entry)) continue;
        if (TAVUElement* loaded = FindElement(NameOf(entry))) Screen->DeleteChild(loaded);
    }
    return true;
}

TAVUElement* CUIManager::LoadElement(TAVUElement* parent, const char* type, const char* name) {
    if (!parent || !type || !name || !name[0]) return nullptr;
    if (RefuseDyingParent(parent, name)) return nullptr;
    TAVUElementFactory* factory = FindFactory(type);
    if (!factory) {
        g_pHost->ConsolePrintf("No UI element factory for type '%s'", type);
        return nullptr;
    }
    if (parent->FindChild(name)) {
        g_pHost->ConsolePrintf("Child named '%s' already exists in parent element '%s'", name,
                               parent->Name);
        return nullptr;
    }
    TAVUElement* element = factory->CreateUIElement(parent, name);
    if (!element) {
        g_pHost->ConsolePrintf("CreateUIElement failed on '%s' under '%s'", name, parent->Name);
        return nullptr;
    }
    return FinishLoad(element);
}

TAVUElement* CUIManager::LoadElement(TAVUElement* parent, const char* type, const char* name,
                                     XMLNode* node, const char* templateName) {
    bool failed = false;
    return CreateFromNode(parent, type, name, node, templateName, failed);
}

// failed tells a real failure (with its message) from an element that loaded
// and then deleted itself in "OnLoad".
TAVUElement* CUIManager::CreateFromNode(TAVUElement* parent, const char* type, const char* name,
                                        XMLNode* node, const char* templateName, bool& failed) {
    failed = true;
    if (!parent || !node || !type || !name || !name[0]) return nullptr;
    if (RefuseDyingParent(parent, name)) return nullptr;
    TAVUElementFactory* factory = FindFactory(type);
    if (!factory) {
        // Unlike the other form, the type stands without quotes here.
        g_pHost->ConsolePrintf("No UI element factory for type %s", type);
        return nullptr;
    }
    if (parent->FindChild(name)) {
        g_pHost->ConsolePrintf("Child named '%s' already exists in parent element '%s'", name,
                               parent->Name);
        return nullptr;
    }
    if (!templateName) templateName = XMLHelper::GetStringAttribute(node, "Template", nullptr);
    TAVUElement* element = factory->CreateUIElement(parent, name, node, templateName);
    if (!element) {
        g_pHost->ConsolePrintf("CreateUIElement failed on '%s' under '%s'", name, parent->Name);
        return nullptr;
    }
    failed = false;
    unsigned id = element->ID;
    LoadChildren(element, node, templateName);
    if (!FindElementByID(id)) return nullptr; // a child's script deleted it
    return FinishLoad(element);
}

// A node's "Children" replace its template's whole.
void CUIManager::LoadChildren(TAVUElement* element, XMLNode* node, const char* templateName) {
    if (XMLNode* own = XMLHelper::GetChild(node, "Children")) {
        LoadChildNodes(element, own);
        return;
    }
    // A template's children are read from a copy: a child's "OnLoad" may load
    // the template's file again, which replaces (and frees) the template.
    XMLNode* shared = XMLHelper::GetChild(FindTemplate(templateName), "Children");
    if (!shared) return;
    XMLNode* copy = shared->Clone(nullptr);
    if (!copy) return;
    LoadChildNodes(element, copy);
    copy->Destroy();
}

void CUIManager::LoadChildNodes(TAVUElement* element, XMLNode* children) {
    unsigned id = element->ID;
    for (XMLNode* child = children->FirstChild; child; child = child->Next) {
        if (!IsElementNode(child)) continue;
        const char* childName = XMLHelper::GetStringAttribute(child, "Name", "");
        bool failed = false;
        CreateFromNode(element, child->Name, childName, child, nullptr, failed);
        if (!FindElementByID(id)) return;
        if (failed)
            g_pHost->ConsolePrintf("Failed to create %s child %s for %s", child->Name, childName,
                                   element->Name);
    }
}

TAVUElement* CUIManager::FinishLoad(TAVUElement* element) {
    unsigned id = element->ID;
    element->RecalculateSize(true);
    element->OnCreate();
    if (element->OnLoad && FindElementByID(id)) element->OnLoad->Execute(0, nullptr);
    return FindElementByID(id);
}
