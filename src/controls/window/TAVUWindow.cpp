#include "TAVUWindow.h"

#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUButton.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUScriptTypes.h"
#include "TAVUText.h"
#include "TAVUWindowFactory.h"
#include "XMLHelper.h"
#include "XMLNode.h"

namespace {
const char kTypeWord[] = "window";

struct Toggle {
    const char* Key;
    unsigned Bits;
};

// A file can add an option to its template's, never take one away.
const Toggle kToggles[] = {
    {"CloseButton", TAVUWindow::FlagCloseButton},
    {"MinimizeButton", TAVUWindow::FlagMinimizeButton},
    {"Resizable", TAVUWindow::FlagWidthResizable | TAVUWindow::FlagHeightResizable},
    {"WidthResizable", TAVUWindow::FlagWidthResizable},
    {"HeightResizable", TAVUWindow::FlagHeightResizable}};
// Only windows made by code read these two.
const Toggle kOffsetToggles[] = {{"OffsetTitleBarHeight", TAVUWindow::FlagOffsetTitleBarHeight},
                                 {"OffsetTitleBarWidth", TAVUWindow::FlagOffsetTitleBarWidth}};

// The minimum sizes of a window loaded from a file, which differ from those a
// new window starts with (40 high, 20 wide): both pairs are kept as they are.
const unsigned kFileMinHeight = 20;
const unsigned kFileMinWidth = 40;

// A resizable window's border band is the grab zone, so it is never thinner.
const unsigned kResizeBorder = 3;

XMLNode* ChildOfEither(XMLNode* node, XMLNode* templateNode, const char* key) {
    XMLNode* child = XMLHelper::GetChild(node, key);
    return child ? child : XMLHelper::GetChild(templateNode, key);
}

// A bare <TitleBar/> or <Client/> stands for no part at all.
bool HasContent(XMLNode* node) {
    return node && (node->FirstAttribute || node->FirstChild);
}

int Twice(unsigned border) {
    return int(border * 2u);
}

// A fraction of the parent, or the parent less a distance; border is taken off
// a fractional place only.
int Resolve(int value, const ElementPosition& position, int parentSize, unsigned border) {
    unsigned parent = unsigned(parentSize);
    if (position.Type == ElementPosition::Fraction)
        return WrapSubtract(TruncateToInt(float(parent) * position.Value.Factor), int(border));
    if (position.Type == ElementPosition::FarEdge)
        return int(parent - unsigned(position.Value.Pixels));
    return value;
}

void DeleteFromParent(TAVUElement* element) {
    if (element && element->Parent) element->Parent->DeleteChild(element);
}
} // namespace

TAVUWindowFactory<TAVUWindow, &pTAVUWindowType> g_TAVUWindowFactory(kTypeWord);

TAVUWindow::TAVUWindow(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name), ContextMenu(this) {}

TAVUWindow::~TAVUWindow() {
    StrFree(Title);
    StrFree(ClickFocus);
}

bool TAVUWindow::FromXML(XMLNode* node, XMLNode* templateNode) {
    Flags = 0;
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUFrame::FromXML(node, templateNode)) return false;
    ReadToggles(node, templateNode, false);
    ReadTitleAndFocus(node);
    ReadMinimumSizes(node, templateNode);
    LoadParts(node, templateNode);
    WidenResizableBorder();
    AddTitleBarOffsets();
    if (Border) {
        X = WrapSubtract(X, int(Border));
        Y = WrapSubtract(Y, int(Border));
        Width = WrapAdd(Width, Twice(Border));
        Height = WrapAdd(Height, Twice(Border));
    }
    RecalculateSize(true);
    return true;
}

