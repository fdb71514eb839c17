#include "CUIManager.h"

#include "HostInterface.h"
#include "Module.h"
#include "RXTypeDefinition.h"
#include "StringHelpers.h"
#include "TAVUElement.h"
#include "TAVUScreen.h"
#include "TAVUCommands.h"
#include "TAVUScriptTypes.h"
#include "TAVUTopLevelObjects.h"
#include "XMLNode.h"

#include <cstring>
#include <new>

// The manager exists before any element factory registers itself while the
// module loads, so it is constructed first of all the module's globals.
__attribute__((init_priority(101))) CUIManager g_UIManager;

namespace {

struct NamedCommand {
    const char* Name;
    RXCommandHandler Handler; // null until the command is built
};

struct NamedObject {
    const char* Name;
    RXTopLevelObjectHandler Handler; // null until the object is built
};

// The script commands and top-level objects, in the order the host sees them
// registered. Each fills in its handler as it lands.
const NamedCommand kCommands[] = {{"UI", UICommand},
                                  {"UIElement", UIElementCommand},
                                  {"MessageBox", MessageBoxCommand},
                                  {"InputBox", InputBoxCommand}};
const NamedObject kTopLevelObjects[] = {
    {"UIElement", UIElementObject}, {"UserInput", UserInputObject}, {"Tavukit", TavukitObject}};

struct HostTypeHandle {
    const char* Name;
    RXTypeDefinition** Global;
};

const HostTypeHandle kHostTypes[] = {
    {"string", &g_pStringType},     {"int", &g_pIntType},     {"int64", &g_pInt64Type},
    {"bool", &g_pBoolType},         {"float", &g_pFloatType}, {"point3f", &g_pPoint3fType},
    {"filepath", &g_pFilePathType}, {"uint", &g_pUIntType},
};

} // namespace

CUIManager::CUIManager() {
    InitializeCriticalSection(&Lock);
    memset(KeyState, 0, sizeof(KeyState));
    StrCopyBounded(Prefix, "TAVU", sizeof(Prefix));
    CurrentFile[0] = 0;
    FrameTime = GetTickCount();
}

CUIManager::~CUIManager() {
    Shutdown();
    ClearTemplates(); // also those of a manager that never had a host
    ClearSkins();
    for (auto& entry : Metadata)
        delete entry.second;
    Metadata.clear();
    DeleteCriticalSection(&Lock);
}

void CUIManager::Initialize() {
    for (const HostTypeHandle& handle : kHostTypes)
        *handle.Global = g_pHost->FindType(handle.Name);
    PersistentClass = g_pHost->RegisterPersistentClass("Tavukit");
    RegisterScriptTypes();
    RegisterScriptAccess();
    delete Screen;
    Screen = new TAVUScreen();
}

void CUIManager::Shutdown() {
    if (IsShutDown || !g_pHost) return;
    RemoveScriptTypes();
    RemoveScriptAccess();
    IsShutDown = true;
    DeleteScreen();
    ClearTemplates();
}

// The screen stays the manager's Screen while its tree goes, so that the
// "OnUnload" scripts that run meanwhile still find it; it is marked as being
// deleted, which makes a second teardown asked for from one of those scripts
// (a reset, or a shutdown during a reset) return at once instead of deleting
// it again, and refuses new elements under it. The teardown under way ends
// the same way either would: with no tree.
bool CUIManager::DeleteScreen() {
    if (Screen && Screen->IsBeingDeleted()) return false;
    if (TAVUScreen* dying = Screen) {
        dying->BeginDeletion();
        delete dying;
    }
    Screen = nullptr;
    return true;
}

unsigned CUIManager::GetVersion() {
    return Version;
}

void CUIManager::ClearMouseState() {
    MouseOverElementID = 0;
    LeftButtonState = 0;
    RightButtonState = 0;
}

