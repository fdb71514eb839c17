#include "TAVUColorStack.h"

void TAVUColorStack::Push(unsigned int color) {
    if (Count < Capacity) Colors[Count++] = color;
}

bool TAVUColorStack::Pop(unsigned int& color) {
    if (Count == 0) return false;
    color = Colors[--Count];
    return true;
}
