// "map": shows world positions as blips, child frames that it moves into its
// rectangle around Origin at every frame, hiding those out of range. It draws
// nothing of its own; the blips render themselves.
//
// Positions are computed only as a frame begins, so a blip moved by script
// shows where it belongs at the next frame. The registries by ID and by name
// do not own the blips; each blip takes itself out of them as it goes.
#pragma once

#include "Point3f.h"
#include "TAVUElement.h"
#include "TAVUMapArea.h"

#include <map>
#include <string>

class TAVUMapBlip;
class TAVUTooltip;

class TAVU_API TAVUMap : public TAVUElement, public TAVUMapArea {
public:
    enum : unsigned { BlipFactorySize = 64 };

    TAVUMap(const char* type, TAVUElement* parent, const char* name);

    ~TAVUMap() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    void OnCreate() override;
    RXTypeDefinition* GetRXType() override;

    // The pointer rests on a blip: the tooltip, if any, is filled by the
    // blip's script and shown below the blip.
    virtual void BlipHover(TAVUMapBlip* blip, _Point2i& point);
    virtual void BlipHoverStop(TAVUMapBlip* blip);
    // A new blip of that name, replacing any blip the name had, so the ID
    // changes. Empty template and type mean the map's own. 0 on failure.
    virtual unsigned AddBlip(const char* name, _Point3f& location, unsigned size, const char* label,
                             const char* blipTemplate, const char* type);
    virtual void RemoveBlip(unsigned id);
    virtual void ClearBlips();
    // Each does nothing for an ID that names no blip of this map.
    virtual void UpdateBlip(unsigned id, _Point3f& location);
    virtual void UpdateBlipLabel(unsigned id, const char* text);
    virtual void UpdateBlipSize(unsigned id, unsigned size);
    // Loads a blip on top of the others, not yet registered.
    virtual TAVUMapBlip* NewBlip(const char* name, const char* blipTemplate, const char* type);
    virtual TAVUMapBlip* FindBlip(const char* name);
    virtual void UpdateRadius();
    virtual void UpdateBox();

    // Takes a blip out of both registries, as it is deleted.
    void ForgetBlip(TAVUMapBlip* blip);

    char BlipFactory[BlipFactorySize];
    char* BlipTemplate = nullptr;
    // Look-ups by ID and by name enter an empty slot for a key they miss, as
    // scripts have always seen; every walk skips empty slots.
    std::map<unsigned, TAVUMapBlip*> BlipsByID;
    std::map<std::string, TAVUMapBlip*> BlipsByName;
    unsigned HoverBlipID = 0;
    unsigned BlipCount = 0;
    TAVUTooltip* Tooltip = nullptr;

private:
    void PlaceBlips();

public:
    // Blip names ignore case, as element names do: the key is the name in
    // lower case, which is also how the blip's element stores it.
    static std::string NameKey(const char* name);
};
