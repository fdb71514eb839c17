#include "TAVUTabControl.h"

#include "CUIManager.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUButton.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUFont.h"
#include "TAVUFrame.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"
#include "XMLNode.h"

#include <algorithm>
#include <cstdio>

namespace {
const char kTypeWord[] = "tabcontrol";
const TAVUTabControl::ScrollButtonKeys kLeftKeys = {
    "LeftButton", "left", {"LeftTexture", "LeftPressedTexture", "LeftHoverTexture"}, false};
const TAVUTabControl::ScrollButtonKeys kRightKeys = {
    "RightButton", "right", {"RightTexture", "RightPressedTexture", "RightHoverTexture"}, true};
// What a tab's strip width adds to its text: the padding and the two borders.
const unsigned kTabPadding = 12 + 4;

// Textures the template already gave the button stay.
void FillTexture(TAVUElement* reader, TAVUTexture*& field, XMLNode* node, const char* key,
                 XMLNode* templateNode) {
    if (!field) field = reader->TextureFromXML(node, key, templateNode);
}
} // namespace

TAVUFactory<TAVUTabControl> g_TAVUTabControlFactory(kTypeWord);

TAVUTabControl::TAVUTabControl(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

// The pages belong to the element tree, which deletes them after this.
TAVUTabControl::~TAVUTabControl() {
    TAVUFont::Delete(Font);
    TAVUTexture::Delete(TabTexture);
    TAVUTexture::Delete(TabSelectedTexture);
    TAVUTexture::Delete(FrameTexture);
    if (OnSelect) OnSelect->Delete();
    for (unsigned slot = 0; slot < Tabs.GetSize(); ++slot)
        delete Tabs[slot];
}

bool TAVUTabControl::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    Draggable = TAVUControlHelpers::ReadToggle(node, templateNode, "Draggable", false);
    SelectedTextColor = TAVUControlHelpers::ReadHex(node, templateNode, "SelectedTextColor", 0);
    TabHeight = TAVUControlHelpers::ReadInt(node, templateNode, "TabHeight", 0);
    TabBorder = TAVUControlHelpers::ReadInt(node, templateNode, "TabBorder", 0);
    TAVUControlHelpers::ReplaceTexture(TabTexture,
                                       TextureFromXML(node, "TabTexture", templateNode));
    TAVUControlHelpers::ReplaceTexture(TabSelectedTexture,
                                       TextureFromXML(node, "TabSelectedTexture", templateNode));
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    if (TAVUEmbeddedScript* script =
            EmbeddedScriptFromXML(node, "OnSelect", templateNode, "int ID")) {
        if (OnSelect) OnSelect->Delete();
        OnSelect = script;
    }
    TAVUControlHelpers::ReplaceTexture(FrameTexture,
                                       TextureFromXML(node, "FrameTexture", templateNode));
    FrameBackgroundColor =
        TAVUControlHelpers::ReadHex(node, templateNode, "FrameBackgroundColor", 0);
    FrameBorder = TAVUControlHelpers::ReadInt(node, templateNode, "FrameBorder", 0);
    FrameBorderColor = TAVUControlHelpers::ReadHex(node, templateNode, "FrameBorderColor", 0);
    LeftButton = ButtonFromXML(node, templateNode, kLeftKeys);
    if (!LeftButton) return false;
    RightButton = ButtonFromXML(node, templateNode, kRightKeys);
    if (!RightButton) return false;
    TabsFromXML(node);
    return true;
}

// A scroll button from the "LeftButton" or "RightButton" child, else one of
// code with this control's own textures. The right one reads its node a
// second time, which interfaces have come to rely on.
TAVUButton* TAVUTabControl::ButtonFromXML(XMLNode* node, XMLNode* templateNode,
                                          const ScrollButtonKeys& keys) {
    XMLNode* child = XMLHelper::GetChild(node, keys.Child);
    if (!child) child = XMLHelper::GetChild(templateNode, keys.Child);
    TAVUButton* button = nullptr;
    if (child) {
        button = static_cast<TAVUButton*>(
            g_UIManager.LoadElement(this, "button", keys.Name, child, nullptr));
        if (!button) return nullptr;
        if (keys.ReadTwice) button->FromXML(child, nullptr);
    } else {
        button = new TAVUButton("button", this, keys.Name);
        _CreateButton create;
        create.UseTemplateTextures = 1;
        button->Create(create, nullptr);
        FillTexture(this, button->Texture, node, keys.Textures[0], templateNode);
        FillTexture(this, button->TexturePressed, node, keys.Textures[1], templateNode);
        FillTexture(this, button->TextureHover, node, keys.Textures[2], templateNode);
    }
    button->Height = int(TabHeight);
    button->Width = int(TabHeight);
    return button;
}

