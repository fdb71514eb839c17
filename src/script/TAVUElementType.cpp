#include "TAVUElementType.h"

#include "CUIManager.h"
#include "Module.h"
#include "TAVUElement.h"
#include "TAVUSkin.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <cstring>

namespace {
enum Member : uint32_t {
    Name,
    FullName,
    ID,
    X,
    Y,
    AbsoluteX,
    AbsoluteY,
    Width,
    Height,
    Visible,
    ReallyVisible,
    AlwaysOnTop,
    Strata,
    MouseOver,
    Focus,
    Type,
    Alpha,
    AbsoluteAlpha,
    FadeAlpha,
    FadeDelay,
    FadeDuration,
    FadeState,
    LeftClickThru,
    RightClickThru,
    Parent,
    Children,
    Next,
    Previous,
    FindChild,
    FindUsableChild,
    AddChildMember,
    GetMetadata,
    HitTest,
    MemberCount
};

enum Method : uint32_t {
    LeftClick,
    LeftMouseDown,
    LeftMouseUp,
    RightClick,
    RightMouseDown,
    RightMouseUp,
    SetX,
    SetY,
    SetWidth,
    SetHeight,
    SetFocus,
    SetZOrder,
    SetAlpha,
    Show,
    Hide,
    ToggleVisible,
    Destroy,
    AddChildMethod,
    SetLeftClickThru,
    SetRightClickThru,
    SetFadeAlpha,
    SetFadeDelay,
    SetFadeDuration,
    BeginFade,
    ResetFade,
    InstantFade,
    SetMetadata,
    UnsetMetadata,
    SetStrata,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {"Name",
                                               "FullName",
                                               "ID",
                                               "X",
                                               "Y",
                                               "AbsoluteX",
                                               "AbsoluteY",
                                               "Width",
                                               "Height",
                                               "Visible",
                                               "ReallyVisible",
                                               "AlwaysOnTop",
                                               "Strata",
                                               "MouseOver",
                                               "Focus",
                                               "Type",
                                               "Alpha",
                                               "AbsoluteAlpha",
                                               "FadeAlpha",
                                               "FadeDelay",
                                               "FadeDuration",
                                               "FadeState",
                                               "LeftClickThru",
                                               "RightClickThru",
                                               "Parent",
                                               "Children",
                                               "Next",
                                               "Previous",
                                               "FindChild",
                                               "FindUsableChild",
                                               "AddChild",
                                               "GetMetadata",
                                               "HitTest"};

const char* const kMethodNames[MethodCount] = {"LeftClick",
                                               "LeftMouseDown",
                                               "LeftMouseUp",
                                               "RightClick",
                                               "RightMouseDown",
                                               "RightMouseUp",
                                               "SetX",
                                               "SetY",
                                               "SetWidth",
                                               "SetHeight",
                                               "SetFocus",
                                               "SetZOrder",
                                               "SetAlpha",
                                               "Show",
                                               "Hide",
                                               "ToggleVisible",
                                               "Destroy",
                                               "AddChild",
                                               "SetLeftClickThru",
                                               "SetRightClickThru",
                                               "SetFadeAlpha",
                                               "SetFadeDelay",
                                               "SetFadeDuration",
                                               "BeginFade",
                                               "ResetFade",
                                               "InstantFade",
                                               "SetMetadata",
                                               "UnsetMetadata",
                                               "SetStrata"};

const char* const kFadeStateNames[] = {"NORMAL", "DELAYING", "FADING", "FADED"};

// The points that the click methods deliver. They use the element's relative
// position, in unsigned arithmetic, and are kept to the bit as scripts know them.
_Point2i PointA(TAVUElement* e) {
    unsigned x = ((unsigned(e->Width) + unsigned(e->X)) >> 1) + unsigned(e->X);
    unsigned y = ((unsigned(e->Height) + unsigned(e->Y)) >> 1) + unsigned(e->Y);
    return {int(x), int(y)};
}

_Point2i PointB(TAVUElement* e) {
    unsigned width = unsigned(e->Width);
    unsigned x = ((width + unsigned(e->X) + width) >> 1) + unsigned(e->X) + width;
    unsigned y = ((unsigned(e->Height) + unsigned(e->Y)) >> 1) + unsigned(e->Y);
    return {int(x), int(y)};
}

void RecalculateChildren(TAVUElement* element) {
    for (TAVUElement* child = element->FirstChild; child; child = child->Next)
        child->RecalculateSize(true);
}
} // namespace

TAVUElementType::TAVUElementType() : TAVUScriptType("tavuelement") {
    for (uint32_t id = 0; id < MemberCount; ++id)
        AddMember(id, kMemberNames[id], nullptr);
    for (uint32_t id = 0; id < MethodCount; ++id)
        AddMethod(id, kMethodNames[id], nullptr);
}

RXTypeDefinition* TAVUElementType::Make() {
    return new TAVUElementType();
}

bool TAVUElementType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    auto* element = static_cast<TAVUElement*>(object.Value.Pointer);
    return element && CopyText(element->Name, buffer, size);
}

