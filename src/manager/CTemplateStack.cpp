#include "CTemplateStack.h"

#include "CWinLock.h"

CTemplateStack::CTemplateStack() {
    InitializeCriticalSection(&Lock);
}

CTemplateStack::~CTemplateStack() {
    DeleteCriticalSection(&Lock);
}

void CTemplateStack::Push(XMLNode* node) {
    CWinLock guard(&Lock, true);
    Nodes.push_back(node);
}

XMLNode* CTemplateStack::Pop() {
    CWinLock guard(&Lock, true);
    if (Nodes.empty()) return nullptr;
    XMLNode* node = Nodes.back();
    Nodes.pop_back();
    return node;
}

size_t CTemplateStack::Size() {
    CWinLock guard(&Lock, true);
    return Nodes.size();
}
