// What a map and a map view share: the world area they show and the one
// projection from world positions into their rectangle.
//
// Radial mode tests a circle of radius MapSizeX and scales both axes with it,
// so a map that is not square stretches the circle. With Rotation on, the
// picture turns a quarter further than the unrotated one even at angle 0:
// screen x follows world y and screen y follows minus world x. Both forms
// stay exactly as they are; interfaces are drawn for them.
#pragma once

#include "Point2i.h"
#include "Point3f.h"
#include "TavuExport.h"

class TAVUElement;
class TAVUFont;
class XMLNode;

class TAVU_API TAVUMapArea {
public:
    // The keys a map and a view both read: "ClipZ", "ClipRadius",
    // "ShowLabels", "Rotation", "MapSizeX", "MapSizeY". Files give the full
    // size of the area; the fields keep half of it.
    void ReadAreaKeys(XMLNode* node, XMLNode* templateNode);

    // A zero extent that the mode divides by becomes 1 before a frame: the
    // radius in radial mode, the Y extent in box mode. A zero X extent in box
    // mode is left as it is, and places its blips nowhere useful.
    void MendExtents();

    // Where a blip of the given size at a world location stands in a map of
    // the given size, relative to the map; false when it is to be hidden.
    // Coordinates that do not fit an int (NaN, infinities) give INT32_MIN.
    bool Project(const _Point3f& location, int mapWidth, int mapHeight, int blipWidth,
                 int blipHeight, _Point2i& position) const;

    // Shows and moves one blip (or a view of it) of the map by the location,
    // or hides it when it is out of range or there is no location.
    void Place(TAVUElement* blip, const _Point3f* location, const TAVUElement* map) const;

    // A blip's label, right of the blip and centred in its height when the
    // blip is the taller; cut at the map's right edge with ClipText. Nothing
    // without labels, a label or a font.
    void DrawBlipLabel(TAVUElement* blip, TAVUFont* font, const char* label,
                       const TAVUElement* map) const;

    _Point3f Origin{0.0f, 0.0f, 0.0f};
    float RotationAngle = 0.0f; // radians
    float MapSizeX = 100.0f;    // half extents in world units
    float MapSizeY = 100.0f;
    bool Radial = false;
    bool ZClipping = false;
    bool ShowLabels = true;
    bool Rotation = false;
    bool ClipText = false;
    float ZMin = -10.0f; // the band around Origin.Z that ZClipping keeps
    float ZMax = 10.0f;

private:
    bool InZBand(float z) const;
    bool InArea(const _Point3f& location) const;
};
