#include "TAVUMapBlipView.h"

#include "CUIManager.h"
#include "StringHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUMapBlip.h"
#include "TAVUMapView.h"

namespace {
const char kTypeWord[] = "mapblipview";
} // namespace

TAVUFactory<TAVUMapBlipView> g_TAVUMapBlipViewFactory(kTypeWord);

TAVUMapBlipView::TAVUMapBlipView(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name) {}

TAVUMapBlipView::~TAVUMapBlipView() {
    TAVUMapView* view = View();
    if (view && view->HoverBlipID == ID) view->BlipHoverStop(this);
}

bool TAVUMapBlipView::FromXML(XMLNode*, XMLNode*) {
    return false;
}

bool TAVUMapBlipView::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUFrame::IsTypeOf(type);
}

TAVUMapView* TAVUMapBlipView::View() const {
    return dynamic_cast<TAVUMapView*>(Parent);
}

// The blip belongs to another map and may be deleted at any time; its ID
// tells whether it still exists.
TAVUMapBlip* TAVUMapBlipView::LiveBlip() const {
    auto found = g_UIManager.ElementsByID.find(BlipID);
    if (!Blip || found == g_UIManager.ElementsByID.end() || found->second != Blip) return nullptr;
    return Blip;
}

void TAVUMapBlipView::Render() {
    TAVUElementWatch watch(this);
    TAVUFrame::Render();
    if (!watch.Alive()) return;
    TAVUMapBlip* blip = LiveBlip();
    TAVUMapView* view = View();
    if (blip && view) view->DrawBlipLabel(this, blip->Font, blip->Label, view);
}

void TAVUMapBlipView::OnMouseEnter(_Point2i& point) {
    TAVUElementWatch watch(this);
    if (TAVUMapView* view = View()) view->BlipHover(this, point);
    if (watch.Alive()) TAVUFrame::OnMouseEnter(point);
}

void TAVUMapBlipView::OnMouseExit(TAVUElement* next) {
    TAVUMapView* view = View();
    if (view && view->HoverBlipID == ID) view->BlipHoverStop(this);
    TAVUFrame::OnMouseExit(next);
}

bool TAVUMapBlipView::SetTooltip(TAVUTooltip* tooltip) {
    TAVUMapBlip* blip = LiveBlip();
    return blip && blip->SetTooltip(tooltip);
}

void TAVUMapBlipView::UpdateSize() {
    TAVUMapBlip* blip = LiveBlip();
    if (!blip) return;
    Width = blip->Width;
    Height = blip->Height;
    WidthPosition = blip->WidthPosition;
    HeightPosition = blip->HeightPosition;
    RecalculateSize(true);
}
