#include "TAVUMapBlip.h"

#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUFont.h"
#include "TAVUMap.h"
#include "TAVUScriptTypes.h"
#include "TAVUTooltip.h"

#include <cstdio>

namespace {
const char kTypeWord[] = "mapblip";
} // namespace

TAVUFactory<TAVUMapBlip> g_TAVUMapBlipFactory(kTypeWord);

TAVUMapBlip::TAVUMapBlip(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name) {}

TAVUMapBlip::~TAVUMapBlip() {
    if (TAVUMap* map = Map()) {
        if (map->HoverBlipID == ID) map->BlipHoverStop(this);
        map->ForgetBlip(this);
    }
    StrFree(Custom);
    StrFree(Label);
    TAVUFont::Delete(Font);
    if (OnSetTooltip) OnSetTooltip->Delete();
}

bool TAVUMapBlip::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUFrame::FromXML(node, templateNode)) return false;
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    if (TAVUEmbeddedScript* script =
            EmbeddedScriptFromXML(node, "OnSetTooltip", templateNode, "uint TooltipID")) {
        if (OnSetTooltip) OnSetTooltip->Delete();
        OnSetTooltip = script;
    }
    return true;
}

bool TAVUMapBlip::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUFrame::IsTypeOf(type);
}

// The map is found by its class, not trusted from the parent pointer: a blip
// may be loaded under anything, and a map that is being torn down is no
// longer one.
TAVUMap* TAVUMapBlip::Map() const {
    return dynamic_cast<TAVUMap*>(Parent);
}

void TAVUMapBlip::Render() {
    TAVUElementWatch watch(this);
    TAVUFrame::Render();
    if (!watch.Alive()) return;
    if (TAVUMap* map = Map()) map->DrawBlipLabel(this, Font, Label, map);
}

void TAVUMapBlip::OnMouseEnter(_Point2i& point) {
    TAVUElementWatch watch(this);
    if (TAVUMap* map = Map()) map->BlipHover(this, point);
    if (watch.Alive()) TAVUFrame::OnMouseEnter(point);
}

void TAVUMapBlip::OnMouseExit(TAVUElement* next) {
    TAVUMap* map = Map();
    if (map && map->HoverBlipID == ID) map->BlipHoverStop(this);
    TAVUFrame::OnMouseExit(next);
}

bool TAVUMapBlip::SetTooltip(TAVUTooltip* tooltip) {
    if (!OnSetTooltip || !tooltip) return false;
    tooltip->Reset();
    char id[16];
    snprintf(id, sizeof(id), "%u", tooltip->ID);
    char* argv[] = {id};
    OnSetTooltip->Execute(1, argv);
    return true;
}

RXTypeDefinition* TAVUMapBlip::GetRXType() {
    return pTAVUMapBlipType;
}