void CUIManager::RegisterScriptTypes() {
    for (const TAVUScriptTypeSlot& slot : g_TAVUScriptTypes) {
        if (!slot.Make) continue;
        RXTypeDefinition* type = slot.Make();
        *slot.Global = type;
        if (!type) continue;
        type->Initialize(slot.Base ? *slot.Base : nullptr);
        g_pHost->AddType(type);
        g_pHost->SetPersistentClass(type, PersistentClass);
    }
}

void CUIManager::RemoveScriptTypes() {
    for (const TAVUScriptTypeSlot& slot : g_TAVUScriptTypes) {
        RXTypeDefinition* type = *slot.Global;
        if (!type) continue;
        g_pHost->RemoveType(type);
        delete type;
        *slot.Global = nullptr;
    }
}

void CUIManager::RegisterScriptAccess() {
    for (const NamedObject& object : kTopLevelObjects)
        if (object.Handler) g_pHost->AddTopLevelObject(object.Name, object.Handler);
    for (const NamedCommand& command : kCommands)
        if (command.Handler) g_pHost->AddCommand(command.Name, command.Handler, true, false);
}

void CUIManager::RemoveScriptAccess() {
    for (const NamedObject& object : kTopLevelObjects)
        if (object.Handler) g_pHost->RemoveTopLevelObject(object.Name);
    for (const NamedCommand& command : kCommands)
        if (command.Handler) g_pHost->RemoveCommand(command.Name);
}

void CUIManager::Render() {
    if (LeftButtonState == 0 && RightButtonState == 0) SetMouseOverElement();
    FrameTime = GetTickCount();
    if (!Screen) return;
    Screen->RecalculateSize(true);
    Screen->AbsolutePosition = {0, 0};
    if (Screen->Visible) Screen->Render();
}

// A reset asked for while the tree is already being torn down does nothing:
// the teardown under way leaves an empty screen (or, in a shutdown, none).
void CUIManager::Reset() {
    bool wasShutDown = IsShutDown;
    if (!DeleteScreen()) return;
    if (IsShutDown && !wasShutDown) return; // shut down by a script of the tree
    Screen = new (std::nothrow) TAVUScreen();
}

TAVUElement* CUIManager::FindElement(const char* fullName) {
    return ElementsByName[utf8stringnocase(fullName ? fullName : "")];
}

TAVUElement* CUIManager::FindElementByID(unsigned id) {
    return ElementsByID[id];
}

TAVUElementFactory* CUIManager::FindFactory(const char* type) {
    return Factories[utf8stringnocase(type ? type : "")];
}

bool CUIManager::ShowElement(const char* fullName, bool show) {
    TAVUElement* element = FindElement(fullName);
    if (!element) return false;
    element->Show(show);
    if (!show) SetFocusElement();
    return true;
}

bool CUIManager::ToggleElement(const char* fullName) {
    TAVUElement* element = FindElement(fullName);
    if (!element) return false;
    bool wasVisible = element->Visible;
    element->Show(!wasVisible);
    if (wasVisible) SetFocusElement();
    return true;
}

TAVUElement* CUIManager::GetFocusElement() {
    TAVUElement* element = FindElementByID(FocusElementID);
    if (element && element->IsReallyVisible()) return element;
    if (element) element->OnKeyboardExit(nullptr);
    FocusElementID = 0;
    return nullptr;
}

void CUIManager::SetFocusElement(TAVUElement* element) {
    TAVUElement* old = FindElementByID(FocusElementID);
    if (!element) {
        if (old) old->OnKeyboardExit(nullptr);
        FocusElementID = 0;
        return;
    }
    if (!element->IsReallyVisible()) return;
    if (old == element) {
        FocusElementID = element->ID;
        return;
    }
    unsigned id = element->ID;
    if (old) old->OnKeyboardExit(element);
    // The exit's script may have deleted the element that was to get focus.
    if (!FindElementByID(id)) {
        FocusElementID = 0;
        return;
    }
    element->OnKeyboardEnter();
    FocusElementID = id;
}

