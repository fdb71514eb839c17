#include "TAVUMapArea.h"

#include "NumberHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElement.h"
#include "TAVUFont.h"

#include <cmath>

void TAVUMapArea::ReadAreaKeys(XMLNode* node, XMLNode* templateNode) {
    ZClipping = TAVUControlHelpers::ReadToggle(node, templateNode, "ClipZ", false);
    Radial = TAVUControlHelpers::ReadToggle(node, templateNode, "ClipRadius", false);
    // A file that does not ask for labels has none, whatever a new map shows.
    ShowLabels = TAVUControlHelpers::ReadToggle(node, templateNode, "ShowLabels", false);
    Rotation = TAVUControlHelpers::ReadToggle(node, templateNode, "Rotation", false);
    MapSizeX = TAVUControlHelpers::ReadFloat(node, templateNode, "MapSizeX", 0.0f) * 0.5f;
    MapSizeY = TAVUControlHelpers::ReadFloat(node, templateNode, "MapSizeY", 0.0f) * 0.5f;
}

void TAVUMapArea::MendExtents() {
    if (Radial) {
        if (MapSizeX == 0.0f) MapSizeX = 1.0f;
    } else if (MapSizeY == 0.0f) {
        MapSizeY = 1.0f;
    }
}

// Both ends of the band count as inside. NaN is outside nothing.
bool TAVUMapArea::InZBand(float z) const {
    return !ZClipping || !(z < Origin.Z + ZMin || z > Origin.Z + ZMax);
}

// Radial: strictly inside the circle, so NaN is out. Box: the edges are in,
// and NaN is in as well, since no comparison with it holds.
bool TAVUMapArea::InArea(const _Point3f& location) const {
    if (Radial) {
        float dy = Origin.Y - location.Y;
        float dx = Origin.X - location.X;
        return dy * dy + dx * dx < MapSizeX * MapSizeX;
    }
    return !(location.X < Origin.X - MapSizeX || location.X > Origin.X + MapSizeX ||
             location.Y < Origin.Y - MapSizeY || location.Y > Origin.Y + MapSizeY);
}

bool TAVUMapArea::Project(const _Point3f& location, int mapWidth, int mapHeight, int blipWidth,
                          int blipHeight, _Point2i& position) const {
    if (!InZBand(location.Z) || !InArea(location)) return false;
    float rangeX = MapSizeX;
    float rangeY = Radial ? MapSizeX : MapSizeY;
    float px, py;
    if (Rotation) {
        float dx = location.X - Origin.X;
        float dy = location.Y - Origin.Y;
        float c = cosf(-RotationAngle);
        float s = sinf(-RotationAngle);
        px = s * dx + c * dy + rangeX;
        py = -(c * dx - s * dy) + rangeY;
    } else {
        px = location.X - (Origin.X - rangeX);
        py = location.Y - (Origin.Y - rangeY);
    }
    position.x = TruncateToInt(px / (rangeX + rangeX) * float(mapWidth) - float(blipWidth >> 1));
    position.y = TruncateToInt(py / (rangeY + rangeY) * float(mapHeight) - float(blipHeight >> 1));
    return true;
}

void TAVUMapArea::DrawBlipLabel(TAVUElement* blip, TAVUFont* font, const char* label,
                                const TAVUElement* map) const {
    if (!ShowLabels || !label || !font) return;
    int x = WrapAdd(WrapAdd(blip->AbsolutePosition.x, blip->Width), 2);
    int y = blip->AbsolutePosition.y;
    int fontHeight = int(font->Height);
    if (blip->Height > fontHeight) y = WrapAdd(y, WrapSubtract(blip->Height, fontHeight) >> 1);
    if (ClipText)
        blip->DrawTextClipped(font, label, x, y, WrapAdd(map->AbsolutePosition.x, map->Width));
    else
        blip->DrawText(font, label, x, y);
}

void TAVUMapArea::Place(TAVUElement* blip, const _Point3f* location, const TAVUElement* map) const {
    _Point2i position;
    if (!location ||
        !Project(*location, map->Width, map->Height, blip->Width, blip->Height, position)) {
        blip->Show(false);
        return;
    }
    blip->Show(true);
    blip->X = position.x;
    blip->Y = position.y;
}