// Loading selects nothing: the first drawing shows the first tab.
void TAVUTabControl::TabsFromXML(XMLNode* node) {
    XMLNode* tabs = XMLHelper::GetChild(node, "Tabs");
    unsigned id = ID;
    for (XMLNode* tab = tabs ? tabs->FirstChild : nullptr; tab; tab = tab->Next) {
        if (tab->Type != XMLNode::Element || StrCompareNoCase(tab->Name, "Tab") != 0) continue;
        const char* name = XMLHelper::GetStringAttribute(tab, "Name", "");
        AddTab(name, tab->FirstChild, name, nullptr);
        if (!g_UIManager.FindElementByID(id)) return;
    }
}

bool TAVUTabControl::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

unsigned TAVUTabControl::AddTab(const char* name, XMLNode* firstChild, const char* frameName,
                                const char*) {
    if (!name || GetTabFromName(name)) return 0;
    auto* tab = new CTAVUTab(name, this);
    int slot = Tabs.Add(tab);
    int order = slot < 0 ? -1 : Ordered.Add(tab);
    if (order < 0) {
        if (slot >= 0) Tabs.Remove(unsigned(slot));
        delete tab;
        return 0;
    }
    tab->ID = unsigned(slot) + 1;
    tab->Order = unsigned(order);
    tab->Width = unsigned(Font ? Font->GetTextWidth(name) : 0) + kTabPadding + 2 * TabBorder;
    ++TabCount;
    unsigned tabID = tab->ID;
    tab->Frame = CreatePage(frameName);
    TAVUElementWatch watch(this);
    LoadPageChildren(tab->Frame, firstChild);
    if (!watch.Alive()) return tabID;
    SizeRecalculated(true);
    // The page's own events may delete it, or this control.
    TAVUFrame* page = Tabs[tabID - 1] ? Tabs[tabID - 1]->Frame : nullptr;
    if (!page) return tabID;
    TAVUElementWatch pageWatch(page);
    page->OnCreate();
    if (pageWatch.Alive() && page->OnLoad) page->OnLoad->Execute(0, nullptr);
    return tabID;
}

TAVUFrame* TAVUTabControl::CreatePage(const char* frameName) {
    auto* page = new TAVUFrame("frame", this, frameName);
    _CreateFrame create;
    create.Y = int(TabHeight);
    create.Visible = false;
    create.BackgroundColor = FrameBackgroundColor;
    create.Border = FrameBorder;
    create.BorderColor = FrameBorderColor;
    page->Create(create);
    if (FrameTexture) page->Texture = TAVUTexture::New(*FrameTexture);
    return page;
}

// A child that fails is reported and skipped; the others still load.
void TAVUTabControl::LoadPageChildren(TAVUFrame* page, XMLNode* firstChild) {
    TAVUElementWatch watch(this);
    TAVUElementWatch pageWatch(page);
    for (XMLNode* node = firstChild; node; node = node->Next) {
        if (node->Type != XMLNode::Element) continue;
        const char* childName = XMLHelper::GetStringAttribute(node, "Name", "");
        TAVUElement* child = g_UIManager.LoadElement(page, node->Name, childName, node, nullptr);
        if (!watch.Alive() || !pageWatch.Alive()) return;
        if (!child)
            g_pHost->ConsolePrintf("Failed to create %s child %s for %s", node->Name, childName,
                                   page->Name);
    }
}

// The order of the other tabs closes up; FirstVisible stays, so the strip may
// show nothing until it is scrolled back.
void TAVUTabControl::RemoveTab(unsigned id) {
    if (id == 0 || id > Tabs.GetSize()) return;
    if (DragTab == id) DragTab = 0;
    if (Selected == id) Selected = 0;
    CTAVUTab* tab = Tabs[id - 1];
    if (!tab) return;
    Tabs.Remove(id - 1);
    for (unsigned order = tab->Order; order + 1 < Ordered.GetSize(); ++order) {
        CTAVUTab* later = Ordered[order + 1];
        Ordered.Set(order, later);
        if (later) later->Order = order;
    }
    // The last place was copied one down; a tab dragged past the others may
    // have stood there, and must not be left in two places.
    Ordered.Remove(Ordered.GetSize() - 1);
    --TabCount;
    Ordered.Remove(TabCount);
    TAVUFrame* page = tab->Frame;
    delete tab;
    if (page) DeleteChild(page);
}

