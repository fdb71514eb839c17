#include "TAVUElement.h"

#include "CUIManager.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUElementDeleter.h"
#include "TAVUElementFactory.h"
#include "TAVUElementWatch.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUScriptTypes.h"
#include "TAVUTooltip.h"

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <set>

namespace {
const size_t kFullNameBuffer = 4096;

// Elements whose deletion is under way, from Delete until the destructor has
// taken them out of the manager's maps. Scripts run by the deletion (its own
// "OnUnload" and its children's) can still find such an element by name or
// ID, and must not be able to start the same deletion again.
std::set<unsigned> g_ElementsBeingDeleted;

// Siblings lie apart in memory, each with its own textures, fonts and texts:
// a frame over thousands of them waited on every next sibling's first fields.
// Asked for while the current sibling draws, they are there when needed.
void AskForFrameFields(const TAVUElement* element) {
#if defined(__GNUC__)
    __builtin_prefetch(element);
    __builtin_prefetch(&element->X);
    __builtin_prefetch(&element->Visible);
#else
    (void)element;
#endif
}

// While no element has been destroyed, every element the frame walk holds is
// alive, and the walk can skip looking its ID up: the look-up would find it
// and change nothing. Scripts that delete make the walk look.
bool StillExists(unsigned id, unsigned destroyedBefore) {
    return TAVUElementWatch::Destroyed == destroyedBefore || g_UIManager.FindElementByID(id);
}
const char kColorCode = 7;

// The bytes a colour code at text[0] (the byte 7) takes, never past the text's
// end: two, three for a dash form ("\a-r") and eight for a hash form, whatever
// the letter is.
size_t ColorCodeLength(const char* text) {
    size_t wanted = text[1] == '#' ? 8 : text[1] == '-' ? 3 : 2;
    size_t available = 1;
    while (available < wanted && text[available])
        ++available;
    return available;
}
} // namespace

TAVUElement::TAVUElement(const char* type, TAVUElement* parent, const char* name)
    : Type(StrDuplicate(type ? type : "")), Name(StrDuplicate(name ? name : "")), FullName(nullptr),
      Parent(parent) {
    ComposeFullName();
    StrLower(Name);
    ID = g_UIManager.NextElementID++;
    if (parent) parent->AddChild(this);
    g_UIManager.ElementsByID[ID] = this;
}

// A child of the screen has its bare name; any other element hangs its name on
// its parent's full name with '@'. A window's client area is passed over, so
// that a window's children hang on the window itself.
void TAVUElement::ComposeFullName() {
    char buffer[kFullNameBuffer] = {0};
    snprintf(buffer, sizeof(buffer), "%s", Name);
    for (TAVUElement* ancestor = Parent; ancestor; ancestor = ancestor->Parent) {
        if (ancestor->IsTypeOf("screen")) break;
        if (ancestor->IsTypeOf("windowclient")) continue;
        size_t used = strlen(buffer);
        snprintf(buffer + used, sizeof(buffer) - used, "@%s", ancestor->FullName);
        break;
    }
    FullName = StrDuplicate(buffer);
    g_UIManager.ElementsByName[utf8stringnocase(StrLower(buffer))] = this;
}

