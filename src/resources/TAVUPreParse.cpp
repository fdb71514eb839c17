#include "TAVUPreParse.h"

#include "CUIManager.h"
#include "Module.h"
#include "StringHelpers.h"

TAVUPreParse::TAVUPreParse(const char* text)
    : Text(StrDuplicate(text)), Handle(g_pHost->PreParseText(text, false)) {}

TAVUPreParse::~TAVUPreParse() {
    Clear();
}

// After Shutdown the host may be gone: the handle is dropped, not given back.
void TAVUPreParse::Clear() {
    StrFree(Text);
    Text = nullptr;
    if (Handle && !g_UIManager.IsShutDown) g_pHost->FreePreParsed(Handle);
    Handle = 0;
}

void TAVUPreParse::PreParse(const char* text) {
    Clear();
    if (!text) return;
    Text = StrDuplicate(text);
    Handle = g_pHost->PreParseText(text, false);
}

bool TAVUPreParse::RetrieveProcessedText(char* buffer, unsigned int size) {
    return g_pHost->RetrieveProcessedText(Handle, buffer, size);
}
