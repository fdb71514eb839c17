// The colours that colour codes in a text have pushed, so that "x" can go back
// to the one before. Room is fixed: a push beyond it is dropped, and the
// colour it would have saved is not returned to later.
#pragma once

#include "TavuExport.h"

#include <cstddef>

class TAVU_API TAVUColorStack {
public:
    enum : size_t { Capacity = 128 };

    void Push(unsigned int color);
    // False, with color untouched, when the stack is empty.
    bool Pop(unsigned int& color);
    size_t Size() const { return Count; }

private:
    unsigned int Colors[Capacity] = {};
    size_t Count = 0;
};
