#include "TAVUElementWatch.h"

#include "CUIManager.h"
#include "TAVUElement.h"

unsigned TAVUElementWatch::Destroyed = 0;

TAVUElementWatch::TAVUElementWatch(const TAVUElement* element)
    : ID(element->ID), DestroyedBefore(Destroyed) {}

bool TAVUElementWatch::Alive() const {
    if (Destroyed == DestroyedBefore) return true;
    auto found = g_UIManager.ElementsByID.find(ID);
    return found != g_UIManager.ElementsByID.end() && found->second;
}
