#include "TAVUMap.h"

#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUMapBlip.h"
#include "TAVUScriptTypes.h"
#include "TAVUTooltip.h"

#include <cctype>
#include <vector>

namespace {
const char kTypeWord[] = "map";
const char kDefaultBlipFactory[] = "mapblip";

bool IsEmpty(const char* text) {
    return !text || !text[0];
}
} // namespace

TAVUFactory<TAVUMap> g_TAVUMapFactory(kTypeWord);

TAVUMap::TAVUMap(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {
    StrCopyBounded(BlipFactory, kDefaultBlipFactory, sizeof(BlipFactory));
}

TAVUMap::~TAVUMap() {
    StrFree(BlipTemplate);
    BlipTemplate = nullptr;
    ClearBlips();
}

bool TAVUMap::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    ReadAreaKeys(node, templateNode);
    const char* factory = TAVUControlHelpers::ReadString(node, templateNode, "BlipFactory");
    StrCopyBounded(BlipFactory, IsEmpty(factory) ? kDefaultBlipFactory : factory,
                   sizeof(BlipFactory));
    const char* blipTemplate = TAVUControlHelpers::ReadString(node, templateNode, "BlipTemplate");
    TAVUControlHelpers::ReplaceText(BlipTemplate, blipTemplate);
    return true;
}

bool TAVUMap::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUMap::OnCreate() {
    TAVUElement::OnCreate();
    Tooltip = dynamic_cast<TAVUTooltip*>(FindUsableChild("Tooltip", "tooltip"));
}

void TAVUMap::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (code == TAVU_NOTIFY_CHILD_REMOVED && source && source == Tooltip) Tooltip = nullptr;
    TAVUElement::OnNotify(source, code, value);
}

void TAVUMap::Render() {
    if (Radial)
        UpdateRadius();
    else
        UpdateBox();
    TAVUElement::Render();
}

void TAVUMap::UpdateRadius() {
    PlaceBlips();
}

void TAVUMap::UpdateBox() {
    PlaceBlips();
}

// Showing and hiding runs no script, so the registry cannot change under
// the walk. A blip out of range costs a test and a flag.
void TAVUMap::PlaceBlips() {
    MendExtents();
    for (auto& entry : BlipsByID)
        if (TAVUMapBlip* blip = entry.second) Place(blip, &blip->Location, this);
}

TAVUMapBlip* TAVUMap::NewBlip(const char* name, const char* blipTemplate, const char* type) {
    if (IsEmpty(blipTemplate)) blipTemplate = BlipTemplate;
    if (IsEmpty(type)) type = BlipFactory;
    TAVUElementWatch watch(this);
    TAVUElement* element =
        IsEmpty(blipTemplate)
            ? g_UIManager.LoadElement(this, type, name)
            : g_UIManager.LoadElement(this, type, name, g_UIManager.FindTemplate(blipTemplate),
                                      nullptr);
    if (!element || !watch.Alive()) return nullptr;
    // A factory that makes something other than a blip cannot serve a map.
    auto* blip = dynamic_cast<TAVUMapBlip*>(element);
    if (!blip) {
        DeleteChild(element);
        return nullptr;
    }
    blip->MoveZTop(false);
    return blip;
}

unsigned TAVUMap::AddBlip(const char* name, _Point3f& location, unsigned size, const char* label,
                          const char* blipTemplate, const char* type) {
    TAVUElementWatch watch(this);
    if (TAVUMapBlip* old = BlipsByName[NameKey(name)]) {
        BlipsByName.erase(NameKey(old->Name));
        BlipsByID.erase(old->ID);
        DeleteChild(old);
        if (!watch.Alive()) return 0;
    }
    TAVUMapBlip* blip = NewBlip(name, blipTemplate, type);
    if (!blip || !watch.Alive()) return 0;
    blip->Width = blip->Height = int(size);
    if (label) TAVUControlHelpers::ReplaceText(blip->Label, label);
    blip->Location = location;
    BlipsByID[blip->ID] = blip;
    BlipsByName[NameKey(name)] = blip;
    ++BlipCount;
    return blip->ID;
}

std::string TAVUMap::NameKey(const char* name) {
    std::string key = name ? name : "";
    for (char& c : key)
        c = char(tolower((unsigned char)c));
    return key;
}

TAVUMapBlip* TAVUMap::FindBlip(const char* name) {
    return BlipsByName[NameKey(name)];
}

void TAVUMap::ForgetBlip(TAVUMapBlip* blip) {
    auto found = BlipsByID.find(blip->ID);
    if (found == BlipsByID.end() || !found->second) return;
    BlipsByName.erase(NameKey(blip->Name));
    BlipsByID.erase(found);
    --BlipCount;
}

// The deletion comes last: the blip's "OnUnload" may delete this map.
void TAVUMap::RemoveBlip(unsigned id) {
    TAVUMapBlip* blip = BlipsByID[id];
    if (!blip) return;
    ForgetBlip(blip);
    DeleteChild(blip);
}

// The registries are emptied first, so that the scripts the deletions run
// find a map without blips, and the walk goes by IDs: a script may delete
// further blips, or the map itself.
void TAVUMap::ClearBlips() {
    std::vector<unsigned> ids;
    for (const auto& entry : BlipsByID)
        if (entry.second) ids.push_back(entry.first);
    BlipsByID.clear();
    BlipsByName.clear();
    BlipCount = 0;
    TAVUElementWatch watch(this);
    for (unsigned id : ids) {
        auto found = g_UIManager.ElementsByID.find(id);
        if (found == g_UIManager.ElementsByID.end() || !found->second) continue;
        if (found->second->Parent == this) DeleteChild(found->second);
        if (!watch.Alive()) return;
    }
}

void TAVUMap::UpdateBlip(unsigned id, _Point3f& location) {
    if (TAVUMapBlip* blip = BlipsByID[id]) blip->Location = location;
}

void TAVUMap::UpdateBlipLabel(unsigned id, const char* text) {
    if (TAVUMapBlip* blip = BlipsByID[id]) TAVUControlHelpers::ReplaceText(blip->Label, text);
}

void TAVUMap::UpdateBlipSize(unsigned id, unsigned size) {
    if (TAVUMapBlip* blip = BlipsByID[id]) blip->Width = blip->Height = int(size);
}

void TAVUMap::BlipHover(TAVUMapBlip* blip, _Point2i& point) {
    HoverBlipID = blip->ID;
    if (!Tooltip) return;
    TAVUElementWatch mapWatch(this);
    TAVUElementWatch blipWatch(blip);
    if (!blip->SetTooltip(Tooltip)) return;
    // The script may have deleted the blip, the tooltip or this map.
    if (!mapWatch.Alive() || !blipWatch.Alive() || !Tooltip) return;
    Tooltip->X = WrapAdd(blip->X, 10);
    Tooltip->Y = WrapAdd(WrapAdd(blip->Y, blip->Height), 2);
    Tooltip->Show(true);
}

void TAVUMap::BlipHoverStop(TAVUMapBlip* blip) {
    if (HoverBlipID == blip->ID) HoverBlipID = 0;
    if (Tooltip) Tooltip->Show(false);
}

RXTypeDefinition* TAVUMap::GetRXType() {
    return pTAVUMapType;
}