TAVUElement::~TAVUElement() {
    ++TAVUElementWatch::Destroyed;
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_CHILD_REMOVED, reinterpret_cast<size_t>(Name));
    // DeleteChild has unlinked it already; an element that a module deleted
    // through Delete alone leaves its parent's list here, not as a dangling link.
    Unlink();
    if (g_UIManager.FocusElementID == ID) g_UIManager.FocusElementID = 0;
    // Each child leaves the list before it goes, so that scripts run by the
    // deletion see a consistent list of the children still to go.
    while (TAVUElement* child = FirstChild) {
        child->Unlink();
        child->Delete();
    }
    g_pHost->InvalidatePersistentObject(g_UIManager.PersistentClass, this);
    g_UIManager.ElementsByID.erase(ID);
    g_UIManager.ElementsByName.erase(utf8stringnocase(StrLower(FullName)));
    g_UIManager.ClearMetadata(this);
    if (TAVUElementFactory* factory = g_UIManager.FindFactory(Type)) factory->Forget(this);
    TAVUEmbeddedScript** scripts[] = {&OnLoad,
                                      &OnUnload,
                                      &OnLeftClick,
                                      &OnRightClick,
                                      &OnDoubleLeftClick,
                                      &OnDoubleRightClick,
                                      &OnMouseEnterScript,
                                      &OnMouseExitScript,
                                      &OnMouseMoveScript,
                                      &OnMouseWheelScript,
                                      &OnKeyboardEnterScript,
                                      &OnKeyboardExitScript,
                                      &OnKeyUpScript,
                                      &OnKeyDownScript,
                                      &OnLeftDown,
                                      &OnRightDown,
                                      &OnRender};
    for (TAVUEmbeddedScript** script : scripts) {
        if (*script) (*script)->Delete();
        *script = nullptr;
    }
    ForgetAsParentOfDeletions();
    g_ElementsBeingDeleted.erase(ID);
    StrFree(AutoTooltip);
    StrFree(Type);
    StrFree(Name);
    StrFree(FullName);
}

bool TAVUElement::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, "tavuelement") == 0;
}

bool TAVUElement::ResolveValue(int& value, const ElementPosition& position, int parentSize) {
    unsigned parent = unsigned(parentSize); // a negative parent size counts as a large one
    int resolved = value;
    if (position.Type == ElementPosition::Fraction)
        resolved = TruncateToInt(float(parent) * position.Value.Factor);
    else if (position.Type == ElementPosition::FarEdge)
        resolved = int(parent - unsigned(position.Value.Pixels));
    bool changed = resolved != value;
    value = resolved;
    return changed;
}

// An unchanged element cuts the walk off: its children are not visited.
void TAVUElement::RecalculateSize(bool recurse) {
    struct Value {
        int& Integer;
        const ElementPosition& Position;
        int ParentSize;
    } values[] = {{X, XPosition, Parent->Width},
                  {Width, WidthPosition, Parent->Width},
                  {Y, YPosition, Parent->Height},
                  {Height, HeightPosition, Parent->Height}};
    bool changed = false;
    for (Value& value : values) {
        if (value.Position.Type == ElementPosition::Absolute) continue;
        if (ResolveValue(value.Integer, value.Position, value.ParentSize)) changed = true;
    }
    SizeRecalculated(changed);
    if (changed && recurse) RecalculateChildrenSize();
}

void TAVUElement::RecalculateChildrenSize() {
    for (TAVUElement* child = FirstChild; child; child = child->Next)
        child->RecalculateSize(true);
}

void TAVUElement::SizeRecalculated(bool) {}

// Controls draw themselves and then call this, so that children lie on top.
void TAVUElement::Render() {
    if (AutoTooltip) ShowAutoTooltip();
    RenderChildren();
}

// The auto tooltip: the one "Auto Tooltip" element shows an element's
// AutoTooltip text once the pointer has rested on it for TooltipDelay.
void TAVUElement::ShowAutoTooltip() {
    TAVUTooltip::UpdateAutoTooltip(this);
}

// Bottom to top. A script may delete anything while it runs, so each child is
// found again by its ID after "OnRender" and after drawing; a child that has
// gone ends this level's walk, since its sibling links may be stale.
void TAVUElement::RenderChildren() {
    for (TAVUElement* child = FirstChild; child;) {
        _Point2i position{WrapAdd(AbsolutePosition.x, child->X),
                          WrapAdd(AbsolutePosition.y, child->Y)};
        if (!child->Visible) {
            child->SetAbsolutePosition(position);
            child = child->Next;
            continue;
        }
        if (child->Next) AskForFrameFields(child->Next);
        if (!RenderChild(child, position)) return;
        child = child->Next;
    }
}

