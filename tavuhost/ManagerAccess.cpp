// The manager's class is the module's: this file sees it as imported, so that
// nothing of it is defined or exported here, whatever the rest of the host does.
#undef TAVU_EXPORTS

#include "ManagerAccess.h"

#include "CUIManager.h"
#include "TavukitModule.h"

void ManagerAccess::Initialize(CUIManager* manager) {
    if (manager) manager->Initialize();
}

void ManagerAccess::Shutdown(CUIManager* manager) {
    if (manager) manager->Shutdown();
}

void ManagerAccess::SetPrefix(CUIManager* manager, const char* prefix) {
    if (!manager || !prefix) return;
    // Copied by hand: StrCopyBounded lives in the module, not in the host.
    size_t length = 0;
    while (prefix[length] && length < sizeof(manager->Prefix) - 1) {
        manager->Prefix[length] = prefix[length];
        ++length;
    }
    manager->Prefix[length] = 0;
}

bool ManagerAccess::ClearInterface(TavukitModule& module) {
    // Exported members, found by their exported names like the frame operations.
    typedef void (*Member)(CUIManager*);
    auto reset = reinterpret_cast<Member>(module.Find("_ZN10CUIManager5ResetEv"));
    auto templates = reinterpret_cast<Member>(module.Find("_ZN10CUIManager14ClearTemplatesEv"));
    auto skins = reinterpret_cast<Member>(module.Find("_ZN10CUIManager10ClearSkinsEv"));
    CUIManager* manager = module.GetManager();
    if (!reset || !templates || !skins || !manager) return false;
    reset(manager);
    templates(manager);
    skins(manager);
    return true;
}
