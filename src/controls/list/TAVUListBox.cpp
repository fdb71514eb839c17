#include "TAVUListBox.h"

#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StableSort.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUScriptTypes.h"
#include "TAVUScrollBar.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"
#include "XMLNode.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace {
const char kTypeWord[] = "listbox";
const char kEventArguments[] = "int ID";
// The scroll bar made from a named template.
const int kScrollBarWidth = 16;

const ListBoxItem* Entry(const void* place) {
    return *static_cast<ListBoxItem* const*>(place);
}

int CompareText(const void* a, const void* b) {
    const char* x = Entry(a)->Text;
    const char* y = Entry(b)->Text;
    return strcmp(x ? x : "", y ? y : "");
}

int CompareTextReverse(const void* a, const void* b) {
    return CompareText(b, a);
}

// Values compare as bytes, the shorter first on a common start: a number
// held in a value sorts as text, so "10" comes before "9".
int CompareValue(const void* a, const void* b) {
    const char* x = Entry(a)->Value;
    const char* y = Entry(b)->Value;
    size_t xLength = strlen(x);
    size_t yLength = strlen(y);
    int common = memcmp(x, y, std::min(xLength, yLength));
    if (common == 0 && xLength == yLength) return 0;
    bool less = common < 0 || (common == 0 && xLength < yLength);
    return less ? -1 : 1;
}

int CompareValueReverse(const void* a, const void* b) {
    return CompareValue(b, a);
}

ListBoxCompare SortComparison(unsigned sort) {
    switch (sort) {
    case TAVUListBox::SortText:
        return CompareText;
    case TAVUListBox::SortValue:
        return CompareValue;
    case TAVUListBox::SortTextReverse:
        return CompareTextReverse;
    case TAVUListBox::SortValueReverse:
        return CompareValueReverse;
    }
    return nullptr;
}

unsigned SortFromWord(const char* word) {
    for (unsigned sort = 0; sort < TAVUListBox::SortTypeCount; ++sort)
        if (StrCompareNoCase(word, TAVUListBox::SortWords[sort]) == 0) return sort;
    return TAVUListBox::SortNone;
}
} // namespace

const char* const TAVUListBox::SortWords[SortTypeCount] = {
    "None", "User", "Text", "Value", "custom", "TextReverse", "ValueReverse"};

TAVUFactory<TAVUListBox> g_TAVUListBoxFactory(kTypeWord);

TAVUListBox::TAVUListBox(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

TAVUListBox::~TAVUListBox() {
    TAVUFont::Delete(Font);
    TAVUTexture::Delete(Texture);
    if (OnSelect) OnSelect->Delete();
    if (OnDeSelect) OnDeSelect->Delete();
    Selection.clear();
    for (unsigned place = 0; place < Items.Capacity(); ++place)
        delete Items.Get(place);
}

bool TAVUListBox::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    BackgroundColor = TAVUControlHelpers::ReadHex(node, templateNode, "BackgroundColor", 0);
    SelectionColor = TAVUControlHelpers::ReadHex(node, templateNode, "SelectionColor", 0);
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    if (!Font) return false;
    DefaultTextColor = Font->Color;
    BorderColor = TAVUControlHelpers::ReadHex(node, templateNode, "BorderColor", 0);
    Border = TAVUControlHelpers::ReadInt(node, templateNode, "Border", 0);
    SelectMultiple = TAVUControlHelpers::ReadToggle(node, templateNode, "SelectMultiple", false);
    ReadEvents(node, templateNode);
    Sort = SortFromWord(TAVUControlHelpers::ReadString(node, templateNode, "Sort"));
    if (!LoadScrollBar(node, templateNode)) return false;
    TAVUTexture::Delete(Texture);
    Texture = TextureFromXML(node, "Texture", templateNode);
    TAVUControlHelpers::ApplyColorMask(node, templateNode, &Texture, 1);
    ReadItems(this, XMLHelper::GetChild(node, "Items"));
    Ready = true;
    ApplySort();
    return true;
}

void TAVUListBox::ReadEvents(XMLNode* node, XMLNode* templateNode) {
    TAVUEmbeddedScript** fields[2] = {&OnSelect, &OnDeSelect};
    const char* keys[2] = {"OnSelect", "OnDeSelect"};
    for (int i = 0; i < 2; ++i) {
        TAVUEmbeddedScript* script =
            EmbeddedScriptFromXML(node, keys[i], templateNode, kEventArguments);
        if (!script) continue;
        if (*fields[i]) (*fields[i])->Delete();
        *fields[i] = script;
    }
}

