#include "ListControlTest.h"
#include "TAVUListBox.h"
#include "TAVUScrollBar.h"
#include "TAVUSlider.h"
#include "Words.h"

#include <string>

// Lists of 12-pixel rows (a pitch of 13), five rows high unless told, with a
// scroll bar from the template.
class ListBoxTest : public ListControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        g_UIManager.AddTemplate("ListBar",
                                "<Template><Slider><Height>65</Height></Slider></Template>");
        g_UIManager.AddTemplate("listbox", "<Template><Font><Size>12</Size></Font>"
                                           "<ScrollBar>ListBar</ScrollBar></Template>");
    }

    TAVUListBox* List(const std::string& keys = "", int height = 65) {
        std::string xml =
            "<l><Width>100</Width><Height>" + std::to_string(height) + "</Height>" + keys + "</l>";
        auto* list = Load<TAVUListBox>("listbox", "L", xml.c_str());
        if (list) RenderFrame(); // places it
        return list;
    }

    // The texts in display order.
    static std::string Order(TAVUListBox* list) {
        std::string texts;
        for (unsigned order = 0; order < list->ItemCount; ++order)
            texts.append(texts.empty() ? "" : " ").append(list->OrderedItem(order)->Text);
        return texts;
    }
    std::string Selected(TAVUListBox* list) {
        std::string ids;
        for (ListBoxItem* item : list->Selection)
            ids += std::to_string(item->ID);
        return ids;
    }
    void ClickRow(TAVUListBox* list, int row, bool control = false) {
        g_UIManager.Control = control;
        Click(list, 5, row * 13 + 2);
        g_UIManager.Control = false;
    }
};

// IDs, the scroll bar's range and the wheel are tavuhost's listbox_rows case;
// a script's SetHeight does not fit the rows again, a resize by code does.
TEST_F(ListBoxTest, AResizeThatFitsTheRowsHidesTheScrollBar) {
    TAVUListBox* list = List();
    ASSERT_NE(list, nullptr);
    for (const char* text : {"a", "b", "c", "d", "e", "f"})
        list->AddItem(text, nullptr, 0);
    list->ScrollBar->SetValue(0); // the bottom
    EXPECT_EQ(Words(list->ScrollBar->Visible, list->ScrollOffset), "1 1");
    list->Height = 200;
    list->RecalculateSize(true);
    EXPECT_EQ(Words(list->ScrollBar->Visible, list->ScrollOffset), "0 0");
}

// Rows 0..2 hold IDs 1..3. Each case: the list's mode, the rows selected
// first, the click, then the selection and what the parent heard.
TEST_F(ListBoxTest, ClicksSelectAsTheModeAndTheControlKeySay) {
    const struct {
        bool Multiple;
        const char* Before;
        int Row;
        bool Control;
        const char* Expected;
    } rows[] = {
        {false, "", 0, false, "1 9 1;"},
        {false, "2", 0, false, "1 9 2;9 1;"},
        {false, "1", 0, false, " 9 1;"}, // a second click lets it go
        {true, "2", 0, false, "1 9 2;9 1;"},
        {true, "2", 0, true, "12 9 1;"},
        {true, "12", 0, true, "2 9 1;"},
        {true, "12", 0, false, "12 "}, // a selected row without Control: nothing
        {false, "1", 4, false, "1 "},  // below the rows
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(Words(row.Multiple, row.Before, row.Row, row.Control));
        TAVUListBox* list = List();
        list->SelectMultiple = row.Multiple;
        for (const char* text : {"a", "b", "c"})
            list->AddItem(text, nullptr, 0);
        for (const char* id = row.Before; *id; ++id)
            list->SelectItem(unsigned(*id - '0'));
        Notes();
        ClickRow(list, row.Row, row.Control);
        EXPECT_EQ(Selected(list) + " " + Notes(), row.Expected);
        Parent->DeleteChild(list);
    }
}

TEST_F(ListBoxTest, OnlyAUserSortedListDragsRowsAndTellsOfARealMove) {
    for (unsigned sort : {TAVUListBox::SortUser, TAVUListBox::SortNone}) {
        TAVUListBox* list = List();
        list->Sort = sort;
        for (const char* text : {"a", "b", "c", "d"})
            list->AddItem(text, nullptr, 0);
        Notes();
        Point = {5, 2};
        list->OnLMouseDown(Point);
        Point = {5, 2 + 2 * 13};
        list->OnMouseMove(Point);
        Point = {5, 500}; // below the list: the last row
        list->OnMouseMove(Point);
        list->OnLMouseUp(Point);
        EXPECT_EQ(Order(list) + " " + Notes(),
                  sort == TAVUListBox::SortUser ? "b c d a 9 1;13 1;" : "a b c d 9 1;");
        Point = {5, 2}; // pressed and released in place: no 13
        list->OnLMouseDown(Point);
        list->OnLMouseUp(Point);
        EXPECT_EQ(Notes().find("13"), std::string::npos);
        Parent->DeleteChild(list);
    }
}