TAVUElement* CUIManager::SetFocusElement() {
    if (FocusElementID == 0) return nullptr;
    unsigned before = FocusElementID;
    // GetFocusElement already told a hidden focus element that it lost focus;
    // it hears the exit a second time here, and handlers must bear that.
    if (GetFocusElement()) return nullptr;
    if (TAVUElement* element = FindElementByID(before)) element->OnKeyboardExit(nullptr);
    return nullptr;
}

TAVUElement* CUIManager::GetMouseOverElement() {
    if (LeftPressedElementID) {
        if (TAVUElement* pressed = FindElementByID(LeftPressedElementID)) return pressed;
        LeftPressedElementID = 0;
    }
    if (RightPressedElementID) {
        if (TAVUElement* pressed = FindElementByID(RightPressedElementID)) return pressed;
        RightPressedElementID = 0;
    }
    TAVUElement* over = FindElementByID(MouseOverElementID);
    if (over && over->Visible) return over;
    return SetMouseOverElement();
}

TAVUElement* CUIManager::SetMouseOverElement() {
    if (MouseOverRootID) {
        TAVUElement* root = FindElementByID(MouseOverRootID);
        TAVUElement* found = root ? root->FindMouseOver(MousePosition, nullptr) : nullptr;
        if (found) {
            // An open drop-down hears "OnMouseEnter" on every call, never an exit.
            MouseOverElementID = found->ID;
            AutoTooltipElementID = 0;
            MouseEnterTime = GetTickCount();
            found->OnMouseEnter(MousePosition);
            return FindElementByID(MouseOverElementID);
        }
    }
    TAVUElement* old = FindElementByID(MouseOverElementID);
    TAVUElement* found = Screen ? Screen->FindMouseOver(MousePosition, nullptr) : nullptr;
    if (!found) {
        if (old) old->OnMouseExit(nullptr);
        MouseOverElementID = 0;
        return nullptr;
    }
    MouseOverElementID = found->ID;
    if (found == old) return found;
    unsigned id = found->ID;
    if (old) old->OnMouseExit(found);
    AutoTooltipElementID = 0;
    MouseEnterTime = GetTickCount();
    // Scripts of the exit and of the entry may delete the element: what was
    // deleted is no longer under the pointer.
    if (!FindElementByID(id)) return nullptr;
    found->OnMouseEnter(MousePosition);
    return FindElementByID(id);
}

bool CUIManager::GetTextureSize(unsigned handle, _Point2i& size) {
    return g_pHost->GetTextureSize(handle, size);
}

unsigned CUIManager::AcquireFont(const char* name, int height, bool fixed, bool bold) {
    return g_pHost->AcquireFont(name, height, fixed, bold);
}

void CUIManager::ReleaseFont(unsigned handle) {
    if (!IsShutDown) g_pHost->ReleaseFont(handle);
}

unsigned CUIManager::AcquireTexture(const char* file, unsigned colorKey) {
    return g_pHost->AcquireTexture(file, colorKey);
}

void CUIManager::ReleaseTexture(unsigned handle) {
    if (!IsShutDown) g_pHost->ReleaseTexture(handle);
}

const char* CUIManager::GetMetadata(unsigned id, const char* key) {
    auto found = Metadata.find(id);
    if (found == Metadata.end()) return "";
    auto value = found->second->find(utf8stringnocase(key ? key : ""));
    return value == found->second->end() ? "" : value->second.c_str();
}

bool CUIManager::SetMetadata(unsigned id, const char* key, const char* value) {
    MetadataMap*& values = Metadata[id];
    if (!values) values = new MetadataMap();
    (*values)[utf8stringnocase(key ? key : "")] = value ? value : "";
    return true;
}

bool CUIManager::UnsetMetadata(unsigned id, const char* key) {
    auto found = Metadata.find(id);
    if (found == Metadata.end()) return false;
    return found->second->erase(utf8stringnocase(key ? key : "")) > 0;
}

void CUIManager::ClearMetadata(TAVUElement* element) {
    if (!element) return;
    auto found = Metadata.find(element->ID);
    if (found == Metadata.end()) return;
    delete found->second;
    Metadata.erase(found);
}
