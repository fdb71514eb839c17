#include "TAVUEmbeddedScript.h"

#include "CUIManager.h"
#include "Module.h"
#include "RXTypeVar.h"
#include "TAVUElement.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

TAVUEmbeddedScript* TAVUEmbeddedScript::New(TAVUElement* element, const char* source,
                                            const char* arguments) {
    if (!element || !source) return nullptr;
    if (!arguments) arguments = "";
    static const char kForm[] = "atom auto(%s)\n{\n%s\n}\n";
    size_t size = strlen(arguments) + strlen(source) + 64;
    char* text = static_cast<char*>(malloc(size));
    if (!text) return nullptr;
    int length = snprintf(text, size, kForm, arguments, source);
    unsigned atom = g_pHost->CompileAtom(text, length > 0 ? size_t(length) : 0);
    free(text);
    if (atom == 0) return nullptr;
    return new TAVUEmbeddedScript(atom, element);
}

// After Shutdown the host may be gone: handles are no longer given back.
TAVUEmbeddedScript::~TAVUEmbeddedScript() {
    if (Atom != 0 && !g_UIManager.IsShutDown) g_pHost->DeleteAtom(Atom);
}

void TAVUEmbeddedScript::Delete() {
    if (--RefCount <= 0) delete this;
}

int TAVUEmbeddedScript::Execute(TAVUElement* element, int argc, char** argv) {
    ++RefCount; // the element, and with it this script, may be deleted by the script itself
    _RXTypeVar self{};
    _RXTypeVar* thisObject = nullptr;
    if (element) {
        self.Type = element->GetRXType();
        self.Value.Pointer = element;
        thisObject = &self;
    }
    int result = g_pHost->ExecuteAtom(Atom, 0, argc, argv, thisObject);
    Delete();
    return result;
}

int TAVUEmbeddedScript::Execute(int argc, char** argv) {
    return Execute(Element, argc, argv);
}
