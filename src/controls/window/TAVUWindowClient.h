// "windowclient": the client area of a window, where its children live. It
// passes what its children tell it straight to the window, and its OnCreate
// (which comes once the children have loaded) lays the window out again.
// It answers to "windowclient" but not to "frame", and full names pass over
// it, so that a window's children hang on the window itself.
#pragma once

#include "TAVUFrame.h"

class TAVU_API TAVUWindowClient : public TAVUFrame {
public:
    TAVUWindowClient(const char* type, TAVUElement* parent, const char* name);

    bool IsTypeOf(const char* type) override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    void OnCreate() override;

    TAVUElement* OwnerWindow;
};