void TAVUWindow::Create(_CreateWindow& create, XMLNode* node) {
    TAVUFrame::Create(create);
    Flags = create.Flags;
    Border = create.Border;
    TAVUControlHelpers::ReplaceText(Title, create.Title ? create.Title : Name);
    TAVUControlHelpers::ReplaceText(ClickFocus, create.ClickFocus ? create.ClickFocus : "");
    XMLNode* templateNode = TAVUControlHelpers::ResolveTemplate(node, nullptr, kTypeWord);
    ReadToggles(node, templateNode, true);
    ReadTitleAndFocus(node); // replaces the record's title: see the header
    LoadParts(node, templateNode);
    WidenResizableBorder();
    if (Border) {
        Width = WrapAdd(Width, Twice(Border));
        Height = WrapAdd(Height, Twice(Border));
    }
    AddTitleBarOffsets();
    X = WrapSubtract(X, int(Border));
    Y = WrapSubtract(Y, int(Border));
    RecalculateSize(true);
}

void TAVUWindow::ReadToggles(XMLNode* node, XMLNode* templateNode, bool withOffsets) {
    for (const Toggle& toggle : kToggles)
        if (TAVUControlHelpers::ReadToggle(node, templateNode, toggle.Key, false))
            Flags |= toggle.Bits;
    if (!withOffsets) {
        Locked = TAVUControlHelpers::ReadToggle(node, templateNode, "Locked", false);
        return;
    }
    for (const Toggle& toggle : kOffsetToggles)
        if (TAVUControlHelpers::ReadToggle(node, templateNode, toggle.Key, false))
            Flags |= toggle.Bits;
}

// Neither is looked up in the template: each window has its own.
void TAVUWindow::ReadTitleAndFocus(XMLNode* node) {
    TAVUControlHelpers::ReplaceText(Title, XMLHelper::GetStringValue(node, "Title", Name));
    TAVUControlHelpers::ReplaceText(ClickFocus, XMLHelper::GetStringValue(node, "ClickFocus", ""));
}

// The minimum sizes ride as attributes on the resize toggles themselves.
void TAVUWindow::ReadMinimumSizes(XMLNode* node, XMLNode* templateNode) {
    if (XMLNode* both = ChildOfEither(node, templateNode, "Resizable")) {
        MinHeight = XMLHelper::GetIntAttribute(both, "MinHeight", kFileMinHeight);
        MinWidth = XMLHelper::GetIntAttribute(both, "MinWidth", kFileMinWidth);
        return;
    }
    if (XMLNode* width = ChildOfEither(node, templateNode, "WidthResizable"))
        MinWidth = XMLHelper::GetIntAttribute(width, "MinWidth", kFileMinWidth);
    if (XMLNode* height = ChildOfEither(node, templateNode, "HeightResizable"))
        MinHeight = XMLHelper::GetIntAttribute(height, "MinHeight", kFileMinHeight);
}

// The title bar may come from the template; the client from the template only
// when the file names none, so that a bare <Client/> removes the template's.
void TAVUWindow::LoadParts(XMLNode* node, XMLNode* templateNode) {
    XMLNode* titleBar = ChildOfEither(node, templateNode, "TitleBar");
    if (HasContent(titleBar)) {
        TitleBar = g_UIManager.LoadElement(this, "frame", "TitleBar", titleBar, nullptr);
        if (TitleBar) FindTitleBarParts();
    }
    XMLNode* client = XMLHelper::GetChild(node, "Client");
    if (!client) client = XMLHelper::GetChild(templateNode, "Client");
    if (HasContent(client))
        Client = g_UIManager.LoadElement(this, "windowclient", "Client", client, nullptr);
}

// A title bar with one of the two size buttons uses it for both states.
void TAVUWindow::FindTitleBarParts() {
    TitleText = static_cast<TAVUText*>(TitleBar->FindUsableChild("Title", "text"));
    if (TitleText) TitleText->SetText(Title);
    MinimizeButton = static_cast<TAVUButton*>(TitleBar->FindUsableChild("Minimize", "button"));
    MaximizeButton = static_cast<TAVUButton*>(TitleBar->FindUsableChild("Maximize", "button"));
    if (!(Flags & FlagMinimizeButton)) {
        DeleteFromParent(MinimizeButton);
        DeleteFromParent(MaximizeButton);
        MinimizeButton = MaximizeButton = nullptr;
    } else if (!MinimizeButton) {
        MinimizeButton = MaximizeButton;
    } else if (!MaximizeButton) {
        MaximizeButton = MinimizeButton;
    }
    CloseButton = static_cast<TAVUButton*>(TitleBar->FindUsableChild("Close", "button"));
    if (!(Flags & FlagCloseButton)) {
        DeleteFromParent(CloseButton);
        CloseButton = nullptr;
    }
}