bool TAVUElement::RenderChild(TAVUElement* child, const _Point2i& position) {
    unsigned id = child->ID;
    unsigned destroyed = TAVUElementWatch::Destroyed;
    child->AbsolutePosition = position;
    if (child->OnRender) child->OnRender->Execute(0, nullptr);
    if (!StillExists(id, destroyed)) return false;
    if (child->FadeDelay != 0) {
        bool over = child->HitTest(g_UIManager.MousePosition);
        if (child->FadeState == TAVU_FADE_NORMAL && !over) {
            child->FadeState = TAVU_FADE_DELAYING;
            child->FadeStart = g_UIManager.FrameTime;
        } else if (child->FadeState != TAVU_FADE_NORMAL && over) {
            child->FadeState = TAVU_FADE_NORMAL;
        }
    }
    float alpha = child->FadeState == TAVU_FADE_NORMAL ? child->Alpha : child->GetCurrentAlpha();
    child->CurrentAlpha = alpha * CurrentAlpha;
    child->Render();
    return StillExists(id, destroyed);
}

void TAVUElement::Show(bool show) {
    Visible = show;
}

void TAVUElement::Center() {
    X = int(unsigned(Parent->Width - Width) >> 1);
    Y = int(unsigned(Parent->Height - Height) >> 1);
}

int TAVUElement::RunEvent(TAVUEmbeddedScript* script, int x, int y) {
    char first[16], second[16];
    snprintf(first, sizeof(first), "%d", x);
    snprintf(second, sizeof(second), "%d", y);
    char* argv[] = {first, second};
    return script->Execute(2, argv);
}

bool TAVUElement::OnLMouseUp(_Point2i& point) {
    if (!OnLeftClick) return false;
    RunEvent(OnLeftClick, point.x, point.y);
    return true;
}

// Without "OnLeftDown", an element that wants the click still takes the press.
bool TAVUElement::OnLMouseDown(_Point2i& point) {
    if (!OnLeftDown) return OnLeftClick != nullptr;
    RunEvent(OnLeftDown, point.x, point.y);
    return true;
}

bool TAVUElement::OnRMouseUp(_Point2i& point) {
    if (!OnRightClick) return false;
    RunEvent(OnRightClick, point.x, point.y);
    return true;
}

bool TAVUElement::OnRMouseDown(_Point2i& point) {
    if (!OnRightDown) return OnRightClick != nullptr;
    RunEvent(OnRightDown, point.x, point.y);
    return true;
}

bool TAVUElement::OnLMouseDoubleClick(_Point2i& point) {
    if (!OnDoubleLeftClick) return false;
    RunEvent(OnDoubleLeftClick, point.x, point.y);
    return true;
}

bool TAVUElement::OnRMouseDoubleClick(_Point2i& point) {
    if (!OnDoubleRightClick) return false;
    RunEvent(OnDoubleRightClick, point.x, point.y);
    return true;
}

bool TAVUElement::OnMouseMove(_Point2i& point) {
    if (!OnMouseMoveScript) return false;
    RunEvent(OnMouseMoveScript, point.x, point.y);
    return true;
}

bool TAVUElement::OnMouseWheel(int offset) {
    if (!OnMouseWheelScript) return false;
    char text[16];
    snprintf(text, sizeof(text), "%d", offset);
    char* argv[] = {text};
    OnMouseWheelScript->Execute(1, argv);
    return true;
}

bool TAVUElement::RunKeyEvent(TAVUEmbeddedScript* script, unsigned key) {
    if (!script) return false;
    char name[TAVU_KEY_NAME_BUFFER] = {0};
    if (!g_pHost->GetKeyName(key, name, sizeof(name))) return false;
    name[sizeof(name) - 1] = 0;
    char* argv[] = {name};
    script->Execute(1, argv);
    return true;
}

bool TAVUElement::OnKeyUp(unsigned key) {
    return RunKeyEvent(OnKeyUpScript, key);
}

bool TAVUElement::OnKeyDown(unsigned key) {
    return RunKeyEvent(OnKeyDownScript, key);
}

