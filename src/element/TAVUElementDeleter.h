// Destroys an element for its factory: "OnDestroy", then the destructor.
#pragma once

#include "TavuExport.h"

class TAVUElement;

class TAVU_API TAVUElementDeleter {
public:
    virtual void Delete(TAVUElement* element);
    virtual ~TAVUElementDeleter() = default;
};