void TAVUWindow::WidenResizableBorder() {
    if ((Flags & (FlagWidthResizable | FlagHeightResizable)) && Border < kResizeBorder)
        Border = kResizeBorder;
}

void TAVUWindow::AddTitleBarOffsets() {
    if (!TitleBar) return;
    if (Flags & FlagOffsetTitleBarHeight) Height = WrapAdd(Height, TitleBar->Height);
    if (Flags & FlagOffsetTitleBarWidth) Width = WrapAdd(Width, TitleBar->Width);
}

bool TAVUWindow::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUFrame::IsTypeOf(type);
}

// Once one value changes, the rest are taken as they come; an unchanged
// window does not lay its children out again.
void TAVUWindow::RecalculateSize(bool) {
    struct Value {
        int& Integer;
        const ElementPosition& Position;
        int ParentSize;
        unsigned Border;
    } values[] = {{X, XPosition, Parent->Width, Border},
                  {Width, WidthPosition, Parent->Width, 0},
                  {Y, YPosition, Parent->Height, Border},
                  {Height, HeightPosition, Parent->Height, 0}};
    bool changed = false;
    for (Value& value : values) {
        if (value.Position.Type == ElementPosition::Absolute) continue;
        int resolved = Resolve(value.Integer, value.Position, value.ParentSize, value.Border);
        changed = changed || resolved != value.Integer;
        value.Integer = resolved;
    }
    if (changed)
        OnResize();
    else
        SizeRecalculated(false);
}

// The children see the inner rectangle as their parent's size.
void TAVUWindow::OnResize() {
    Width = WrapSubtract(Width, Twice(Border));
    Height = WrapSubtract(Height, Twice(Border));
    for (TAVUElement* child = FirstChild; child; child = child->Next)
        child->RecalculateSize(true);
    Width = WrapAdd(Width, Twice(Border));
    Height = WrapAdd(Height, Twice(Border));
}

void TAVUWindow::OnCreate() {
    OnResize();
}

// The hide comes before the show, so that one button serving both states
// stays visible.
void TAVUWindow::Render() {
    if (Minimized) {
        if (Client) Client->Show(false);
        if (MinimizeButton) MinimizeButton->Show(false);
        if (MaximizeButton) MaximizeButton->Show(true);
    } else {
        if (Client) Client->Show(true);
        if (MaximizeButton) MaximizeButton->Show(false);
        if (MinimizeButton) MinimizeButton->Show(true);
    }
    TAVUFrame::Render();
}

// Children are placed inside the border; hidden ones keep their old place.
void TAVUWindow::RenderChildren() {
    for (TAVUElement* child = FirstChild; child; child = child->Next) {
        if (!child->Visible) continue;
        _Point2i position{WrapAdd(WrapAdd(AbsolutePosition.x, child->X), int(Border)),
                          WrapAdd(WrapAdd(AbsolutePosition.y, child->Y), int(Border))};
        if (!RenderChild(child, position)) return;
    }
}

// Any show or hide gives a minimised window its size back, so that a closed
// window opens again whole.
void TAVUWindow::Show(bool show) {
    TAVUFrame::Show(show);
    if (Minimized) Minimize(false);
}

