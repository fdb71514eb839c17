#include "TAVUElementDeleter.h"

#include "TAVUElement.h"

void TAVUElementDeleter::Delete(TAVUElement* element) {
    if (!element) return;
    element->OnDestroy();
    delete element;
}