void TAVUElement::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (Parent) Parent->OnNotify(source, code, value);
}

void TAVUElement::OnMouseEnter(_Point2i& point) {
    if (OnMouseEnterScript) RunEvent(OnMouseEnterScript, point.x, point.y);
}

void TAVUElement::OnMouseExit(TAVUElement*) {
    if (g_UIManager.AutoTooltipElementID == ID) {
        if (TAVUElement* tooltip = g_UIManager.FindElement("Auto Tooltip")) {
            g_UIManager.AutoTooltipElementID = 0;
            tooltip->Show(false);
        }
    }
    if (OnMouseExitScript) OnMouseExitScript->Execute(0, nullptr);
}

void TAVUElement::OnKeyboardEnter() {
    if (OnKeyboardEnterScript) OnKeyboardEnterScript->Execute(0, nullptr);
}

void TAVUElement::OnKeyboardExit(TAVUElement*) {
    if (OnKeyboardExitScript) OnKeyboardExitScript->Execute(0, nullptr);
}

void TAVUElement::OnLMouseDownOther(TAVUElement*) {}

void TAVUElement::OnCreate() {}

void TAVUElement::OnDestroy() {}

RXTypeDefinition* TAVUElement::GetRXType() {
    return pTAVUElementType;
}

bool TAVUElement::GetStoragePosition(int& x, int& y, unsigned& width, unsigned& height) {
    x = X;
    y = Y;
    width = unsigned(Width);
    height = unsigned(Height);
    return true;
}

TAVUElement* TAVUElement::FindChild(const char* name) {
    for (TAVUElement* child = FirstChild; child; child = child->Next)
        if (StrEqualNoCase(child->Name, name)) return child;
    return nullptr;
}

bool TAVUElement::SetFocus() {
    return true;
}

bool TAVUElement::SetMouseOver() {
    return true;
}

// Top to bottom among the children, inside this element's own box only; a
// search that continues behind a refusing element starts below it.
TAVUElement* TAVUElement::FindMouseOver(_Point2i& point, TAVUElement* after) {
    if (after == this || !Visible || !HitTest(point)) return nullptr;
    TAVUElement* child = after ? after->Previous : LastChild;
    for (; child; child = child->Previous)
        if (TAVUElement* found = child->FindMouseOver(point, nullptr)) return found;
    return this;
}

void TAVUElement::MoveZUp() {
    g_UIManager.ZOrderChanged = true;
    if (Next && !(Next->Strata > Strata)) SwapWithNext();
}

// Unlike MoveZUp, no strata test: an element can always be moved down.
void TAVUElement::MoveZDown() {
    g_UIManager.ZOrderChanged = true;
    if (Previous) Previous->SwapWithNext();
}

void TAVUElement::MoveZTop(bool parents) {
    g_UIManager.ZOrderChanged = true;
    if (parents && Parent) Parent->MoveZTop(true);
    if (!Parent) return;
    TAVUElement* top = Parent->LastChild;
    if (top == this) top = Previous;
    if (!top) return;
    if (Strata < top->Strata) {
        TAVUElement* below = top;
        while (below && (below->Strata > Strata || below == this))
            below = below->Previous;
        if (!below) {
            MoveZBottom();
            return;
        }
        Unlink();
        LinkAbove(below);
    } else if (Next) {
        Unlink();
        Parent->AddChild(this);
    }
}

void TAVUElement::MoveZBottom() {
    g_UIManager.ZOrderChanged = true;
    if (!Previous) return;
    Unlink();
    Next = Parent->FirstChild;
    Previous = nullptr;
    if (Next) Next->Previous = this;
    Parent->FirstChild = this;
    if (!Parent->LastChild) Parent->LastChild = this;
}

void TAVUElement::AddChild(TAVUElement* child) {
    child->Previous = LastChild;
    child->Next = nullptr;
    if (LastChild) LastChild->Next = child;
    LastChild = child;
    if (!FirstChild) FirstChild = child;
}

