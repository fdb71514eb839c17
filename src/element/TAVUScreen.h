// The root of the element tree: as large as the host's display, never moved in
// z-order, made by the manager (it has no factory) and deleted by it directly.
#pragma once

#include "TAVUElement.h"

class TAVU_API TAVUScreen : public TAVUElement {
public:
    TAVUScreen();

    bool IsTypeOf(const char* type) override;
    // Takes the display size; children follow only when it changed.
    void RecalculateSize(bool recurse) override;
    void MoveZUp() override {}
    void MoveZDown() override {}
    void MoveZTop(bool) override {}
    void MoveZBottom() override {}
    // A press on the bare screen moves focus and falls through to the host.
    bool OnLMouseDown(_Point2i& point) override;
};
