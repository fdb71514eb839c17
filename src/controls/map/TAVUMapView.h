// "mapview": a second look at blips that a map elsewhere owns. It places one
// view frame per blip with the same projection as a map, reading each
// location from the blip, so two pictures of one world stay in step.
//
// Views are made by code only (AddView); a file cannot make one. A view
// whose blip has gone is hidden and left alone until it is removed.
#pragma once

#include "TAVUElement.h"
#include "TAVUMapArea.h"

#include <map>

class TAVUMapBlip;
class TAVUMapBlipView;
class TAVUTooltip;

class TAVU_API TAVUMapView : public TAVUElement, public TAVUMapArea {
public:
    TAVUMapView(const char* type, TAVUElement* parent, const char* name);

    ~TAVUMapView() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    void OnCreate() override;

    virtual void BlipHover(TAVUMapBlipView* view, _Point2i& point);
    virtual void BlipHoverStop(TAVUMapBlipView* view);
    virtual void UpdateRadius();
    virtual void UpdateBox();

    // A view of the blip in this map view, sized like the blip; null when it
    // cannot be made. A blip shown twice keeps its first view.
    TAVUMapBlipView* AddView(TAVUMapBlip* blip);

    std::map<TAVUMapBlip*, TAVUMapBlipView*> Views;
    unsigned HoverBlipID = 0;
    TAVUTooltip* Tooltip = nullptr;

private:
    void PlaceViews();
};