// Items are added unsorted while the list loads: it sorts once when the
// walk is over, not at every row.
void TAVUListBox::ReadItems(TAVUListBox* list, XMLNode* node) {
    TAVUElementWatch watch(list);
    for (XMLNode* item = XMLHelper::GetFirstChild(node); item && watch.Alive(); item = item->Next) {
        if (item->Type != XMLNode::Element || StrCompareNoCase(item->Name, "item") != 0) continue;
        if (!item->FirstChild) continue;
        unsigned id = list->AddItem(XMLHelper::GetText(item->FirstChild),
                                    XMLHelper::GetStringAttribute(item, "Value", ""),
                                    XMLHelper::GetHexAttribute(item, "Color", 0));
        const char* selected = XMLHelper::GetStringAttribute(item, "Default", "");
        if (selected[0] && atoi(selected) != 0 && watch.Alive()) list->SelectItem(id);
    }
}

// An empty "ScrollBar" key means a child element describes the scroll bar;
// a word names the template of one made here, hidden until rows overflow.
bool TAVUListBox::LoadScrollBar(XMLNode* node, XMLNode* templateNode) {
    const char* templateName = TAVUControlHelpers::ReadString(node, templateNode, "ScrollBar");
    if (templateName[0]) {
        CreateNamedScrollBar(templateName);
    } else {
        XMLNode* child = XMLHelper::GetChild(node, "ScrollBar");
        if (!child) child = XMLHelper::GetChild(templateNode, "ScrollBar");
        ScrollBar = static_cast<TAVUScrollBar*>(
            g_UIManager.LoadElement(this, "scrollbar", "vertical", child, nullptr));
        if (!ScrollBar) return false;
        ScrollBar->Range = 1;
    }
    ScrollBar->RecalculateSize(true);
    return true;
}

void TAVUListBox::CreateNamedScrollBar(const char* templateName) {
    ScrollBar = new TAVUScrollBar("scrollbar", this, "vertical");
    _CreateScrollBar create;
    create.Width = kScrollBarWidth;
    create.HeightPosition.Type = ElementPosition::Fraction;
    create.HeightPosition.Value.Factor = 1.0f;
    create.Range = 1;
    create.Vertical = true;
    ScrollBar->Create(create, g_UIManager.FindTemplate(templateName));
    ScrollBar->Visible = false;
}

void TAVUListBox::Create(_CreateListBox& create, XMLNode* templateNode) {
    TAVUApplyCreateHead(this, create);
    if (!templateNode) templateNode = g_UIManager.FindTemplate(kTypeWord);
    BackgroundColor = create.BackgroundColor;
    SelectionColor = create.SelectionColor;
    BorderColor = create.BorderColor;
    Border = create.Border;
    SelectMultiple = create.SelectMultiple;
    Sort = create.Sort;
    TAVUFont::Delete(Font);
    Font = TAVUFont::New(this, create.Font, templateNode);
    const char* templateName = XMLHelper::GetStringValue(templateNode, "ScrollBar", "");
    if (templateName[0]) {
        CreateNamedScrollBar(templateName);
    } else {
        ScrollBar = new TAVUScrollBar("scrollbar", this, "vertical");
        ScrollBar->FromXML(XMLHelper::GetChild(templateNode, "ScrollBar"), nullptr);
        ScrollBar->Range = 1;
    }
    ScrollBar->RecalculateSize(true);
    Ready = true;
}

bool TAVUListBox::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

unsigned TAVUListBox::RowPitch() const {
    return (Font ? Font->Height : 0) + 1;
}

// No allowance for the border: a bordered list counts the rows of its
// whole height.
unsigned TAVUListBox::VisibleRows() const {
    return Height > 0 ? unsigned(Height) / RowPitch() : 0;
}

void TAVUListBox::FitScrollBar(bool resetOffset) {
    if (!ScrollBar) return;
    unsigned rows = VisibleRows();
    if (ItemCount <= rows) {
        if (resetOffset) ScrollOffset = 0;
        ScrollBar->Show(false);
        return;
    }
    TAVUElementWatch watch(this);
    ScrollBar->SetRange(ItemCount - rows);
    if (!watch.Alive() || !ScrollBar) return;
    ScrollBar->Show(true);
    ScrollBar->X = WrapSubtract(WrapSubtract(Width, ScrollBar->Width), int(Border));
    ScrollBar->SetValue(ScrollBar->Range - ScrollOffset);
}

