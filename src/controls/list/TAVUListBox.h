// "listbox": rows of text with single or multiple selection, a vertical
// scroll bar, six orderings and rows dragged into a new order.
//
// Every item sits in two indexes: by ID (fixed while it lives; script and
// parents speak in IDs) and by Order (where it shows now; sorting and
// dragging touch only this one). The parent hears code 9 whenever the
// selection of an ID changes, either way, 12 for a double click on a row and
// 13 when a drag really moved a row.
#pragma once

#include "ListBoxIndex.h"
#include "ListBoxItem.h"
#include "TAVUCreateHead.h"
#include "TAVUElement.h"
#include "TAVUFont.h"

#include <set>

class TAVUScrollBar;

struct _CreateListBox : _CreateHead {
    _CreateFont Font{};
    unsigned BackgroundColor = 0;
    unsigned Border = 0;
    unsigned BorderColor = 0;
    unsigned SelectionColor = 0;
    unsigned Sort = 0;
    bool SelectMultiple = false;
};

// A comparison of two entries of the Order index (each a ListBoxItem**).
typedef int (*ListBoxCompare)(const void* a, const void* b);

class TAVU_API TAVUListBox : public TAVUElement {
public:
    enum SortType : unsigned {
        SortNone = 0,
        SortUser = 1, // no sorting, but the user may drag rows
        SortText = 2,
        SortValue = 3,
        SortCustom = 4,
        SortTextReverse = 5,
        SortValueReverse = 6,
        SortTypeCount = 7
    };
    // The words of "Sort", by sort type.
    static const char* const SortWords[SortTypeCount];
    // The left margin of a row's text.
    enum : int { TextIndent = 3 };

    TAVUListBox(const char* type, TAVUElement* parent, const char* name);

    ~TAVUListBox() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void RecalculateSize(bool recurse) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    bool OnLMouseDoubleClick(_Point2i& point) override;
    bool OnMouseMove(_Point2i& point) override;
    bool OnMouseWheel(int offset) override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    RXTypeDefinition* GetRXType() override;

    virtual void DeselectItem(unsigned id);
    virtual void SelectItem(unsigned id);
    virtual void ItemToggleSelect(unsigned id);
    virtual void ClearSelection();
    // Answers the new item's ID. A colour of 0 is the list's text colour.
    virtual unsigned AddItem(const char* text, const char* value, unsigned color);
    virtual void RemoveItem(unsigned id);
    virtual void ClearItems();
    // The item's Value read as a number; false for an ID with no item.
    virtual bool GetItemValue(unsigned id, unsigned& value);
    virtual void SetItemText(unsigned id, const char* text);
    virtual void SetItemColor(unsigned id, unsigned color);
    // The first item by ID whose Text (Value) equals text, ignoring case, or 0.
    // The start is carried for callers that pass one; the search always
    // begins at the first ID.
    virtual unsigned FindItemByText(const char* text, unsigned start);
    virtual unsigned FindItemByValue(const char* text, unsigned start);
    virtual unsigned GetItemFromPoint(_Point2i& point);
    virtual unsigned GetOrderFromPoint(_Point2i& point);
    virtual void ApplySort();

    // The item of an ID, or null.
    ListBoxItem* RetrieveItem(unsigned id) const { return Items.Get(id - 1); }
    // The item at a place of the display order, or null.
    ListBoxItem* OrderedItem(unsigned order) const {
        return order < ItemCount ? Ordered.Get(order) : nullptr;
    }
    bool IsSelected(ListBoxItem* item) const { return Selection.count(item) != 0; }
    void Create(_CreateListBox& create, XMLNode* templateNode);
    // Sorts the display order with the comparison and numbers it again.
    void SortItems(ListBoxCompare compare);
    // Takes a display order given as IDs, as a sort over IDs leaves it. An
    // order that no longer names every item once (a script removed or added
    // rows meanwhile) is refused, leaving the list as it was.
    bool TakeOrder(const unsigned* ids, unsigned count);
    // Reads "Items": each "item" with text adds a row, and "Default" selects it.
    static void ReadItems(TAVUListBox* list, XMLNode* node);
    // The row pitch and how many whole rows fit in the height.
    unsigned RowPitch() const;
    unsigned VisibleRows() const;

    // Orders the selection by ID, so that its walks are the same every run.
    struct ByID {
        bool operator()(const ListBoxItem* a, const ListBoxItem* b) const { return a->ID < b->ID; }
    };

    TAVUFont* Font = nullptr;
    unsigned BackgroundColor = 0;
    unsigned Border = 0;
    unsigned BorderColor = 0;
    unsigned SelectionColor = 0;
    unsigned Sort = SortNone;
    bool SelectMultiple = false;
    TAVUTexture* Texture = nullptr;
    TAVUEmbeddedScript* OnSelect = nullptr;
    TAVUEmbeddedScript* OnDeSelect = nullptr;
    unsigned DefaultTextColor = 0;
    TAVUScrollBar* ScrollBar = nullptr;
    bool Ready = false;
    bool AutoSort = false; // read by script; nothing sets it
    ListBoxCompare CustomCompare = nullptr;
    unsigned ScrollOffset = 0;
    std::set<ListBoxItem*, ByID> Selection;
    ListBoxIndex Items;
    ListBoxIndex Ordered;
    unsigned ItemCount = 0;
    unsigned DragItem = 0;
    bool Dragged = false;

private:
    bool LoadScrollBar(XMLNode* node, XMLNode* templateNode);
    void CreateNamedScrollBar(const char* templateName);
    void ReadEvents(XMLNode* node, XMLNode* templateNode);
    // Shows the scroll bar when the rows overflow, with the range they need.
    void FitScrollBar(bool resetOffset);
    // Runs OnSelect or OnDeSelect with the ID, then tells the parent (code 9).
    // False when the list did not survive it.
    bool ReportSelection(TAVUEmbeddedScript* script, unsigned id);
    // Where the item shows now; ItemCount when it is not in the order.
    unsigned PlaceOf(ListBoxItem* item) const;
    void MoveItemTo(ListBoxItem* item, unsigned order);
    // The first item by ID whose Text (or Value) equals text, ignoring case.
    unsigned FindItem(const char* text, bool byValue) const;
    void DrawRows(tagRECT rect);
};
