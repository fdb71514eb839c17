#include "TAVUElementType.h"

#include "CUIManager.h"
#include "Module.h"
#include "TAVUElement.h"
#include "TAVUSkin.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <cstring>

namespace {
// Member and Method prefixes keep these clear of names that Windows' headers own
// (SetFocus, SetRect).
enum Member : uint32_t {
    MemberName,
    MemberFullName,
    MemberID,
    MemberX,
    MemberY,
    MemberAbsoluteX,
    MemberAbsoluteY,
    MemberWidth,
    MemberHeight,
    MemberVisible,
    MemberReallyVisible,
    MemberAlwaysOnTop,
    MemberStrata,
    MemberMouseOver,
    MemberFocus,
    MemberType,
    MemberAlpha,
    MemberAbsoluteAlpha,
    MemberFadeAlpha,
    MemberFadeDelay,
    MemberFadeDuration,
    MemberFadeState,
    MemberLeftClickThru,
    MemberRightClickThru,
    MemberParent,
    MemberChildren,
    MemberNext,
    MemberPrevious,
    MemberFindChild,
    MemberFindUsableChild,
    MemberAddChild,
    MemberGetMetadata,
    MemberHitTest,
    MemberCount
};

enum Method : uint32_t {
    MethodLeftClick,
    MethodLeftMouseDown,
    MethodLeftMouseUp,
    MethodRightClick,
    MethodRightMouseDown,
    MethodRightMouseUp,
    MethodSetX,
    MethodSetY,
    MethodSetWidth,
    MethodSetHeight,
    MethodSetFocus,
    MethodSetZOrder,
    MethodSetAlpha,
    MethodShow,
    MethodHide,
    MethodToggleVisible,
    MethodDestroy,
    MethodAddChild,
    MethodSetLeftClickThru,
    MethodSetRightClickThru,
    MethodSetFadeAlpha,
    MethodSetFadeDelay,
    MethodSetFadeDuration,
    MethodBeginFade,
    MethodResetFade,
    MethodInstantFade,
    MethodSetMetadata,
    MethodUnsetMetadata,
    MethodSetStrata,
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
    if (id <= MemberHeight) return GetGeometryMember(element, id, result);
    if (id <= MemberRightClickThru) return GetStateMember(element, id, result);
    return GetTreeMember(element, id, argc, argv, result);
}

bool TAVUElementType::GetGeometryMember(TAVUElement* element, uint32_t id, _RXTypeVar& result) {
    switch (id) {
    case MemberName:
        return SetString(result, element->Name);
    case MemberFullName:
        return SetString(result, element->FullName);
    case MemberID:
        return SetInt(result, int(element->ID));
    case MemberX:
        return SetInt(result, element->X);
    case MemberY:
        return SetInt(result, element->Y);
    case MemberAbsoluteX:
        return SetInt(result, element->AbsolutePosition.x);
    case MemberAbsoluteY:
        return SetInt(result, element->AbsolutePosition.y);
    case MemberWidth:
        return SetInt(result, element->Width);
    case MemberHeight:
        return SetInt(result, element->Height);
    }
    return false;
}

bool TAVUElementType::GetStateMember(TAVUElement* element, uint32_t id, _RXTypeVar& result) {
    switch (id) {
    case MemberVisible:
        return SetBool(result, element->Visible);
    // "ReallyVisible" is registered but has no case: it always fails.
    case MemberAlwaysOnTop:
        return SetBool(result, element->Strata == 127);
    case MemberStrata:
        return SetInt(result, element->Strata);
    case MemberMouseOver:
        return SetBool(result, element->IsMouseOver());
    case MemberFocus:
        return SetBool(result, element->IsFocus());
    case MemberType:
        return SetString(result, element->Type);
    case MemberAlpha:
        return SetFloat(result, element->Alpha);
    case MemberAbsoluteAlpha:
        return SetFloat(result, element->CurrentAlpha);
    case MemberFadeAlpha:
        return SetFloat(result, element->FadeAlpha);
    case MemberFadeDelay:
        return SetUInt(result, element->FadeDelay);
    case MemberFadeDuration:
        return SetUInt(result, element->FadeDuration);
    case MemberFadeState:
        // An unknown state keeps the value as it was, typed as text.
        if (element->FadeState < 4) return SetString(result, kFadeStateNames[element->FadeState]);
        result.Type = g_pStringType;
        return true;
    case MemberLeftClickThru:
        return SetBool(result, element->LeftClickThru);
    case MemberRightClickThru:
        return SetBool(result, element->RightClickThru);
    }
    return false;
}

bool TAVUElementType::GetTreeMember(TAVUElement* element, uint32_t id, int argc, char* argv[],
                                    _RXTypeVar& result) {
    switch (id) {
    case MemberParent:
        return SetElement(result, element->Parent);
    case MemberChildren:
        return SetElement(result, element->FirstChild);
    case MemberNext:
        return SetElement(result, element->Next);
    case MemberPrevious:
        return SetElement(result, element->Previous);
    case MemberFindChild:
        return argc >= 1 && SetElement(result, element->FindChild(argv[0]));
    case MemberFindUsableChild:
        return argc >= 2 && SetElement(result, element->FindUsableChild(argv[0], argv[1]));
    case MemberAddChild:
        return SetElement(result, AddChild(element, argc, argv));
    case MemberGetMetadata: {
        if (argc < 1) return false;
        auto found = g_UIManager.Metadata.find(element->ID);
        if (found == g_UIManager.Metadata.end()) return false;
        auto value = found->second->find(utf8stringnocase(argv[0]));
        return value != found->second->end() && SetString(result, value->second.c_str());
    }
    case MemberHitTest: {
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
    if (id <= MethodRightMouseUp) return RunInputMethod(element, id);
    switch (id) {
    case MethodSetX:
    case MethodSetY:
    case MethodSetWidth:
    case MethodSetHeight:
    case MethodSetAlpha:
    case MethodSetFadeAlpha:
    case MethodSetFadeDelay:
    case MethodSetFadeDuration:
    case MethodSetLeftClickThru:
    case MethodSetRightClickThru:
    case MethodSetStrata:
    case MethodSetZOrder:
        if (argc < 1) return false;
        break;
    }
    switch (id) {
    case MethodSetX:
        element->X = ArgInt(argv[0]);
        return true;
    case MethodSetY:
        element->Y = ArgInt(argv[0]);
        return true;
    case MethodSetWidth:
        element->Width = ArgInt(argv[0]);
        RecalculateChildren(element);
        return true;
    case MethodSetHeight:
        element->Height = ArgInt(argv[0]);
        RecalculateChildren(element);
        return true;
    case MethodSetFocus:
        g_UIManager.SetFocusElement(element);
        return true;
    case MethodSetZOrder:
        return ApplyZOrder(element, argv[0]);
    case MethodSetAlpha:
        element->Alpha = ArgFloat(argv[0]);
        return true;
    case MethodShow:
        element->Show(true);
        return true;
    case MethodHide:
        element->Show(false);
        return true;
    case MethodToggleVisible:
        element->Show(!element->Visible);
        return true;
    case MethodDestroy:
        // It acts, and yet reports failure: scripts know it so.
        if (element->Parent) element->Parent->DeleteChild(element);
        return false;
    case MethodAddChild:
        return AddChild(element, argc, argv) != nullptr;
    case MethodSetLeftClickThru:
        element->LeftClickThru = ArgToggle(argv[0]);
        return true;
    case MethodSetRightClickThru:
        element->RightClickThru = ArgToggle(argv[0]);
        return true;
    case MethodSetFadeAlpha:
        element->FadeAlpha = ArgFloat(argv[0]);
        return true;
    case MethodSetFadeDelay:
        element->FadeDelay = unsigned(ArgInt(argv[0]));
        return true;
    case MethodSetFadeDuration:
        element->FadeDuration = unsigned(ArgInt(argv[0]));
        return true;
    case MethodBeginFade:
        element->FadeState = TAVU_FADE_DELAYING;
        element->FadeStart = g_UIManager.FrameTime;
        return true;
    case MethodResetFade:
        element->FadeState = TAVU_FADE_NORMAL;
        return true;
    case MethodInstantFade:
        element->FadeState = TAVU_FADE_FADED;
        return true;
    case MethodSetMetadata:
        return argc >= 2 && g_UIManager.SetMetadata(element->ID, argv[0], argv[1]);
    case MethodUnsetMetadata:
        g_UIManager.UnsetMetadata(element->ID, argc >= 1 ? argv[0] : "");
        return true;
    case MethodSetStrata:
        element->Strata = static_cast<signed char>(ArgInt(argv[0]) & 0xFF);
        element->MoveZTop(false);
        return true;
    }
    return false;
}

// The element's own handlers, as a click on it would call them. The handlers
// may run scripts that delete the element: the second half is skipped then.
bool TAVUElementType::RunInputMethod(TAVUElement* element, uint32_t id) {
    _Point2i point = (id == MethodRightMouseDown || id == MethodRightMouseUp) ? PointB(element)
                                                                              : PointA(element);
    unsigned elementID = element->ID;
    switch (id) {
    case MethodLeftClick:
        element->OnLMouseDown(point);
        if (g_UIManager.FindElementByID(elementID)) element->OnLMouseUp(point);
        return true;
    case MethodLeftMouseDown:
        element->OnLMouseDown(point);
        return true;
    case MethodLeftMouseUp:
        element->OnLMouseUp(point);
        return true;
    case MethodRightClick:
        element->OnRMouseDown(point);
        if (g_UIManager.FindElementByID(elementID)) element->OnRMouseUp(point);
        return true;
    case MethodRightMouseDown:
        element->OnRMouseDown(point);
        return true;
    case MethodRightMouseUp:
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
    g_UIManager.RestoreSkin(savedSkin);
    return made;
}
