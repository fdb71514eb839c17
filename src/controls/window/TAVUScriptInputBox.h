// "scriptinputbox": a window made by code that asks a script's user for a
// line of text. Enter in its entry line or "OK" hands the text to the
// script's record, "Cancel" hands it nothing; any other click that reaches
// the box (its title bar, a title bar button) closes it unanswered. Scripts
// see it as a "tavuwindow".
#pragma once

#include "TAVUWindow.h"

class RXScript;
class TAVUFont;
class TAVUTextEntry;

class TAVU_API TAVUScriptInputBox : public TAVUWindow {
public:
    TAVUScriptInputBox(const char* type, TAVUElement* parent, const char* name);

    // Tells the record its box is gone, however the box goes.
    ~TAVUScriptInputBox() override;
    // A box cannot come from an interface file.
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;

    // Lays the box out under its parent and centres it. A null template is
    // "scriptinputbox"; the buttons always use the template "button".
    void Create(const char* title, const char* text, const char* defaultValue,
                XMLNode* templateNode);

    TAVUButton* OKButton = nullptr;
    TAVUButton* CancelButton = nullptr;
    TAVUTextEntry* Entry = nullptr;
    TAVUFont* Font = nullptr;
    // The host's record of the script that opened the box; the host keeps it
    // valid while the box is open, also after the script has ended.
    RXScript* Script = nullptr;

private:
    void Answer(const char* text);
    void Close();
};
