// The fields that open every plain creation structure of the controls
// (_CreateFrame, _CreateButton, ...): what code that builds a control without
// XML says about its place. One shared step writes them into the element.
#pragma once

#include "ElementPosition.h"
#include "TavuExport.h"

#include <cstdint>

class TAVUElement;

struct _CreateHead {
    int X = 0;
    int Y = 0;
    int Width = 0;
    int Height = 0;
    ElementPosition XPosition{};
    ElementPosition YPosition{};
    ElementPosition HeightPosition{};
    ElementPosition WidthPosition{};
    bool Visible = true;
    int8_t Strata = 0;
};

// Copies the head into the element, then brings it and its ancestors to the
// top of their strata, as a new control of code is meant to show in front.
TAVU_API void TAVUApplyCreateHead(TAVUElement* element, const _CreateHead& head);
