#include "TAVUElementFactory.h"

#include "CUIManager.h"
#include "Module.h"
#include "StringHelpers.h"
#include "TAVUElementDeleter.h"

TAVUElementFactory::TAVUElementFactory() : Deleter(new TAVUElementDeleter()) {}

TAVUElementFactory::~TAVUElementFactory() {
    Unregister();
    delete Deleter;
}

void TAVUElementFactory::Forget(TAVUElement* element) {
    Elements.erase(element);
}

void TAVUElementFactory::Register(const char* name, unsigned version) {
    if (version != CUIManager::Version) {
        // Only a factory of another module can fail this; the host may not exist yet.
        if (g_pHost)
            g_pHost->ConsolePrintf("UI Element type '%s' unavailable (version mismatch)", name);
        return;
    }
    StrFree(TypeName);
    TypeName = StrLower(StrDuplicate(name ? name : ""));
    g_UIManager.Factories[utf8stringnocase(TypeName)] = this;
}

void TAVUElementFactory::Unregister() {
    if (!TypeName) return;
    auto found = g_UIManager.Factories.find(utf8stringnocase(TypeName));
    if (found != g_UIManager.Factories.end() && found->second == this)
        g_UIManager.Factories.erase(found);
    StrFree(TypeName);
    TypeName = nullptr;
}