bool TAVUElementType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                                _RXTypeVar& result) {
    auto* element = static_cast<TAVUElement*>(object.Value.Pointer);
    if (!element || member->ID >= MemberCount) return false;
    uint32_t id = member->ID;
    if (id <= Height) return GetGeometryMember(element, id, result);
    if (id <= RightClickThru) return GetStateMember(element, id, result);
    return GetTreeMember(element, id, argc, argv, result);
}

bool TAVUElementType::GetGeometryMember(TAVUElement* element, uint32_t id, _RXTypeVar& result) {
    switch (id) {
    case Name:
        return SetString(result, element->Name);
    case FullName:
        return SetString(result, element->FullName);
    case ID:
        return SetInt(result, int(element->ID));
    case X:
        return SetInt(result, element->X);
    case Y:
        return SetInt(result, element->Y);
    case AbsoluteX:
        return SetInt(result, element->AbsolutePosition.x);
    case AbsoluteY:
        return SetInt(result, element->AbsolutePosition.y);
    case Width:
        return SetInt(result, element->Width);
    case Height:
        return SetInt(result, element->Height);
    }
    return false;
}

bool TAVUElementType::GetStateMember(TAVUElement* element, uint32_t id, _RXTypeVar& result) {
    switch (id) {
    case Visible:
        return SetBool(result, element->Visible);
    // "ReallyVisible" is registered but has no case: it always fails.
    case AlwaysOnTop:
        return SetBool(result, element->Strata == 127);
    case Strata:
        return SetInt(result, element->Strata);
    case MouseOver:
        return SetBool(result, element->IsMouseOver());
    case Focus:
        return SetBool(result, element->IsFocus());
    case Type:
        return SetString(result, element->Type);
    case Alpha:
        return SetFloat(result, element->Alpha);
    case AbsoluteAlpha:
        return SetFloat(result, element->CurrentAlpha);
    case FadeAlpha:
        return SetFloat(result, element->FadeAlpha);
    case FadeDelay:
        return SetUInt(result, element->FadeDelay);
    case FadeDuration:
        return SetUInt(result, element->FadeDuration);
    case FadeState:
        // An unknown state keeps the value as it was, typed as text.
        if (element->FadeState < 4) return SetString(result, kFadeStateNames[element->FadeState]);
        result.Type = g_pStringType;
        return true;
    case LeftClickThru:
        return SetBool(result, element->LeftClickThru);
    case RightClickThru:
        return SetBool(result, element->RightClickThru);
    }
    return false;
}

bool TAVUElementType::GetTreeMember(TAVUElement* element, uint32_t id, int argc, char* argv[],
                                    _RXTypeVar& result) {
    switch (id) {
    case Parent:
        return SetElement(result, element->Parent);
    case Children:
        return SetElement(result, element->FirstChild);
    case Next:
        return SetElement(result, element->Next);
    case Previous:
        return SetElement(result, element->Previous);
    case FindChild:
        return argc >= 1 && SetElement(result, element->FindChild(argv[0]));
    case FindUsableChild:
        return argc >= 2 && SetElement(result, element->FindUsableChild(argv[0], argv[1]));
    case AddChildMember:
        return SetElement(result, AddChild(element, argc, argv));
    case GetMetadata: {
        if (argc < 1) return false;
        auto found = g_UIManager.Metadata.find(element->ID);
        if (found == g_UIManager.Metadata.end()) return false;
        auto value = found->second->find(utf8stringnocase(argv[0]));
        return value != found->second->end() && SetString(result, value->second.c_str());
    }
    case HitTest: {
        if (argc == 0) return SetBool(result, element->HitTest(g_UIManager.MousePosition));
        if (argc != 2) return false;
        _Point2i point{ArgInt(argv[0]), ArgInt(argv[1])};
        return SetBool(result, element->HitTest(point));
    }
    }
    return false;
}

