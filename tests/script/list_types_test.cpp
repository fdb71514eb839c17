#include "CUIManager.h"
#include "ScriptTypeTest.h"
#include "TAVUComboBox.h"
#include "TAVUListBox.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"
#include "Words.h"
#include "XMLNode.h"

#include <cstdlib>
#include <map>
#include <set>
#include <string>

class ListTypes : public ScriptTypeTest {
protected:
    TAVUListBox* MakeList(const char* name) {
        auto* list =
            static_cast<TAVUListBox*>(g_UIManager.LoadElement(g_UIManager.Screen, "listbox", name));
        list->Height = 65;
        return list;
    }
    static std::string Order(TAVUListBox* list) {
        std::string texts;
        for (unsigned order = 0; order < list->ItemCount; ++order)
            texts += list->OrderedItem(order)->Text;
        return texts;
    }
};

// Every name of the three tables, asked of a list of items "a" (ID 1, value
// 5) and "b" (ID 2) with ID 2 selected, then of no object. What the answers
// do on the screen is compared end to end (tavuhost's lists case). A name
// added to a type without a row here fails the count.
TEST_F(ListTypes, EachTypeAnswersEveryNameOfItsTables) {
    TAVUListBox* list = MakeList("L");
    list->BorderColor = 7;
    list->SelectionColor = 9; // not what "SelectionColor" answers
    list->Texture = TAVUTexture::New("#rows");
    RXTypeDefinition* L = pTAVUListBoxType;
    RXTypeDefinition* I = pTAVUListBoxItemType;
    const struct {
        RXTypeDefinition* Type;
        bool IsMethod;
        const char* Name;
        std::vector<std::string> Args;
        const char* Expected; // Get's line, or a method's answer
    } rows[] = {
        {L, true, "AddItem", {"b", "x", "zz"}, "1"}, // ID 1, colour 9, renamed below
        {L, true, "AddItem", {"b"}, "1"},
        {L, true, "SetItemText", {"1", "a"}, "1"},
        {L, true, "SetItemColor", {"1", "ff"}, "1"},
        {L, true, "SetTextColor", {"ff00ff00"}, "1"},
        {L, true, "SetBackgroundColor", {"1"}, "1"},
        {L, true, "SetBorderColor", {"7"}, "1"},
        {L, true, "SetSelectionColor", {"3"}, "1"},
        {L, true, "SetSortType", {"TEXTreverse"}, "1"},
        {L, true, "SetSelectMultiple", {"0"}, "1"},
        {L, true, "SetAutoSort", {"1"}, "1"}, // stores SelectMultiple
        {L, true, "Sort", {}, "1"},
        {L, true, "SelectItem", {"1"}, "1"},
        {L, true, "ItemToggleSelect", {"2"}, "1"},
        {L, true, "DeselectItem", {"1"}, "1"},
        {L, false, "Font", {}, "1 tavufont"},
        {L, false, "TextColor", {}, "1 -16711936"},
        {L, false, "BackgroundColor", {}, "1 1"},
        {L, false, "Border", {}, "1 0"},
        {L, false, "BorderColor", {}, "1 7"},
        {L, false, "SelectionColor", {}, "1 7"},
        {L, false, "SortType", {}, "1 textreverse"},
        {L, false, "SelectMultiple", {}, "1 TRUE"},
        {L, false, "AutoSort", {}, "1 FALSE"},
        {L, false, "Item", {"1"}, "1 tavulistboxitem"},
        {L, false, "Items", {}, "1 2"},
        {L, false, "OrderedItem", {"2"}, "1 tavulistboxitem"},
        {L, false, "ItemByText", {"B"}, "1 tavulistboxitem"},
        {L, false, "ItemByValue", {"X"}, "1 tavulistboxitem"},
        {L, false, "SelectedItem", {}, "1 tavulistboxitem"},
        {L, false, "SelectedItems", {}, "1 int64"},
        {L, false, "Texture", {}, "1 tavutexture"},
        {I, false, "TextColor", {}, "1 255"},
        {I, false, "ID", {}, "1 1"},
        {I, false, "Value", {}, "1 x"},
        {I, false, "Order", {}, "1 1"},
        {I, false, "Text", {}, "1 a"},
        {I, true, "SetText", {"a"}, "1"},
        {I, true, "SetTextColor", {"ff"}, "1"},
        {I, true, "SetValue", {"5"}, "1"},
        {I, true, "Select", {}, "1"},
        {I, true, "Toggle", {}, "1"},
        {I, true, "Deselect", {}, "1"},
        {L, true, "RemoveItem", {"9"}, "1"},
        {L, true, "ClearSelection", {}, "1"},
        {L, true, "ClearItems", {}, "1"},
        {I, true, "Remove", {}, "0"}, // the item is gone: asked of a fresh one
    };
    std::map<RXTypeDefinition*, std::set<std::string>> names;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        names[row.Type].insert(std::string(row.IsMethod ? "method " : "member ") + row.Name);
        void* object = list;
        if (row.Type == I) {
            if (list->ItemCount == 0) list->AddItem("a", nullptr, 0);
            object = list->RetrieveItem(1);
        }
        if (row.IsMethod) {
            EXPECT_EQ(Words(Method(row.Type, object, row.Name, row.Args)), row.Expected);
            EXPECT_EQ(Method(row.Type, nullptr, row.Name, row.Args), 0);
        } else {
            EXPECT_EQ(Get(row.Type, object, row.Name, row.Args), row.Expected);
            EXPECT_EQ(Member(row.Type, nullptr, row.Name, row.Args), 0);
        }
    }
    for (const auto& [type, asked] : names)
        EXPECT_EQ(asked.size(), type->Members.Count() + type->Methods.Count()) << type->TypeName;
    EXPECT_EQ(list->ItemCount, 0u);
}

