// "messagebox": a window made by code that shows a message with one or two
// buttons and deletes itself when one is pressed. It composes its children
// from a template's keys, never from an interface file, and blocks nothing:
// the command that opens it returns at once.
#pragma once

#include "TAVUWindow.h"

class TAVUFont;

enum eMessageBoxType : unsigned {
    TAVU_MESSAGEBOX_OK = 1,
    TAVU_MESSAGEBOX_OKCANCEL = 2,
    TAVU_MESSAGEBOX_YESNO = 3,
};

class TAVU_API TAVUMessageBox : public TAVUWindow {
public:
    TAVUMessageBox(const char* type, TAVUElement* parent, const char* name);

    ~TAVUMessageBox() override;
    // A box cannot come from an interface file.
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    // Only the box's own buttons do anything, and each of them closes it: the
    // title bar does not drag it and its buttons do nothing.
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    RXTypeDefinition* GetRXType() override;

    // Lays the box out under its parent and centres it there. The title is
    // kept only as the window keeps any code-given title: the template's
    // "Title", else the box's name, shows. A null template is "messagebox".
    void Create(const char* title, const char* text, eMessageBoxType type, XMLNode* templateNode);

    TAVUFont* Font = nullptr;
    eMessageBoxType Type = TAVU_MESSAGEBOX_OK;
    TAVUButton* OKButton = nullptr;
    TAVUButton* CancelButton = nullptr;
    TAVUButton* YesButton = nullptr;
    TAVUButton* NoButton = nullptr;

protected:
    // The word of one of the box's buttons ("OK", "Cancel", "Yes", "No"), or
    // null for anything else.
    const char* AnswerOf(TAVUElement* source) const;
    // Drops the pointer to a part that is going away, so nothing dangles.
    void ForgetButton(TAVUElement* part);
};
