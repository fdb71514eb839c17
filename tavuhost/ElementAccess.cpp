// The element's class is the module's: this file sees it as imported, and
// touches only its fields and its table of virtual functions.
#undef TAVU_EXPORTS

#include "ElementAccess.h"

#include "TAVUElement.h"

std::string ElementAccess::FullName(TAVUElement* element) {
    return element && element->FullName ? element->FullName : "";
}

bool ElementAccess::StoragePosition(TAVUElement* element, StoredPosition& position) {
    return element &&
           element->GetStoragePosition(position.X, position.Y, position.Width, position.Height);
}

void ElementAccess::Place(TAVUElement* element, const StoredPosition& position) {
    if (!element) return;
    element->X = position.X;
    element->Y = position.Y;
    element->Width = int(position.Width);
    element->Height = int(position.Height);
    element->XPosition.Type = element->YPosition.Type = ElementPosition::Absolute;
    element->WidthPosition.Type = element->HeightPosition.Type = ElementPosition::Absolute;
}
