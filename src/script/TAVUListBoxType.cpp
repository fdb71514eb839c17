#include "TAVUListBoxType.h"

#include "Module.h"
#include "StableSort.h"
#include "StringHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUListBox.h"
#include "TAVUListBoxItemType.h"
#include "TAVUScriptTypes.h"

#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <vector>

namespace {
enum Member : uint32_t {
    MemberFont,
    MemberTextColor,
    MemberBackgroundColor,
    MemberBorder,
    MemberBorderColor,
    MemberSelectionColor,
    MemberSortType,
    MemberSelectMultiple,
    MemberAutoSort,
    MemberItem,
    MemberItems,
    MemberOrderedItem,
    MemberItemByText,
    MemberItemByValue,
    MemberSelectedItem,
    MemberSelectedItems,
    MemberTexture,
    MemberCount
};

enum Method : uint32_t {
    MethodSetTextColor,
    MethodSetBackgroundColor,
    MethodSetBorderColor,
    MethodSetSelectionColor,
    MethodSetSortType,
    MethodSetSelectMultiple,
    MethodSetAutoSort,
    MethodDeselectItem,
    MethodSelectItem,
    MethodItemToggleSelect,
    MethodClearSelection,
    MethodAddItem,
    MethodRemoveItem,
    MethodClearItems,
    MethodSetItemText,
    MethodSetItemColor,
    MethodSort,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {
    "Font",           "TextColor",   "BackgroundColor", "Border",      "BorderColor",
    "SelectionColor", "SortType",    "SelectMultiple",  "AutoSort",    "Item",
    "Items",          "OrderedItem", "ItemByText",      "ItemByValue", "SelectedItem",
    "SelectedItems",  "Texture"};
const char* const kMethodNames[MethodCount] = {
    "SetTextColor", "SetBackgroundColor", "SetBorderColor", "SetSelectionColor",
    "SetSortType",  "SetSelectMultiple",  "SetAutoSort",    "DeselectItem",
    "SelectItem",   "ItemToggleSelect",   "ClearSelection", "AddItem",
    "RemoveItem",   "ClearItems",         "SetItemText",    "SetItemColor",
    "Sort"};

// The words of "SortType", by sort type.
const char* const kSortNames[TAVUListBox::SortTypeCount] = {
    "none", "user", "text", "value", "custom", "textreverse", "valuereverse"};

// The first item in display order whose text (or value) equals the word.
ListBoxItem* FindInOrder(TAVUListBox* list, const char* word, bool byValue) {
    for (unsigned order = 0; order < list->ItemCount; ++order) {
        ListBoxItem* item = list->OrderedItem(order);
        if (item && StrCompareNoCase(byValue ? item->Value : item->Text, word) == 0) return item;
    }
    return nullptr;
}

ListBoxItem* SelectedItem(TAVUListBox* list, int n) {
    if (n < 1 || size_t(n) > list->Selection.size()) return nullptr;
    return *std::next(list->Selection.begin(), n - 1);
}

// The comparison of a sort through a script atom sees only IDs: the list's
// order is rebuilt from the sorted IDs afterwards, and only if every item
// outlived the atoms. A sort started from inside the atom keeps its own.
struct AtomSort {
    unsigned Atom;
    TAVUListBox* List;
};
AtomSort g_AtomSort{0, nullptr};

int CompareByAtom(const void* a, const void* b) {
    char first[16];
    char second[16];
    snprintf(first, sizeof(first), "%u", *static_cast<const unsigned*>(a));
    snprintf(second, sizeof(second), "%u", *static_cast<const unsigned*>(b));
    char* argv[2] = {first, second};
    _RXTypeVar list{};
    list.Type = pTAVUListBoxType;
    list.Value.Pointer = g_AtomSort.List;
    char result[TAVU_ATOM_RESULT_BUFFER] = {0};
    if (!g_pHost->ExecuteAtomForResult(g_AtomSort.Atom, 2, argv, &list, 0, result, sizeof(result)))
        return 0;
    return TAVUScriptType::ArgInt(result);
}

bool SortByAtom(TAVUListBox* list, const char* name) {
    unsigned atom = g_pHost->FindAtom(name ? name : "");
    if (atom == 0) return false;
    std::vector<unsigned> ids;
    ids.reserve(list->ItemCount);
    for (unsigned order = 0; order < list->ItemCount; ++order)
        ids.push_back(list->OrderedItem(order)->ID);
    AtomSort outer = g_AtomSort;
    g_AtomSort = {atom, list};
    TAVUElementWatch watch(list);
    StableSort(ids.data(), ids.size(), CompareByAtom);
    g_AtomSort = outer;
    if (watch.Alive()) list->TakeOrder(ids.data(), unsigned(ids.size()));
    return true;
}

bool SetSortType(TAVUListBox* list, const char* word) {
    for (unsigned sort = 0; sort < TAVUListBox::SortTypeCount; ++sort) {
        if (!TAVUScriptType::ArgWord(word, kSortNames[sort])) continue;
        list->Sort = sort;
        return true;
    }
    return false;
}

// "AddItem": text, then an optional value and an optional hex colour. A
// colour that does not parse is 9.
bool AddItem(TAVUListBox* list, int argc, char* argv[]) {
    if (argc < 1) return false;
    unsigned color = 0;
    if (argc >= 3) {
        color = 9;
        TAVUScriptType::ArgHex(argv[2], color);
    }
    list->AddItem(argv[0], argc >= 2 ? argv[1] : nullptr, color);
    return true;
}

bool SetColor(unsigned& field, int argc, char* argv[]) {
    if (argc < 1) return false;
    TAVUScriptType::ArgHex(argv[0], field);
    return true;
}
} // namespace

TAVUListBoxType::TAVUListBoxType() : TAVUControlType("tavulistbox", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUListBoxType::Make() {
    return new TAVUListBoxType();
}

// "SelectionColor" answers the border colour, as scripts written for this
// type have always read it.
bool TAVUListBoxType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                                _RXTypeVar& result) {
    auto* list = static_cast<TAVUListBox*>(object.Value.Pointer);
    if (!list) return false;
    const char* argument = argc >= 1 ? argv[0] : nullptr;
    switch (member->ID) {
    case MemberFont:
        return SetFont(result, list->Font);
    case MemberTextColor:
        return SetInt(result, int(list->DefaultTextColor));
    case MemberBackgroundColor:
        return SetInt(result, int(list->BackgroundColor));
    case MemberBorder:
        return SetInt(result, int(list->Border));
    case MemberBorderColor:
    case MemberSelectionColor:
        return SetInt(result, int(list->BorderColor));
    case MemberSortType:
        return list->Sort < TAVUListBox::SortTypeCount && SetString(result, kSortNames[list->Sort]);
    case MemberSelectMultiple:
        return SetBool(result, list->SelectMultiple);
    case MemberAutoSort:
        return SetBool(result, list->AutoSort);
    case MemberItem:
        return argument &&
               TAVUListBoxItemType::SetItem(result, list->RetrieveItem(unsigned(ArgInt(argument))));
    case MemberItems:
        return SetInt(result, int(list->ItemCount));
    case MemberOrderedItem:
        return argument && TAVUListBoxItemType::SetItem(
                               result, list->OrderedItem(unsigned(ArgInt(argument)) - 1));
    case MemberItemByText:
    case MemberItemByValue:
        return argument &&
               TAVUListBoxItemType::SetItem(
                   result, FindInOrder(list, argument, member->ID == MemberItemByValue));
    case MemberSelectedItem:
        return TAVUListBoxItemType::SetItem(result,
                                            SelectedItem(list, argument ? ArgInt(argument) : 1));
    case MemberSelectedItems:
        result.Value.Int64 = int64_t(list->Selection.size());
        result.Type = g_pInt64Type;
        return true;
    case MemberTexture:
        return SetTexture(result, list->Texture);
    }
    return false;
}

// "SetAutoSort" stores SelectMultiple, as "SetSelectMultiple" does: scripts
// that turn on several selection through it keep working.
bool TAVUListBoxType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                char* argv[]) {
    auto* list = static_cast<TAVUListBox*>(object.Value.Pointer);
    if (!list) return false;
    unsigned id = argc >= 1 ? unsigned(ArgInt(argv[0])) : 0;
    switch (method->ID) {
    case MethodSetTextColor:
        return SetColor(list->DefaultTextColor, argc, argv);
    case MethodSetBackgroundColor:
        return SetColor(list->BackgroundColor, argc, argv);
    case MethodSetBorderColor:
        return SetColor(list->BorderColor, argc, argv);
    case MethodSetSelectionColor:
        return SetColor(list->SelectionColor, argc, argv);
    case MethodSetSortType:
        return argc >= 1 && SetSortType(list, argv[0]);
    case MethodSetSelectMultiple:
    case MethodSetAutoSort:
        if (argc < 1) return false;
        list->SelectMultiple = ArgCalc(argv[0]);
        return true;
    case MethodClearSelection:
        list->ClearSelection();
        return true;
    case MethodAddItem:
        return AddItem(list, argc, argv);
    case MethodClearItems:
        list->ClearItems();
        return true;
    case MethodSort:
        if (argc < 1) {
            list->ApplySort();
            return true;
        }
        return SortByAtom(list, argv[0]);
    }
    if (argc < 1) return false;
    switch (method->ID) {
    case MethodDeselectItem:
        list->DeselectItem(id);
        return true;
    case MethodSelectItem:
        list->SelectItem(id);
        return true;
    case MethodItemToggleSelect:
        list->ItemToggleSelect(id);
        return true;
    case MethodRemoveItem:
        list->RemoveItem(id);
        return true;
    case MethodSetItemText:
        list->SetItemText(id, argc >= 2 ? argv[1] : nullptr);
        return true;
    case MethodSetItemColor: {
        unsigned color = 0;
        if (argc >= 2) ArgHex(argv[1], color);
        list->SetItemColor(id, color);
        return true;
    }
    }
    return false;
}
