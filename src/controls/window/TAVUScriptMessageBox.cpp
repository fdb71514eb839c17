#include "TAVUScriptMessageBox.h"

#include "RXScript.h"
#include "StringHelpers.h"
#include "TAVUFactory.h"

namespace {
const char kTypeWord[] = "scriptmessagebox";
} // namespace

TAVUFactory<TAVUScriptMessageBox> g_TAVUScriptMessageBoxFactory(kTypeWord);

TAVUScriptMessageBox::TAVUScriptMessageBox(const char* type, TAVUElement* parent, const char* name)
    : TAVUMessageBox(type, parent, name) {}

TAVUScriptMessageBox::~TAVUScriptMessageBox() {
    if (Script && Script->OpenMessageBox == this) Script->OpenMessageBox = nullptr;
}

bool TAVUScriptMessageBox::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUMessageBox::IsTypeOf(type);
}

// The answer is handed over before the box deletes itself below.
void TAVUScriptMessageBox::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    const char* answer = code == TAVU_NOTIFY_LEFT_UP ? AnswerOf(source) : nullptr;
    if (answer && Script) {
        if (Script->OpenMessageBox == this) Script->OpenMessageBox = nullptr;
        Script->SetUserInput(answer);
    }
    TAVUMessageBox::OnNotify(source, code, value);
}
