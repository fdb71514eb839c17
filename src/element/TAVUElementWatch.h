// Tells whether an element outlived the scripts that ran since the watch
// began. Any script may delete any element, so code that runs one and then
// wants to touch its element asks a watch first.
//
// The watch only looks the ID up when an element was destroyed in between,
// and its look-up never adds to the manager's map of elements by ID.
#pragma once

#include "TavuExport.h"

class TAVUElement;

class TAVU_API TAVUElementWatch {
public:
    explicit TAVUElementWatch(const TAVUElement* element);

    bool Alive() const;

    // Counts element destructions; TAVUElement's destructor moves it on.
    static unsigned Destroyed;

private:
    unsigned ID;
    unsigned DestroyedBefore;
};
