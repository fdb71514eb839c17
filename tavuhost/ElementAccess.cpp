// The element's class is the module's: this file sees it as imported, and
// touches only its fields and its table of virtual functions.
#undef TAVU_EXPORTS

#include "ElementAccess.h"

#include "CUIManager.h"
#include "TAVUElement.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUScreen.h"
#include "TAVUSkin.h"

#include "HostText.h"

std::string ElementAccess::FullName(TAVUElement* element) {
    return element && element->FullName ? element->FullName : "";
}

bool ElementAccess::StoragePosition(TAVUElement* element, StoredPosition& position) {
    return element &&
           element->GetStoragePosition(position.X, position.Y, position.Width, position.Height);
}

void ElementAccess::Place(TAVUElement* element, const StoredPosition& position) {
    if (!element) return;
    element->X = position.X;
    element->Y = position.Y;
    element->Width = int(position.Width);
    element->Height = int(position.Height);
    element->XPosition.Type = element->YPosition.Type = ElementPosition::Absolute;
    element->WidthPosition.Type = element->HeightPosition.Type = ElementPosition::Absolute;
}

TAVUElement* ElementAccess::Screen(CUIManager* manager) {
    return manager ? manager->Screen : nullptr;
}

TAVUElement* ElementAccess::Parent(TAVUElement* element) {
    return element ? element->Parent : nullptr;
}

TAVUElement* ElementAccess::FirstChild(TAVUElement* element) {
    return element ? element->FirstChild : nullptr;
}

TAVUElement* ElementAccess::Next(TAVUElement* element) {
    return element ? element->Next : nullptr;
}

TAVUElement* ElementAccess::ByID(CUIManager* manager, unsigned id) {
    if (!manager || !id) return nullptr;
    auto found = manager->ElementsByID.find(id);
    return found == manager->ElementsByID.end() ? nullptr : found->second;
}

namespace {

// The maps' own lookups compare through the module's string class, which the
// host does not link, so they are walked here instead; they are short.
template <typename Map>
const typename Map::mapped_type* FindNoCase(const Map& map, const char* key) {
    for (const auto& entry : map)
        if (SameName(entry.first.c_str(), key)) return &entry.second;
    return nullptr;
}

} // namespace

std::string ElementAccess::SkinnedTemplate(CUIManager* manager, const std::string& name) {
    TAVUSkin* skin = manager ? manager->CurrentSkin : nullptr;
    if (skin)
        if (char* const* mapped = FindNoCase(skin->Templates, name.c_str()); mapped && *mapped)
            return *mapped;
    return name;
}

ElementFacts ElementAccess::Facts(CUIManager* manager, TAVUElement* element) {
    ElementFacts facts;
    if (!element) return facts;
    facts.ID = element->ID;
    facts.FullName = FullName(element);
    facts.Name = element->Name ? element->Name : "";
    facts.Type = element->Type ? element->Type : "";
    facts.X = element->AbsolutePosition.x;
    facts.Y = element->AbsolutePosition.y;
    facts.Width = element->Width;
    facts.Height = element->Height;
    facts.Shown = element->Visible;
    facts.Visible = true;
    for (TAVUElement* step = element; step; step = step->Parent)
        facts.Visible = facts.Visible && step->Visible;
    facts.Focused = manager && manager->FocusElementID == element->ID;
    facts.MouseOver = manager && manager->MouseOverElementID == element->ID;
    facts.Skin = manager && manager->CurrentSkin && manager->CurrentSkin->Name
                     ? manager->CurrentSkin->Name
                     : "";
    return facts;
}

std::string ElementAccess::EventOfAtom(TAVUElement* element, unsigned atom) {
    if (!element || !atom) return "";
    const struct {
        TAVUEmbeddedScript* Script;
        const char* Name;
    } events[] = {
        {element->OnLoad, "OnLoad"},
        {element->OnUnload, "OnUnload"},
        {element->OnLeftClick, "OnLeftClick"},
        {element->OnRightClick, "OnRightClick"},
        {element->OnDoubleLeftClick, "OnDoubleLeftClick"},
        {element->OnDoubleRightClick, "OnDoubleRightClick"},
        {element->OnMouseEnterScript, "OnMouseEnter"},
        {element->OnMouseExitScript, "OnMouseExit"},
        {element->OnMouseMoveScript, "OnMouseMove"},
        {element->OnMouseWheelScript, "OnMouseWheel"},
        {element->OnKeyboardEnterScript, "OnKeyboardEnter"},
        {element->OnKeyboardExitScript, "OnKeyboardExit"},
        {element->OnKeyUpScript, "OnKeyUp"},
        {element->OnKeyDownScript, "OnKeyDown"},
        {element->OnLeftDown, "OnLeftDown"},
        {element->OnRightDown, "OnRightDown"},
        {element->OnRender, "OnRender"},
    };
    for (const auto& event : events)
        if (event.Script && event.Script->Atom == atom) return event.Name;
    return "";
}