void TAVUWindow::Minimize(bool minimize) {
    if (!TitleBar) return; // the mouse cannot reach this: it needs the bar
    Minimized = minimize;
    if (!minimize) {
        Height = int(SavedHeight);
        Width = int(SavedWidth);
        TitleBar->X = SavedTitleBarX;
        TitleBar->Y = SavedTitleBarY;
        return;
    }
    SavedTitleBarX = TitleBar->X;
    SavedTitleBarY = TitleBar->Y;
    SavedHeight = unsigned(Height);
    SavedWidth = unsigned(Width);
    Height = WrapAdd(TitleBar->Height, Twice(Border));
    Width = WrapAdd(TitleBar->Width, Twice(Border));
    TitleBar->X = 0;
    TitleBar->Y = 0;
}

void TAVUWindow::ResetWindowPosition() {
    X = WrapSubtract(LoadedX, int(Border));
    Y = WrapSubtract(LoadedY, int(Border));
    Width = WrapAdd(LoadedWidth, Twice(Border));
    Height = WrapAdd(LoadedHeight, Twice(Border));
    AddTitleBarOffsets();
    XPosition = LoadedXPosition;
    YPosition = LoadedYPosition;
    HeightPosition = LoadedHeightPosition;
    WidthPosition = LoadedWidthPosition;
    RecalculateSize(true);
    OnResize();
}

void TAVUWindow::SetTitle(const char* text) {
    StrFree(Title);
    Title = text ? StrDuplicate(text) : nullptr;
    if (TitleText) TitleText->SetText(text ? text : "");
}

// The inner rectangle, as a file gives it. The width keeps the title bar's
// offset while the height loses it: stored positions depend on both.
bool TAVUWindow::GetStoragePosition(int& x, int& y, unsigned& width, unsigned& height) {
    x = WrapAdd(X, int(Border));
    y = WrapAdd(Y, int(Border));
    height = (Minimized ? SavedHeight : unsigned(Height)) - 2u * Border;
    if ((Flags & FlagOffsetTitleBarHeight) && TitleBar) height -= unsigned(TitleBar->Height);
    width = (Minimized ? SavedWidth : unsigned(Width)) - 2u * Border;
    return true;
}

TAVUElement* TAVUWindow::FindChild(const char* name) {
    if (Client) return Client->FindChild(name);
    return TAVUFrame::FindChild(name);
}

bool TAVUWindow::TitleBarHits(_Point2i& point) {
    return TitleBar && TitleBar->HitTest(point);
}

// A window without texture or fill lets the mouse through where it is not
// the element under the pointer.
bool TAVUWindow::PassesMouse() {
    return IsTransparent() && !IsMouseOver();
}

void TAVUWindow::ApplyClickFocus() {
    if (!ClickFocus || !ClickFocus[0]) return;
    TAVUElement* focus = Client ? Client->FindUsableChild(ClickFocus, "TAVUelement") : nullptr;
    g_UIManager.SetFocusElement(focus);
}

// A press on the border band starts a resize, anywhere else on the bare
// body a drag: a window needs no title bar to be moved.
bool TAVUWindow::OnLMouseDown(_Point2i& point) {
    TAVUElementWatch watch(this);
    if (!IsMouseOver() && !TitleBarHits(point)) {
        if (IsTransparent()) return false;
    } else {
        ApplyClickFocus(); // focus scripts may delete this window
        if (!watch.Alive()) return true;
        if (!Locked) {
            unsigned edges = 0;
            if (Flags & FlagWidthResizable) {
                if (point.x < WrapAdd(AbsolutePosition.x, int(Border))) edges |= EdgeLeft;
                if (point.x > WrapSubtract(WrapAdd(AbsolutePosition.x, Width), int(Border)))
                    edges |= EdgeRight;
            }
            if (Flags & FlagHeightResizable) {
                if (point.y < WrapAdd(AbsolutePosition.y, int(Border))) edges |= EdgeTop;
                if (point.y > WrapSubtract(WrapAdd(AbsolutePosition.y, Height), int(Border)))
                    edges |= EdgeBottom;
            }
            ResizeEdges |= edges;
            if (edges) {
                LastMouse = point;
            } else {
                Dragging = true;
                DragOffset = {WrapSubtract(point.x, X), WrapSubtract(point.y, Y)};
            }
        }
    }
    MoveZTop(true);
    TAVUElement::OnLMouseDown(point);
    return true;
}