// Missing arguments, IDs out of range and words that are no sort give false.
TEST_F(ListTypes, BadRequestsGiveFalse) {
    TAVUListBox* list = MakeList("L");
    list->AddItem("a", nullptr, 0);
    list->AddItem("b", nullptr, 0);
    list->RemoveItem(1);
    const struct {
        bool IsMethod;
        const char* Name;
        std::vector<std::string> Args;
    } rows[] = {
        {false, "Item", {"0"}},         {false, "Item", {"1"}},
        {false, "Item", {"99"}},        {false, "Item", {}},
        {false, "OrderedItem", {"0"}},  {false, "OrderedItem", {"2"}},
        {false, "SelectedItem", {"1"}}, {false, "ItemByText", {"a"}},
        {true, "SetSortType", {"up"}},  {true, "SelectItem", {}},
        {true, "AddItem", {}},          {true, "SetTextColor", {}},
        {true, "Sort", {"noSuchAtom"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        if (row.IsMethod)
            EXPECT_EQ(Method(pTAVUListBoxType, list, row.Name, row.Args), 0);
        else
            EXPECT_EQ(Member(pTAVUListBoxType, list, row.Name, row.Args), 0);
    }
    EXPECT_EQ(Words(list->ItemCount, list->Sort, Host.Console.size()), "1 0 0");
}

// The atom gets both IDs and the list as This, and its answer orders them.
// An atom that fails counts as equal; one that removes a row mid-sort leaves
// the order as it was.
TEST_F(ListTypes, SortByAnAtomOrdersByItsAnswer) {
    TAVUListBox* list = MakeList("L");
    for (const char* text : {"c", "a", "d", "b"})
        list->AddItem(text, nullptr, 0);
    Host.NamedAtoms["byText"] = 42;
    bool removeOnce = false;
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
        EXPECT_EQ(run.This, list);
        ListBoxItem* a = list->RetrieveItem(unsigned(atoi(run.Args[0].c_str())));
        ListBoxItem* b = list->RetrieveItem(unsigned(atoi(run.Args[1].c_str())));
        Host.AtomResult = a && b ? std::to_string(int(a->Text[0]) - int(b->Text[0])) : "0";
        if (removeOnce) {
            removeOnce = false;
            list->RemoveItem(4);
        }
        return 0;
    };
    EXPECT_EQ(Method(pTAVUListBoxType, list, "Sort", {"byText"}), 1);
    EXPECT_EQ(Words(Order(list), list->RetrieveItem(1)->Order), "abcd 2");
    removeOnce = true;
    list->Sort = TAVUListBox::SortNone;
    EXPECT_EQ(Method(pTAVUListBoxType, list, "Sort", {"byText"}), 1);
    EXPECT_EQ(Order(list), "acd"); // the removal only
}

TEST_F(ListTypes, AComboBoxAnswersThroughTheElementThenItsList) {
    auto* combo = static_cast<TAVUComboBox*>(
        g_UIManager.LoadElement(g_UIManager.Screen, "combobox", "C",
                                Parse("<c><Width>90</Width><ListBox><ScrollBar>bar</ScrollBar></"
                                      "ListBox><Items><item>a</item></Items></c>"),
                                nullptr));
    ASSERT_NE(combo, nullptr) << (Host.Console.empty() ? "" : Host.Console.back());
    RXTypeDefinition* C = pTAVUComboBoxType;
    EXPECT_EQ(Get(C, combo, "Items"), "1 1");
    EXPECT_EQ(Get(C, combo, "Width"), "1 90");
    EXPECT_EQ(Get(C, combo, "Selection"), "1 0");
    EXPECT_EQ(Method(C, combo, "SetSelection", {"1"}), 1); // the list is not touched
    EXPECT_EQ(Method(C, combo, "AddItem", {"b"}), 1);
    EXPECT_EQ(
        Words(Get(C, combo, "Selection"), combo->List->Selection.size(), combo->List->ItemCount),
        "1 1 0 2");
    const char* names[] = {"Border", "Font", "Down", "Texture", "ButtonTexture"};
    std::string answers;
    for (const char* name : names)
        answers += std::to_string(Member(C, combo, name)) + " ";
    EXPECT_EQ(answers + std::to_string(Method(C, combo, "SetSelection")), "1 1 1 0 0 0");
    EXPECT_EQ(C->Members.Count() + C->Methods.Count(), 7u);
    EXPECT_EQ(Member(C, combo, "NoSuchName"), -1);
}
