#include "TAVUTopLevelObjects.h"

#include "CUIManager.h"
#include "Module.h"
#include "RXScript.h"
#include "TAVUElement.h"
#include "TAVUScriptType.h"
#include "TAVUScriptTypes.h"

// A text that looks like a number is an ID, so "12" and "-12" are IDs, and an
// element whose name is only digits is not found by name.
bool UIElementObject(int argc, char* argv[], _RXTypeVar& result) {
    if (argc < 1) return false;
    const char* key = argv[0] ? argv[0] : "";
    TAVUElement* element = (key[0] && TAVUScriptType::IsNumericText(key))
                               ? g_UIManager.FindElementByID(unsigned(TAVUScriptType::ArgInt(key)))
                               : g_UIManager.FindElement(key);
    return TAVUScriptType::SetElement(result, element);
}

bool UserInputObject(int, char*[], _RXTypeVar& result) {
    RXScript* script = g_pHost->GetCurrentScript();
    if (!script || !script->UserInput) return false;
    result.Value.UInt64 = 0;
    result.Value.Text = script->UserInput;
    result.Type = g_pHost->FindType("string");
    return true;
}

// The value is a dummy: the type only needs it not to be null.
bool TavukitObject(int, char*[], _RXTypeVar& result) {
    result.Value.UInt64 = 1;
    result.Type = pTAVUKitType;
    return true;
}