void TAVUListBox::RecalculateSize(bool recurse) {
    TAVUElement::RecalculateSize(recurse);
    FitScrollBar(true);
}

// A vertical scroll bar is highest at the top, so the top row is the
// range less the value.
void TAVUListBox::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (!source || source != ScrollBar) return;
    if (code == TAVU_NOTIFY_CHILD_REMOVED)
        ScrollBar = nullptr;
    else if (code == TAVU_NOTIFY_VALUE_CHANGED)
        ScrollOffset = ScrollBar->Range - unsigned(value);
}

unsigned TAVUListBox::AddItem(const char* text, const char* value, unsigned color) {
    unsigned place = Items.FreePlace();
    auto* item = new ListBoxItem(this, text, color ? color : DefaultTextColor, value, place + 1);
    Items.Set(place, item);
    item->Order = Ordered.FreePlace();
    Ordered.Set(item->Order, item);
    ++ItemCount;
    TAVUElementWatch watch(this);
    FitScrollBar(false);
    if (watch.Alive() && Ready) ApplySort();
    return item->ID;
}

unsigned TAVUListBox::PlaceOf(ListBoxItem* item) const {
    if (Ordered.Get(item->Order) == item) return item->Order;
    for (unsigned order = 0; order < ItemCount; ++order)
        if (Ordered.Get(order) == item) return order;
    return ItemCount;
}

// The scroll range is left as it is: it catches up at the next add or
// resize.
void TAVUListBox::RemoveItem(unsigned id) {
    if (id - 1 >= Items.Capacity()) return;
    if (id == DragItem) DragItem = 0;
    TAVUElementWatch watch(this);
    DeselectItem(id);
    ListBoxItem* item = watch.Alive() ? RetrieveItem(id) : nullptr;
    if (!item) return;
    Items.Set(id - 1, nullptr);
    unsigned order = PlaceOf(item);
    --ItemCount;
    for (; order < ItemCount; ++order) {
        ListBoxItem* next = Ordered.Get(order + 1);
        Ordered.Set(order, next);
        if (next) next->Order = order;
    }
    Ordered.Set(ItemCount, nullptr);
    delete item;
}

void TAVUListBox::ClearItems() {
    TAVUElementWatch watch(this);
    ClearSelection();
    if (!watch.Alive()) return;
    ScrollOffset = 0;
    ItemCount = 0;
    for (unsigned place = 0; place < Items.Capacity(); ++place)
        delete Items.Get(place);
    Items.Clear();
    Ordered.Clear();
    DragItem = 0;
}

bool TAVUListBox::ReportSelection(TAVUEmbeddedScript* script, unsigned id) {
    TAVUElementWatch watch(this);
    if (script) {
        char text[16];
        snprintf(text, sizeof(text), "%u", id);
        char* argv[] = {text};
        script->Execute(1, argv);
        if (!watch.Alive()) return false;
    }
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_SELECTION_CHANGED, id);
    return watch.Alive();
}

// A single-selection list lets the old row go first, even when the new ID
// turns out to have no item.
void TAVUListBox::SelectItem(unsigned id) {
    if (!SelectMultiple) {
        TAVUElementWatch watch(this);
        ClearSelection();
        if (!watch.Alive()) return;
    }
    ListBoxItem* item = RetrieveItem(id);
    if (!item) return;
    Selection.insert(item);
    ReportSelection(OnSelect, id);
}

void TAVUListBox::DeselectItem(unsigned id) {
    ListBoxItem* item = RetrieveItem(id);
    if (!item || Selection.erase(item) == 0) return;
    ReportSelection(OnDeSelect, id);
}

void TAVUListBox::ItemToggleSelect(unsigned id) {
    ListBoxItem* item = RetrieveItem(id);
    if (!item) return;
    bool selected = IsSelected(item);
    if (selected)
        Selection.erase(item);
    else
        Selection.insert(item);
    ReportSelection(selected ? OnDeSelect : OnSelect, id);
}

// Each pass takes the lowest ID still selected, so a script that changes
// the selection meanwhile cannot leave the walk on a dead entry. The count
// bounds the walk should the scripts keep selecting rows again.
void TAVUListBox::ClearSelection() {
    for (size_t left = Selection.size(); left > 0 && !Selection.empty(); --left) {
        unsigned id = (*Selection.begin())->ID;
        Selection.erase(Selection.begin());
        if (!ReportSelection(OnDeSelect, id)) return;
    }
}

