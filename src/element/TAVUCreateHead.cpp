#include "TAVUCreateHead.h"

#include "TAVUElement.h"

void TAVUApplyCreateHead(TAVUElement* element, const _CreateHead& head) {
    element->X = head.X;
    element->Y = head.Y;
    element->Width = head.Width;
    element->Height = head.Height;
    element->XPosition = head.XPosition;
    element->YPosition = head.YPosition;
    element->HeightPosition = head.HeightPosition;
    element->WidthPosition = head.WidthPosition;
    element->Visible = head.Visible;
    element->Strata = head.Strata;
    element->MoveZTop(true);
}