void TAVUElement::DeleteChild(TAVUElement* child) {
    if (!child || child->Parent != this) {
        OutputDebugStringA("DeleteChild failure\n");
        return;
    }
    child->Unlink();
    if (!LastChild)
        LastChild = FirstChild;
    else if (!FirstChild)
        FirstChild = LastChild;
    child->Delete();
}

void TAVUElement::Delete() {
    TAVUElementFactory* factory = g_UIManager.FindFactory(Type);
    if (!factory) {
        g_pHost->ConsolePrintf("WARNING: CANNOT DELETE '%s': Factory '%s' not found", FullName,
                               Type);
        return;
    }
    // "OnUnload" may ask for this same deletion again, or delete the parent.
    if (!g_ElementsBeingDeleted.insert(ID).second) return;
    if (OnUnload) OnUnload->Execute(0, nullptr);
    if (StorePosition) g_pHost->StoreElementPosition(this);
    factory->Deleter->Delete(this);
}

// An element being deleted has left its parent's list of children, so a
// parent that a script deletes meanwhile cannot take it along or tell it. The
// parent tells it here instead, so that it never climbs to a freed parent.
void TAVUElement::ForgetAsParentOfDeletions() {
    for (unsigned id : g_ElementsBeingDeleted) {
        auto found = g_UIManager.ElementsByID.find(id);
        if (found != g_UIManager.ElementsByID.end() && found->second &&
            found->second->Parent == this)
            found->second->Parent = nullptr;
    }
}

bool TAVUElement::IsBeingDeleted() const {
    return g_ElementsBeingDeleted.count(ID) != 0;
}

void TAVUElement::BeginDeletion() {
    g_ElementsBeingDeleted.insert(ID);
}

TAVUElement* TAVUElement::FindUsableChild(const char* name, const char* type) {
    for (TAVUElement* child = FirstChild; child; child = child->Next)
        if (StrEqualNoCase(child->Name, name) && child->IsTypeOf(type)) return child;
    for (TAVUElement* child = FirstChild; child; child = child->Next)
        if (TAVUElement* found = child->FindUsableChild(name, type)) return found;
    return nullptr;
}

namespace {
TAVUElement* FirstVisibleFrom(TAVUElement* element, TAVUElement* TAVUElement::*step) {
    for (; element; element = element->*step)
        if (element->Visible) return element;
    return nullptr;
}

// The walk of Walk and WalkReverse, with `first` the child to start from and
// `step` the sibling link to follow. The climb jumps one sibling further than
// the step among siblings does; that jump is part of the Tab order.
TAVUElement* WalkFrom(TAVUElement* self, bool onlyVisible, TAVUElement* stop, TAVUElement* first,
                      TAVUElement* TAVUElement::*step) {
    if ((!onlyVisible || self->Visible) && first) {
        if (!onlyVisible || first->Visible) return first;
        if (TAVUElement* found = FirstVisibleFrom(first->*step, step)) return found;
    }
    if (TAVUElement* sibling = self->*step) {
        if (!onlyVisible || sibling->Visible) return sibling;
        if (TAVUElement* found = FirstVisibleFrom(sibling->*step, step)) return found;
    }
    if (self == stop) return nullptr;
    for (TAVUElement* ancestor = self->Parent; ancestor && ancestor != stop;
         ancestor = ancestor->Parent) {
        TAVUElement* sibling = ancestor->*step;
        if (!sibling) continue;
        if (!onlyVisible || sibling->Visible) return sibling->*step;
        if (TAVUElement* found = FirstVisibleFrom(sibling, step)) return found;
    }
    return nullptr;
}
} // namespace

TAVUElement* TAVUElement::Walk(bool onlyVisible, TAVUElement* stop) {
    return WalkFrom(this, onlyVisible, stop, FirstChild, &TAVUElement::Next);
}

TAVUElement* TAVUElement::WalkReverse(bool onlyVisible, TAVUElement* stop) {
    return WalkFrom(this, onlyVisible, stop, LastChild, &TAVUElement::Previous);
}