bool TAVUElementType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                char* argv[]) {
    auto* element = static_cast<TAVUElement*>(object.Value.Pointer);
    if (!element || method->ID >= MethodCount) return false;
    uint32_t id = method->ID;
    if (id <= RightMouseUp) return RunInputMethod(element, id);
    switch (id) {
    case SetX:
    case SetY:
    case SetWidth:
    case SetHeight:
    case SetAlpha:
    case SetFadeAlpha:
    case SetFadeDelay:
    case SetFadeDuration:
    case SetLeftClickThru:
    case SetRightClickThru:
    case SetStrata:
    case SetZOrder:
        if (argc < 1) return false;
        break;
    }
    switch (id) {
    case SetX:
        element->X = ArgInt(argv[0]);
        return true;
    case SetY:
        element->Y = ArgInt(argv[0]);
        return true;
    case SetWidth:
        element->Width = ArgInt(argv[0]);
        RecalculateChildren(element);
        return true;
    case SetHeight:
        element->Height = ArgInt(argv[0]);
        RecalculateChildren(element);
        return true;
    case SetFocus:
        g_UIManager.SetFocusElement(element);
        return true;
    case SetZOrder:
        return ApplyZOrder(element, argv[0]);
    case SetAlpha:
        element->Alpha = ArgFloat(argv[0]);
        return true;
    case Show:
        element->Show(true);
        return true;
    case Hide:
        element->Show(false);
        return true;
    case ToggleVisible:
        element->Show(!element->Visible);
        return true;
    case Destroy:
        // It acts, and yet reports failure: scripts know it so.
        if (element->Parent) element->Parent->DeleteChild(element);
        return false;
    case AddChildMethod:
        return AddChild(element, argc, argv) != nullptr;
    case SetLeftClickThru:
        element->LeftClickThru = ArgToggle(argv[0]);
        return true;
    case SetRightClickThru:
        element->RightClickThru = ArgToggle(argv[0]);
        return true;
    case SetFadeAlpha:
        element->FadeAlpha = ArgFloat(argv[0]);
        return true;
    case SetFadeDelay:
        element->FadeDelay = unsigned(ArgInt(argv[0]));
        return true;
    case SetFadeDuration:
        element->FadeDuration = unsigned(ArgInt(argv[0]));
        return true;
    case BeginFade:
        element->FadeState = TAVU_FADE_DELAYING;
        element->FadeStart = g_UIManager.FrameTime;
        return true;
    case ResetFade:
        element->FadeState = TAVU_FADE_NORMAL;
        return true;
    case InstantFade:
        element->FadeState = TAVU_FADE_FADED;
        return true;
    case SetMetadata:
        return argc >= 2 && g_UIManager.SetMetadata(element->ID, argv[0], argv[1]);
    case UnsetMetadata:
        g_UIManager.UnsetMetadata(element->ID, argc >= 1 ? argv[0] : "");
        return true;
    case SetStrata:
        element->Strata = static_cast<signed char>(ArgInt(argv[0]) & 0xFF);
        element->MoveZTop(false);
        return true;
    }
    return false;
}

// The element's own handlers, as a click on it would call them. The handlers
// may run scripts that delete the element: the second half is skipped then.
bool TAVUElementType::RunInputMethod(TAVUElement* element, uint32_t id) {
    _Point2i point =
        (id == RightMouseDown || id == RightMouseUp) ? PointB(element) : PointA(element);
    unsigned elementID = element->ID;
    switch (id) {
    case LeftClick:
        element->OnLMouseDown(point);
        if (g_UIManager.FindElementByID(elementID)) element->OnLMouseUp(point);
        return true;
    case LeftMouseDown:
        element->OnLMouseDown(point);
        return true;
    case LeftMouseUp:
        element->OnLMouseUp(point);
        return true;
    case RightClick:
        element->OnRMouseDown(point);
        if (g_UIManager.FindElementByID(elementID)) element->OnRMouseUp(point);
        return true;
    case RightMouseDown:
        element->OnRMouseDown(point);
        return true;
    case RightMouseUp:
        element->OnRMouseUp(point);
        return true;
    }
    return false;
}

bool TAVUElementType::ApplyZOrder(TAVUElement* element, const char* word) {
    if (ArgWord(word, "alwaysontop"))
        element->Strata = 127;
    else if (ArgWord(word, "notalwaysontop"))
        element->Strata = 0;
    else if (ArgWord(word, "up") || ArgWord(word, "moveup"))
        element->MoveZUp();
    else if (ArgWord(word, "down") || ArgWord(word, "movedown"))
        element->MoveZDown();
    else if (ArgWord(word, "top") || ArgWord(word, "movetop"))
        element->MoveZTop(true);
    else if (ArgWord(word, "bottom") || ArgWord(word, "movebottom"))
        element->MoveZBottom();
    else
        return false;
    return true;
}

TAVUElement* TAVUElementType::AddChild(TAVUElement* parent, int argc, char* argv[]) {
    if (argc < 3) return nullptr;
    TAVUSkin* skin = argc >= 4 ? g_UIManager.FindSkin(argv[3]) : nullptr;
    XMLParser document;
    const char* text = argv[2] ? argv[2] : "";
    if (!document.ParseBuffer(text, strlen(text)) || !document.Root || !document.Root->FirstChild)
        return nullptr;
    TAVUSkin* savedSkin = g_UIManager.CurrentSkin;
    if (skin) g_UIManager.CurrentSkin = skin;
    TAVUElement* made =
        g_UIManager.LoadElement(parent, argv[0], argv[1], document.Root->FirstChild, nullptr);
    g_UIManager.CurrentSkin = savedSkin;
    return made;
}
