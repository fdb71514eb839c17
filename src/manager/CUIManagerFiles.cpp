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
    XMLParser parser;
    XMLNode* contents = OpenInterfaceFile(file, parser);
    if (!contents) return false;
    TAVUSkin* savedSkin = CurrentSkin;
    if (skin) CurrentSkin = skin;
    unsigned parentID = parent->ID;
    for (XMLNode* entry = contents->FirstChild; entry; entry = entry->Next) {
        if (!IsElementNode(entry)) continue;
        // A script run by an earlier entry may have deleted the parent.
        if (parent != Screen && !FindElementByID(parentID)) break;
        LoadEntry(parent, entry, elementName, newName, reload);
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
void CUIManager::LoadEntry(TAVUElement* parent, XMLNode* entry, const char* elementName,
                           const char* newName, bool reload) {
    const char* name = NameOf(entry);
    if (StrCompareNoCase(entry->Name, "Template") == 0) {
        AddTemplate(name, entry);
        return;
    }
    if (StrCompareNoCase(entry->Name, "Skin") == 0) {
        TAVUSkin* skin = NewSkin(name);
        if (!skin) return;
        XMLNode* base = FindTemplate(XMLHelper::GetStringAttribute(entry, "Template", ""));
        if (!skin->FromXML(entry, base)) RemoveSkin(name);
        return;
    }
    if (elementName) {
        if (StrCompareNoCase(name, elementName) != 0) return;
        name = newName;
    }
    if (reload) {
        if (TAVUElement* loaded = FindElement(name)) Screen->DeleteChild(loaded);
    }
    LoadElement(parent, entry->Name, name, entry, nullptr);
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
    XMLNode* children = XMLHelper::GetChild(node, "Children");
    if (!children) children = XMLHelper::GetChild(FindTemplate(templateName), "Children");
    if (!children) return;
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
