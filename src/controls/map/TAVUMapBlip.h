// "mapblip": a frame that a map places at a world location at every frame,
// with an optional label beside it and a script that fills the map's tooltip
// while the pointer is on it.
//
// A blip belongs to its map's registries only while the map made it; its
// destructor takes it out of them, so a blip removed in any way (also from
// inside its own event) leaves no stale entry behind.
#pragma once

#include "Point3f.h"
#include "TAVUFrame.h"

class TAVUEmbeddedScript;
class TAVUFont;
class TAVUMap;
class TAVUTooltip;

class TAVU_API TAVUMapBlip : public TAVUFrame {
public:
    TAVUMapBlip(const char* type, TAVUElement* parent, const char* name);

    ~TAVUMapBlip() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    void OnMouseEnter(_Point2i& point) override;
    void OnMouseExit(TAVUElement* next) override;
    RXTypeDefinition* GetRXType() override;

    // Empties the tooltip and lets "OnSetTooltip" fill it; false without the
    // script. The script may delete anything, this blip included.
    bool SetTooltip(TAVUTooltip* tooltip);

    // The map this blip stands on, or null under anything else.
    TAVUMap* Map() const;

    TAVUFont* Font = nullptr;
    TAVUEmbeddedScript* OnSetTooltip = nullptr;
    _Point3f Location{0.0f, 0.0f, 0.0f};
    char* Custom = nullptr;
    char* Label = nullptr;
};
