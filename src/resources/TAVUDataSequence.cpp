#include "TAVUDataSequence.h"

#include "CUIManager.h"
#include "Module.h"

namespace {
// Handles are given back while the host is ours; after Shutdown it may be gone.
void FreeHandle(unsigned handle) {
    if (!g_UIManager.IsShutDown) g_pHost->FreePreParsed(handle);
}
} // namespace

TAVUDataSequence::TAVUDataSequence(const char* text) : Handle(g_pHost->PreParseText(text, true)) {}

TAVUDataSequence::~TAVUDataSequence() {
    FreeHandle(Handle);
}

void TAVUDataSequence::Clear() {
    if (!Handle) return;
    FreeHandle(Handle);
    Handle = 0;
}

void TAVUDataSequence::PreParse(const char* text) {
    Clear();
    if (text) Handle = g_pHost->PreParseText(text, true);
}

bool TAVUDataSequence::RetrieveOriginalText(char* buffer, unsigned int size) {
    return g_pHost->RetrieveOriginalText(Handle, buffer, size);
}

bool TAVUDataSequence::RetrieveProcessedText(char* buffer, unsigned int size) {
    return g_pHost->RetrieveProcessedText(Handle, buffer, size);
}

bool TAVUDataSequence::RetrieveProcessedResult(_RXTypeVar& result) {
    return g_pHost->RetrieveProcessedResult(Handle, result);
}