bool TAVUWindow::OnMouseMove(_Point2i& point) {
    if (ResizeEdges) {
        ResizeStep(point);
    } else if (Dragging) {
        XPosition.Type = YPosition.Type = ElementPosition::Absolute;
        X = WrapSubtract(point.x, DragOffset.x);
        Y = WrapSubtract(point.y, DragOffset.y);
        if (!g_UIManager.Shift) {
            SnapBody(X, Width, Parent->Width);
            SnapBody(Y, Height, Parent->Height);
        }
    } else if (PassesMouse()) {
        return false;
    }
    TAVUElement::OnMouseMove(point);
    return true;
}

// The left and top edges move the window and clamp the size afterwards, so a
// drag past the minimum pushes the window along; the right and bottom edges
// stop at the minimum.
void TAVUWindow::ResizeStep(_Point2i& point) {
    int dx = WrapSubtract(point.x, LastMouse.x), dy = WrapSubtract(point.y, LastMouse.y);
    if (ResizeEdges & EdgeLeft) DragNearEdge(X, XPosition, Width, WidthPosition, dx);
    if (ResizeEdges & EdgeRight)
        DragFarEdge(Width, WidthPosition, dx, point.x > WrapAdd(int(MinWidth), AbsolutePosition.x));
    if (ResizeEdges & EdgeTop) DragNearEdge(Y, YPosition, Height, HeightPosition, dy);
    if (ResizeEdges & EdgeBottom)
        DragFarEdge(Height, HeightPosition, dy,
                    point.y > WrapAdd(int(MinHeight), AbsolutePosition.y));
    if (Width < int(MinWidth)) Width = int(MinWidth);
    if (Height < int(MinHeight)) Height = int(MinHeight);
    OnResize();
    LastMouse = point;
}

void TAVUWindow::DragNearEdge(int& place, ElementPosition& placeMode, int& size,
                              ElementPosition& sizeMode, int delta) {
    place = WrapAdd(place, delta);
    size = WrapSubtract(size, delta);
    placeMode.Type = sizeMode.Type = ElementPosition::Absolute;
}

// Only while the pointer is past the minimum from the window's near side.
void TAVUWindow::DragFarEdge(int& size, ElementPosition& sizeMode, int delta, bool pastMinimum) {
    if (!pastMinimum) return;
    size = WrapAdd(size, delta);
    sizeMode.Type = ElementPosition::Absolute;
}

// A body drag snaps an edge that comes within the margin of the parent's.
void TAVUWindow::SnapBody(int& position, int size, int parentSize) {
    if (position >= SnapMargin) {
        int farEdge = WrapAdd(size, position);
        if (WrapAdd(farEdge, SnapMargin) > parentSize &&
            WrapSubtract(farEdge, SnapMargin) < parentSize)
            position = WrapSubtract(parentSize, size);
    } else if (position > -SnapMargin) {
        position = 0;
    }
}

// A title bar drag also keeps the window on its parent: 4 pixels stay at the
// left, right and bottom, and at the top one pixel of the title bar. Some
// comparisons are unsigned, as the far-edge tests have always been.
void TAVUWindow::SnapTitleBar(int& position, int size, int parentSize, int nearKeep) {
    const int kFarKeep = 4;
    if (position >= SnapMargin) {
        if (unsigned(size) + unsigned(position) + SnapMargin <= unsigned(parentSize)) return;
        if (WrapAdd(position, kFarKeep) > parentSize)
            position = WrapSubtract(parentSize, kFarKeep);
        else if (unsigned(size) + unsigned(position) - SnapMargin < unsigned(parentSize))
            position = WrapSubtract(parentSize, size);
    } else if (WrapAdd(position, nearKeep) < 0) {
        position = WrapSubtract(0, nearKeep);
    } else if (position > -SnapMargin) {
        position = 0;
    }
}