// A hundred thousand rows draw five; a selected row (ID 50003, the text
// "50002") fills its band first.
TEST_F(ListBoxTest, AFrameDrawsOnlyTheRowsThatShow) {
    TAVUListBox* list = List("<SelectionColor>ff0000ff</SelectionColor>");
    for (int i = 0; i < 100000; ++i)
        list->AddItem(std::to_string(i).c_str(), nullptr, 0);
    list->ScrollBar->SetValue(list->ScrollBar->Range - 50000);
    list->SelectItem(50003);
    RenderFrame();
    std::string drawn;
    for (const auto& text : Host.Texts)
        drawn += text.Value + " ";
    EXPECT_EQ(Words(drawn, list->ItemCount, list->RetrieveItem(100000)->Order),
              "50000 50001 50002 50003 50004  100000 99999");
    std::string selectionFills;
    for (const auto& fill : Host.Fills)
        if (fill.Color == 0xff0000ffu) selectionFills += Words(fill.Rect.top, fill.Rect.bottom);
    EXPECT_EQ(selectionFills, "26 38");
}

// Bad IDs are taken quietly: nothing changes, nothing is heard, no message.
TEST_F(ListBoxTest, BadIdsAreTakenQuietly) {
    TAVUListBox* list = List();
    list->SelectMultiple = true;
    list->AddItem("a", "7", 0);
    list->AddItem("b", nullptr, 0);
    list->RemoveItem(2);
    Notes();
    unsigned value = 0;
    for (unsigned id : {0u, 2u, 11u, 4294967295u}) {
        list->SelectItem(id);
        list->DeselectItem(id);
        list->ItemToggleSelect(id);
        list->RemoveItem(id);
        list->SetItemText(id, "x");
        list->SetItemColor(id, 1);
        EXPECT_FALSE(list->GetItemValue(id, value));
    }
    EXPECT_TRUE(list->GetItemValue(1, value));
    EXPECT_EQ(Words(Order(list), list->ItemCount, Notes(), Host.Console.size(), value), "a 1  0 7");
    EXPECT_EQ(Words(list->FindItemByText("A", 5), list->FindItemByValue("7", 0),
                    list->FindItemByText("b", 0)),
              "1 1 0");
}

// Under ASan: nothing is touched after a script or a parent removed the row
// or the whole list from inside its own selection event.
TEST_F(ListBoxTest, ASelectionEventMayRemoveItsRowOrTheList) {
    const char* kinds[] = {"row", "list", "parent"};
    for (const char* kind : kinds) {
        SCOPED_TRACE(kind);
        TAVUListBox* list = List("<OnSelect>go</OnSelect><OnDeSelect>go</OnDeSelect>");
        list->AddItem("a", nullptr, 0);
        list->AddItem("b", nullptr, 0);
        list->SelectItem(2);
        Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
            if (std::string(kind) == "row") list->RemoveItem(unsigned(atoi(run.Args[0].c_str())));
            if (std::string(kind) == "list") Parent->DeleteChild(list);
            return 0;
        };
        Parent->OnNote = [&](TAVUElement*, unsigned code) {
            if (std::string(kind) == "parent" && code == TAVU_NOTIFY_SELECTION_CHANGED &&
                Parent->FirstChild)
                Parent->DeleteChild(Parent->FirstChild);
        };
        ClickRow(list, 0);
        if (std::string(kind) == "row")
            EXPECT_EQ(Words(list->ItemCount, Selected(list)), "0 ");
        else
            EXPECT_EQ(Parent->FirstChild, nullptr);
        Host.OnExecuteAtom = nullptr;
        Parent->OnNote = nullptr;
        if (Parent->FirstChild) Parent->DeleteChild(Parent->FirstChild);
    }
}

// A list made by code reads only its scroll bar from the template; rows
// added to it sort at once, and take no colour from its font.
TEST_F(ListBoxTest, CreateMakesASortingListWithTheTemplatesScrollBar) {
    auto* list = new TAVUListBox("listbox", Parent, "Made");
    _CreateListBox create;
    create.Height = 26;
    create.Font.Size = 12;
    create.Sort = TAVUListBox::SortTextReverse;
    list->Create(create, nullptr);
    for (const char* text : {"a", "c", "b"})
        list->AddItem(text, nullptr, 0);
    ASSERT_TRUE(list->ScrollBar && list->ScrollBar->Slider);
    EXPECT_EQ(Words(Order(list), list->Ready, list->Font->Height, list->DefaultTextColor,
                    list->ScrollBar->Visible, list->ScrollBar->Range,
                    list->ScrollBar->Slider->Height),
              "c b a 1 12 0 1 1 65");
}
