// What the host reads and writes in an element to keep its position: the
// element's full name, its virtual GetStoragePosition, and its place.
#pragma once

#include <string>

class TAVUElement;

struct StoredPosition {
    int X = 0;
    int Y = 0;
    unsigned Width = 0;
    unsigned Height = 0;
};

class ElementAccess {
public:
    static std::string FullName(TAVUElement* element);
    // The rectangle the element wants kept; false when it keeps none.
    static bool StoragePosition(TAVUElement* element, StoredPosition& position);
    // Puts the element at a kept rectangle, in plain pixels, so that no
    // relative place of its file overrides it.
    static void Place(TAVUElement* element, const StoredPosition& position);
};
