#include "TAVUMapView.h"

#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUMapBlip.h"
#include "TAVUMapBlipView.h"
#include "TAVUTooltip.h"

#include <cstdio>

namespace {
const char kTypeWord[] = "mapview";
} // namespace

TAVUFactory<TAVUMapView> g_TAVUMapViewFactory(kTypeWord);

TAVUMapView::TAVUMapView(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

// The views are children and go with the element; the map of them only points.
TAVUMapView::~TAVUMapView() = default;

bool TAVUMapView::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    ReadAreaKeys(node, templateNode);
    return true;
}

bool TAVUMapView::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUMapView::OnCreate() {
    TAVUElement::OnCreate();
    Tooltip = dynamic_cast<TAVUTooltip*>(FindUsableChild("Tooltip", "tooltip"));
}

void TAVUMapView::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (code == TAVU_NOTIFY_CHILD_REMOVED && source) {
        if (source == Tooltip) Tooltip = nullptr;
        for (auto entry = Views.begin(); entry != Views.end(); ++entry)
            if (entry->second == source) {
                Views.erase(entry);
                break;
            }
    }
    TAVUElement::OnNotify(source, code, value);
}

void TAVUMapView::Render() {
    if (Radial)
        UpdateRadius();
    else
        UpdateBox();
    TAVUElement::Render();
}

void TAVUMapView::UpdateRadius() {
    PlaceViews();
}

void TAVUMapView::UpdateBox() {
    PlaceViews();
}

void TAVUMapView::PlaceViews() {
    MendExtents();
    for (auto& entry : Views) {
        TAVUMapBlipView* view = entry.second;
        if (!view) continue;
        TAVUMapBlip* blip = view->LiveBlip();
        Place(view, blip ? &blip->Location : nullptr, this);
    }
}

TAVUMapBlipView* TAVUMapView::AddView(TAVUMapBlip* blip) {
    if (!blip) return nullptr;
    if (TAVUMapBlipView* view = Views[blip]) return view;
    Views.erase(blip);
    char name[32];
    snprintf(name, sizeof(name), "View %u", blip->ID);
    TAVUElementWatch watch(this);
    auto* view = dynamic_cast<TAVUMapBlipView*>(g_UIManager.LoadElement(this, "mapblipview", name));
    if (!view || !watch.Alive()) return nullptr;
    view->Blip = blip;
    view->BlipID = blip->ID;
    view->Texture = nullptr;
    view->BackgroundColor = blip->BackgroundColor;
    view->UpdateSize();
    Views[blip] = view;
    return view;
}

void TAVUMapView::BlipHover(TAVUMapBlipView* view, _Point2i& point) {
    HoverBlipID = view->ID;
    if (!Tooltip) return;
    TAVUElementWatch viewWatch(this);
    TAVUElementWatch blipWatch(view);
    if (!view->SetTooltip(Tooltip)) return;
    if (!viewWatch.Alive() || !blipWatch.Alive() || !Tooltip) return;
    Tooltip->X = WrapAdd(view->X, 10);
    Tooltip->Y = WrapAdd(WrapAdd(view->Y, view->Height), 2);
    Tooltip->Show(true);
}

void TAVUMapView::BlipHoverStop(TAVUMapBlipView* view) {
    if (HoverBlipID == view->ID) HoverBlipID = 0;
    if (Tooltip) Tooltip->Show(false);
}
