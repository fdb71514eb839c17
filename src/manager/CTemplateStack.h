// The stack on which AddTemplate collects a template's inheritance chain. It
// lives for one call; the lock around push and pop is the toolkit's habit for
// shared containers, not a need of that single call.
#pragma once

#include "Platform.h"

#include <cstddef>
#include <vector>

class XMLNode;

class CTemplateStack {
public:
    CTemplateStack();
    ~CTemplateStack();
    CTemplateStack(const CTemplateStack&) = delete;
    CTemplateStack& operator=(const CTemplateStack&) = delete;

    void Push(XMLNode* node);
    // The node pushed last, or null when the stack is empty.
    XMLNode* Pop();
    size_t Size();

private:
    CRITICAL_SECTION Lock;
    std::vector<XMLNode*> Nodes;
};