void TAVUWindow::DragByTitleBar() {
    const _Point2i& mouse = g_UIManager.MousePosition;
    XPosition.Type = YPosition.Type = ElementPosition::Absolute;
    X = WrapSubtract(mouse.x, DragOffset.x);
    Y = WrapSubtract(mouse.y, DragOffset.y);
    if (g_UIManager.Shift) return;
    SnapTitleBar(X, Width, Parent->Width, WrapSubtract(Width, 4));
    SnapTitleBar(Y, Height, Parent->Height, WrapSubtract(TitleBar->Height, 1));
}

void TAVUWindow::StartTitleBarDrag() {
    TAVUElementWatch watch(this);
    MoveZTop(true);
    ApplyClickFocus();
    if (!watch.Alive() || Locked) return;
    Dragging = true;
    const _Point2i& mouse = g_UIManager.MousePosition;
    DragOffset = {WrapSubtract(mouse.x, X), WrapSubtract(mouse.y, Y)};
}

bool TAVUWindow::OnLMouseUp(_Point2i& point) {
    Dragging = false;
    ResizeEdges = 0;
    TAVUElement::OnLMouseUp(point);
    return true;
}

bool TAVUWindow::OnLMouseDoubleClick(_Point2i& point) {
    if (!TitleBarHits(point)) return false;
    Minimize(!Minimized);
    TAVUElement::OnLMouseDoubleClick(point);
    return true;
}

bool TAVUWindow::OnRMouseDown(_Point2i& point) {
    if (IsTransparent() && !TitleBarHits(point)) return false;
    MoveZTop(true);
    TAVUElement::OnRMouseDown(point);
    return true;
}

bool TAVUWindow::OnRMouseUp(_Point2i& point) {
    if (TitleBarHits(point)) ContextMenu.Create(point.x, point.y);
    TAVUElement::OnRMouseUp(point);
    return true;
}

// A wheel over a client that lets both buttons through goes on to what lies
// beneath, as a click there would.
bool TAVUWindow::OnMouseWheel(int offset) {
    if (PassesMouse()) return false;
    if (Client && Client->HitTest(g_UIManager.MousePosition) && Client->LeftClickThru &&
        Client->RightClickThru)
        return false;
    TAVUElement::OnMouseWheel(offset);
    return true;
}

// The title bar and its buttons report here; nothing goes further up. A part
// that goes away is forgotten, so that a script may delete any of them.
void TAVUWindow::OnNotify(TAVUElement* source, unsigned code, size_t) {
    if (!source) return;
    if (code == TAVU_NOTIFY_CHILD_REMOVED) {
        ForgetPart(source);
        return;
    }
    if (source == TitleBar) {
        if (code == TAVU_NOTIFY_LEFT_UP) Dragging = false;
        if (code == TAVU_NOTIFY_LEFT_DOWN) StartTitleBarDrag();
        if (code == TAVU_NOTIFY_MOUSE_MOVED && Dragging) DragByTitleBar();
        if (code == TAVU_NOTIFY_RIGHT_UP)
            ContextMenu.Create(g_UIManager.MousePosition.x, g_UIManager.MousePosition.y);
        return;
    }
    if (code != TAVU_NOTIFY_LEFT_UP) return;
    if (source == MinimizeButton || source == MaximizeButton)
        Minimize(!Minimized);
    else if (source == CloseButton)
        Show(false);
}

void TAVUWindow::ForgetPart(TAVUElement* part) {
    if (part == Client) Client = nullptr;
    if (part == TitleBar) {
        TitleBar = nullptr;
        TitleText = nullptr;
        MinimizeButton = MaximizeButton = CloseButton = nullptr;
    }
    if (part == TitleText) TitleText = nullptr;
    if (part == MinimizeButton) MinimizeButton = nullptr;
    if (part == MaximizeButton) MaximizeButton = nullptr;
    if (part == CloseButton) CloseButton = nullptr;
}

RXTypeDefinition* TAVUWindow::GetRXType() {
    return pTAVUWindowType;
}
