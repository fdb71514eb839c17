// "mapblipview": the frame a map view shows for one blip, with the blip's
// label and tooltip script. It has no keys of its own: loading one from a
// file fails, and only a map view makes them.
#pragma once

#include "TAVUFrame.h"

class TAVUMapBlip;
class TAVUMapView;
class TAVUTooltip;

class TAVU_API TAVUMapBlipView : public TAVUFrame {
public:
    TAVUMapBlipView(const char* type, TAVUElement* parent, const char* name);

    ~TAVUMapBlipView() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    void OnMouseEnter(_Point2i& point) override;
    void OnMouseExit(TAVUElement* next) override;

    // The blip's tooltip script fills the tooltip.
    bool SetTooltip(TAVUTooltip* tooltip);
    // Takes the blip's size and size specifications.
    void UpdateSize();
    // The blip, or null once it has been deleted.
    TAVUMapBlip* LiveBlip() const;

    TAVUMapBlip* Blip = nullptr;
    unsigned BlipID = 0;

private:
    TAVUMapView* View() const;
};
