// An element type of the tests' own, made through TAVUFactory as another
// module's would be: it records the handler calls the manager makes on it.
#pragma once

#include "TAVUElement.h"

#include <string>
#include <vector>

class RecordingElement : public TAVUElement {
public:
    using TAVUElement::TAVUElement;

    static std::vector<std::string> Log; // "Name:Event", across all instances
    bool FromXMLResult = true;
    static bool NextFromXMLResult;

    bool FromXML(XMLNode*, XMLNode*) override { return NextFromXMLResult; }
    void OnKeyboardEnter() override { Log.push_back(std::string(Name) + ":enter"); }
    void OnKeyboardExit(TAVUElement* next) override {
        Log.push_back(std::string(Name) + ":exit(" + (next ? next->Name : "null") + ")");
    }
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override {
        if (code == TAVU_NOTIFY_CHILD_REMOVED)
            Log.push_back(std::string(Name) + ":removed(" + reinterpret_cast<const char*>(value) +
                          ")");
        TAVUElement::OnNotify(source, code, value);
    }
    void OnDestroy() override { Log.push_back(std::string(Name) + ":destroy"); }
    bool IsTypeOf(const char* type) override;
};