unsigned TAVUTabControl::GetTabFromPoint(_Point2i& point) {
    unsigned offset = 0;
    if (!StripOffset(point, offset)) return 0;
    int right = WrapAdd(AbsolutePosition.x, RightButton ? RightButton->X : Width);
    if (point.x < AbsolutePosition.x || point.x >= right) return 0;
    CTAVUTab* tab = TabAtOffset(offset);
    return tab ? tab->ID : 0;
}

// Past the last tab the answer is 0, so a tab dragged beyond the strip's end
// goes to the very first place; interfaces rely on it.
unsigned TAVUTabControl::GetOrderFromPoint(_Point2i& point) {
    unsigned offset = 0;
    if (!StripOffset(point, offset)) return 0;
    if (point.x < AbsolutePosition.x) return FirstVisible;
    CTAVUTab* tab = TabAtOffset(offset);
    return tab ? tab->Order : 0;
}

// Over the left button the offset wraps to a huge number, which no tab holds.
bool TAVUTabControl::StripOffset(_Point2i& point, unsigned& offset) {
    if (TabCount == 0) return false;
    int top = AbsolutePosition.y;
    if (point.y < top || point.y > WrapAdd(top, int(TabHeight))) return false;
    offset = unsigned(point.x) - unsigned(AbsolutePosition.x) - TabHeight;
    return true;
}

CTAVUTab* TAVUTabControl::TabAtOffset(unsigned offset) {
    for (unsigned order = FirstVisible; order < Ordered.GetSize(); ++order) {
        CTAVUTab* tab = Ordered[order];
        if (!tab) continue;
        if (offset < tab->Width) return tab;
        offset -= tab->Width;
    }
    return nullptr;
}

// Selecting the shown tab again does nothing; an unknown ID leaves none shown.
void TAVUTabControl::SelectTab(unsigned id) {
    if (id == Selected) return;
    CTAVUTab* shown = Selected ? Tabs[Selected - 1] : nullptr;
    if (shown && shown->Frame) shown->Frame->Show(false);
    Selected = 0;
    CTAVUTab* tab = id ? Tabs[id - 1] : nullptr;
    if (!tab) return;
    if (tab->Frame) tab->Frame->Show(true);
    Selected = id;
    if (!OnSelect) return;
    char text[16];
    snprintf(text, sizeof(text), "%u", id);
    char* argv[] = {text};
    OnSelect->Execute(1, argv);
}

void TAVUTabControl::ClearSelection() {
    SelectTab(0);
}

CTAVUTab* TAVUTabControl::GetTabFromName(const char* name) {
    for (unsigned slot = 0; slot < Tabs.GetSize(); ++slot) {
        CTAVUTab* tab = Tabs[slot];
        if (tab && StrCompareNoCase(tab->Name, name ? name : "") == 0) return tab;
    }
    return nullptr;
}

void TAVUTabControl::MoveTab(CTAVUTab* tab, unsigned order) {
    if (!tab || TabCount == 0) return;
    ShiftTab(tab, std::min(order, TabCount - 1));
}

void TAVUTabControl::ShiftTab(CTAVUTab* tab, unsigned place) {
    unsigned from = tab->Order;
    if (place == from || place >= Ordered.GetSize()) return;
    int step = place > from ? 1 : -1;
    for (unsigned order = from; order != place; order += step) {
        CTAVUTab* next = Ordered[order + step];
        Ordered.Set(order, next);
        if (next) next->Order = order;
    }
    Ordered.Set(place, tab);
    tab->Order = place;
}

bool TAVUTabControl::OnLMouseDown(_Point2i& point) {
    TAVUElementWatch watch(this);
    if (unsigned id = GetTabFromPoint(point)) {
        SelectTab(id);
        if (!watch.Alive()) return true;
        if (Draggable) DragTab = id;
    }
    TAVUElement::OnLMouseDown(point);
    return true;
}

bool TAVUTabControl::OnLMouseUp(_Point2i& point) {
    DragTab = 0;
    TAVUElement::OnLMouseUp(point);
    return true;
}

// A dragged tab follows the pointer; unlike MoveTab, nothing keeps it inside
// the tabs there are.
bool TAVUTabControl::OnMouseMove(_Point2i& point) {
    if (CTAVUTab* tab = DragTab ? Tabs[DragTab - 1] : nullptr) {
        unsigned order = GetOrderFromPoint(point);
        if (order != tab->Order) ShiftTab(tab, order);
    }
    TAVUElement::OnMouseMove(point);
    return true;
}