bool TAVUElement::IsFocus() {
    return g_UIManager.FocusElementID == ID;
}

bool TAVUElement::IsMouseOver() {
    return g_UIManager.MouseOverElementID == ID;
}

bool TAVUElement::IsReallyVisible() {
    for (TAVUElement* element = this; element; element = element->Parent)
        if (!element->Visible) return false;
    return true;
}

bool TAVUElement::HitTest(_Point2i& point) {
    int64_t left = AbsolutePosition.x, top = AbsolutePosition.y;
    if (point.x < left || point.x > left + Width || point.y < top || point.y > top + Height)
        return false;
    const char* shape = g_UIManager.GetMetadata(ID, "HitTest");
    if (!shape[0]) return true;
    int radius;
    if (StrCompareNoCase(shape, "widthCircle") == 0)
        radius = Width >> 1;
    else if (StrCompareNoCase(shape, "heightCircle") == 0)
        radius = Height >> 1;
    else
        return true;
    float dx = float(point.x - (left + (Width >> 1)));
    float dy = float(point.y - (top + (Height >> 1)));
    return std::sqrt(dx * dx + dy * dy) <= float(radius);
}

float TAVUElement::GetCurrentAlpha() {
    unsigned now = g_UIManager.FrameTime;
    switch (FadeState) {
    case TAVU_FADE_NORMAL:
        return Alpha;
    case TAVU_FADE_DELAYING:
        if (FadeDelay == 0) {
            FadeState = TAVU_FADE_NORMAL;
            return Alpha;
        }
        if (!(now > FadeStart + FadeDelay)) return Alpha;
        FadeState = TAVU_FADE_FADING;
        [[fallthrough]];
    case TAVU_FADE_FADING:
        if (FadeDuration != 0 && now < FadeStart + FadeDelay + FadeDuration)
            return Alpha -
                   (Alpha - FadeAlpha) * float(now - FadeStart - FadeDelay) / float(FadeDuration);
        FadeState = TAVU_FADE_FADED;
        [[fallthrough]];
    case TAVU_FADE_FADED:
        return FadeAlpha;
    default:
        return Alpha;
    }
}

void TAVUElement::SetAbsolutePosition(_Point2i& position) {
    AbsolutePosition = position;
    for (TAVUElement* child = FirstChild; child; child = child->Next) {
        _Point2i childPosition{WrapAdd(position.x, child->X), WrapAdd(position.y, child->Y)};
        child->SetAbsolutePosition(childPosition);
    }
}

size_t TAVUElement::ColorStrlen(const char* text) {
    size_t count = 0;
    if (!text) return 0;
    for (const char* c = text; *c;) {
        if (*c == kColorCode) {
            c += ColorCodeLength(c);
            continue;
        }
        ++count;
        ++c;
    }
    return count;
}

void TAVUElement::StripColor(const char* text, char* out) {
    if (!out) return;
    if (text) {
        for (const char* c = text; *c;) {
            if (*c == kColorCode) {
                c += ColorCodeLength(c);
                continue;
            }
            *out++ = *c++;
        }
    }
    *out = 0;
}

// Safe for an element that is linked no longer: the parent's ends move only
// when they are this element.
void TAVUElement::Unlink() {
    if (Previous)
        Previous->Next = Next;
    else if (Parent && Parent->FirstChild == this)
        Parent->FirstChild = Next;
    if (Next)
        Next->Previous = Previous;
    else if (Parent && Parent->LastChild == this)
        Parent->LastChild = Previous;
    Previous = Next = nullptr;
}

void TAVUElement::LinkAbove(TAVUElement* below) {
    Previous = below;
    Next = below->Next;
    below->Next = this;
    if (Next)
        Next->Previous = this;
    else
        Parent->LastChild = this;
}

void TAVUElement::SwapWithNext() {
    TAVUElement* above = Next;
    if (!above) return;
    Unlink();
    LinkAbove(above);
}
