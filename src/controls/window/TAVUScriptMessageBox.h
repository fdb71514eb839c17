// "scriptmessagebox": a message box opened by a script, which hands the
// word of the pressed button ("OK", "Cancel", "Yes", "No") to that script's
// record, where "UserInput" reads it. Scripts see it as a "tavumessagebox".
#pragma once

#include "TAVUMessageBox.h"

class RXScript;

class TAVU_API TAVUScriptMessageBox : public TAVUMessageBox {
public:
    TAVUScriptMessageBox(const char* type, TAVUElement* parent, const char* name);

    // Tells the record its box is gone, however the box goes.
    ~TAVUScriptMessageBox() override;
    bool IsTypeOf(const char* type) override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;

    // The host's record of the script that opened the box. The host keeps it
    // valid while the box is open, also after the script has ended.
    RXScript* Script = nullptr;
};