// The scroll buttons act as they are pressed. A part that goes away is
// forgotten. Everything also goes on to the parent as it came.
void TAVUTabControl::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (code == TAVU_NOTIFY_CHILD_REMOVED) ForgetPart(source);
    if (code == TAVU_NOTIFY_LEFT_DOWN && source && source == LeftButton && FirstVisible > 0)
        --FirstVisible;
    if (code == TAVU_NOTIFY_LEFT_DOWN && source && source == RightButton && TabCount > 0 &&
        ++FirstVisible >= TabCount)
        FirstVisible = TabCount - 1;
    if (Parent) Parent->OnNotify(source, code, value);
}

void TAVUTabControl::ForgetPart(TAVUElement* part) {
    if (!part) return;
    if (part == LeftButton) LeftButton = nullptr;
    if (part == RightButton) RightButton = nullptr;
    for (unsigned slot = 0; slot < Tabs.GetSize(); ++slot)
        if (CTAVUTab* tab = Tabs[slot]; tab && tab->Frame == part) tab->Frame = nullptr;
}

void TAVUTabControl::RecalculateSize(bool) {
    TAVUElement::RecalculateSize(false);
}

void TAVUTabControl::SizeRecalculated(bool) {
    for (unsigned slot = 0; slot < Tabs.GetSize(); ++slot) {
        CTAVUTab* tab = Tabs[slot];
        if (!tab || !tab->Frame) continue;
        tab->Frame->Width = Width;
        tab->Frame->Height = WrapSubtract(Height, int(TabHeight));
        tab->Frame->RecalculateChildrenSize();
    }
    if (RightButton) RightButton->X = WrapSubtract(Width, int(TabHeight));
}

// With no tabs nothing is drawn at all, not even the children.
void TAVUTabControl::Render() {
    if (Selected == 0) {
        if (TabCount == 0) return;
        SelectFirstSilently();
    }
    if (LeftButton) LeftButton->Show(FirstVisible != 0);
    if (RightButton) RightButton->Show(false);
    RenderTabs();
    TAVUElement::Render();
}

// The first drawing shows a page without an "OnSelect": scripts hear only of
// changes that someone made.
void TAVUTabControl::SelectFirstSilently() {
    for (unsigned order = 0; order < Ordered.GetSize(); ++order) {
        CTAVUTab* tab = Ordered[order];
        if (!tab) continue;
        Selected = tab->ID;
        if (tab->Frame) tab->Frame->Show(true);
        return;
    }
}

// Tabs from FirstVisible on until the strip is full; the tab that reaches its
// end is cut there. The right button shows then, unless that tab stood in the
// last place the order has room for (so spare room shows it too).
void TAVUTabControl::RenderTabs() {
    int x = AbsolutePosition.x;
    int y = AbsolutePosition.y;
    tagRECT rect{WrapAdd(x, int(TabHeight)), y, 0, WrapAdd(y, int(TabHeight))};
    int limit = WrapSubtract(WrapAdd(x, Width), int(TabHeight));
    unsigned fontHeight = Font ? Font->Height : 0;
    int textY = WrapAdd(y, int((TabHeight - fontHeight) / 2));
    unsigned capacity = Ordered.GetSize();
    for (unsigned order = FirstVisible; order < capacity; ++order) {
        CTAVUTab* tab = Ordered[order];
        if (!tab) continue;
        rect.right = std::min(limit, WrapAdd(int(rect.left), int(tab->Width)));
        RenderTab(tab, rect, textY);
        rect.left = rect.right;
        if (rect.left < limit) continue;
        if (RightButton && order + 1 != capacity) RightButton->Show(true);
        break;
    }
}

// A tab whose texture has no frame of its own gets this control's border
// line; one with a frame is drawn in nine cells that keep it.
void TAVUTabControl::RenderTab(CTAVUTab* tab, tagRECT& rect, int textY) {
    bool selected = tab->ID == Selected;
    TAVUTexture* texture = selected ? TabSelectedTexture : TabTexture;
    if (texture && texture->Border == 0) {
        TexturedRect(rect, texture);
        if (TabBorder) DrawBorder(rect, TabBorder, FrameBorderColor);
    } else if (texture) {
        TexturedRectBordered(rect, texture, TabBorder);
    }
    unsigned color = Font ? Font->Color : 0;
    if (Font && selected) Font->Color = SelectedTextColor;
    DrawTextCenter(Font, tab->Name, int(rect.left), textY, int(rect.right));
    if (Font) Font->Color = color;
}

RXTypeDefinition* TAVUTabControl::GetRXType() {
    return pTAVUTabControlType;
}