bool TAVUListBox::GetItemValue(unsigned id, unsigned& value) {
    ListBoxItem* item = RetrieveItem(id);
    if (!item) return false;
    value = unsigned(atoi(item->Value));
    return true;
}

void TAVUListBox::SetItemText(unsigned id, const char* text) {
    ListBoxItem* item = RetrieveItem(id);
    if (!item) return;
    item->SetText(text);
    ApplySort();
}

void TAVUListBox::SetItemColor(unsigned id, unsigned color) {
    if (ListBoxItem* item = RetrieveItem(id)) item->Color = color;
}

unsigned TAVUListBox::FindItemByText(const char* text, unsigned) {
    return FindItem(text, false);
}

unsigned TAVUListBox::FindItemByValue(const char* text, unsigned) {
    return FindItem(text, true);
}

unsigned TAVUListBox::FindItem(const char* text, bool byValue) const {
    for (unsigned place = 0; place < Items.Capacity(); ++place) {
        ListBoxItem* item = Items.Get(place);
        if (item && StrCompareNoCase(byValue ? item->Value : item->Text, text) == 0)
            return item->ID;
    }
    return 0;
}

// A point in the top border passes the first test (it allows a border's
// depth above the list) and then falls out as a row far past the end.
unsigned TAVUListBox::GetItemFromPoint(_Point2i& point) {
    if (ItemCount == 0) return 0;
    int64_t top = AbsolutePosition.y;
    if (point.y < top - int64_t(Border) || point.y > top + Height) return 0;
    uint32_t depth = uint32_t(int64_t(point.y) - int64_t(Border) - top);
    uint64_t row = depth / RowPitch() + uint64_t(ScrollOffset);
    ListBoxItem* item = row < Ordered.Capacity() ? Ordered.Get(unsigned(row)) : nullptr;
    return item ? item->ID : 0;
}

// Where a dragged row would land: above the list is the top row shown,
// below it the last row.
unsigned TAVUListBox::GetOrderFromPoint(_Point2i& point) {
    if (ItemCount == 0) return 0;
    int64_t top = AbsolutePosition.y;
    int64_t border = Border;
    if (point.y <= top + border) return ScrollOffset;
    int64_t depth =
        point.y < top + Height - border ? point.y - top - border : int64_t(Height) - 2 * border;
    uint64_t order = uint32_t(depth) / RowPitch() + uint64_t(ScrollOffset);
    return unsigned(std::min<uint64_t>(order, ItemCount - 1));
}

void TAVUListBox::SortItems(ListBoxCompare compare) {
    StableSort(Ordered.Data(), ItemCount, compare);
    for (unsigned order = 0; order < ItemCount; ++order)
        Ordered.Get(order)->Order = order;
}

bool TAVUListBox::TakeOrder(const unsigned* ids, unsigned count) {
    if (count != ItemCount) return false;
    std::vector<ListBoxItem*> items(count);
    std::set<ListBoxItem*> seen;
    for (unsigned order = 0; order < count; ++order) {
        items[order] = RetrieveItem(ids[order]);
        if (!items[order] || !seen.insert(items[order]).second) return false;
    }
    for (unsigned order = 0; order < count; ++order) {
        Ordered.Set(order, items[order]);
        items[order]->Order = order;
    }
    return true;
}

// A custom comparison leaves the items' Order numbers as they were.
void TAVUListBox::ApplySort() {
    if (Sort == SortCustom) {
        StableSort(Ordered.Data(), ItemCount, CustomCompare);
        return;
    }
    if (ListBoxCompare compare = SortComparison(Sort)) SortItems(compare);
}

// A press on a selected row of a single-selection list lets it go; with
// several allowed, the Control key adds and removes rows one by one.
bool TAVUListBox::OnLMouseDown(_Point2i& point) {
    if (!HitTest(point)) return false;
    if (ScrollBar && ScrollBar->Visible && ScrollBar->HitTest(point)) return true;
    Dragged = false;
    TAVUElementWatch watch(this);
    if (unsigned id = GetItemFromPoint(point)) {
        if (Sort == SortUser) DragItem = id;
        bool control = g_UIManager.Control;
        if (IsSelected(RetrieveItem(id))) {
            if (!SelectMultiple)
                ClearSelection();
            else if (control)
                DeselectItem(id);
        } else {
            if (!SelectMultiple || !control) ClearSelection();
            if (watch.Alive()) SelectItem(id);
        }
        if (!watch.Alive()) return true;
    }
    TAVUElement::OnLMouseDown(point);
    return true;
}

void TAVUListBox::MoveItemTo(ListBoxItem* item, unsigned order) {
    unsigned from = PlaceOf(item);
    if (from >= ItemCount) return;
    for (; from < order; ++from) {
        ListBoxItem* next = Ordered.Get(from + 1);
        Ordered.Set(from, next);
        next->Order = from;
    }
    for (; from > order; --from) {
        ListBoxItem* previous = Ordered.Get(from - 1);
        Ordered.Set(from, previous);
        previous->Order = from;
    }
    Ordered.Set(order, item);
    item->Order = order;
}

bool TAVUListBox::OnMouseMove(_Point2i& point) {
    if (DragItem) {
        ListBoxItem* item = RetrieveItem(DragItem);
        unsigned order = item ? GetOrderFromPoint(point) : 0;
        if (!item) {
            DragItem = 0;
        } else if (order != item->Order) {
            Dragged = true;
            MoveItemTo(item, order);
        }
    }
    TAVUElement::OnMouseMove(point);
    return true;
}

// Dragged stays as it is until the next press.
bool TAVUListBox::OnLMouseUp(_Point2i& point) {
    TAVUElementWatch watch(this);
    if (Dragged && Parent) Parent->OnNotify(this, TAVU_NOTIFY_ROWS_REORDERED, DragItem);
    if (!watch.Alive()) return true;
    DragItem = 0;
    TAVUElement::OnLMouseUp(point);
    return true;
}

bool TAVUListBox::OnLMouseDoubleClick(_Point2i& point) {
    TAVUElementWatch watch(this);
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_ROW_DOUBLE_CLICK, GetItemFromPoint(point));
    if (watch.Alive()) TAVUElement::OnLMouseDoubleClick(point);
    return true;
}

// A notch of 120 moves three rows. The element's own wheel event sees the
// size of the turn without its direction.
bool TAVUListBox::OnMouseWheel(int offset) {
    int64_t magnitude = offset < 0 ? -int64_t(offset) : offset;
    if (ScrollBar && ScrollBar->Visible) {
        TAVUElementWatch watch(this);
        if (offset < 0)
            ScrollBar->LowerValue(unsigned(magnitude / 40));
        else if (offset > 0)
            ScrollBar->RaiseValue(unsigned(magnitude / 40));
        if (!watch.Alive()) return true;
    }
    TAVUElement::OnMouseWheel(int(std::min<int64_t>(magnitude, INT32_MAX)));
    return true;
}

void TAVUListBox::Render() {
    tagRECT rect = TAVUControlHelpers::ScreenRect(this);
    if (!Texture) {
        if (Border)
            FillRectBordered(rect, BackgroundColor, Border, BorderColor);
        else
            FillRect(rect, BackgroundColor);
    } else {
        TAVUControlHelpers::DrawTexture(this, rect, Texture, Border, BorderColor);
    }
    DrawRows(rect);
    TAVUElement::Render();
}

// Only the rows from the top one shown are walked, and the walk ends when
// the height is full: a long list costs no more than a short one. At least
// one row is drawn when there is one, however low the list. The text stops
// a border short of the inner edge.
void TAVUListBox::DrawRows(tagRECT rect) {
    int border = int(Border);
    rect = InsetRect(rect, border);
    if (ScrollBar && ScrollBar->Visible) rect.right = WrapSubtract(rect.right, ScrollBar->Width);
    int textRight = WrapSubtract(WrapSubtract(rect.right, border), TextIndent);
    int fontHeight = Font ? int(Font->Height) : 0;
    int64_t rows = VisibleRows();
    for (unsigned order = ScrollOffset; order < ItemCount; ++order) {
        ListBoxItem* item = Ordered.Get(order);
        if (!item) continue;
        if (IsSelected(item)) {
            tagRECT row{rect.left, rect.top, rect.right, WrapAdd(rect.top, fontHeight)};
            FillRect(row, SelectionColor);
        }
        if (Font) Font->Color = item->Color;
        if (item->Text)
            DrawTextClipped(Font, item->Text, WrapAdd(rect.left, TextIndent), rect.top, textRight);
        rect.top = WrapAdd(rect.top, int(RowPitch()));
        if (--rows < 1) break;
    }
}

RXTypeDefinition* TAVUListBox::GetRXType() {
    return pTAVUListBoxType;
}
