#include "ListControlTest.h"
#include "TAVUComboBox.h"
#include "TAVUListBox.h"
#include "Words.h"

#include <string>

// A combo box 20 pixels high that opens to 85, over a list of 12-pixel rows.
class ComboBoxTest : public ListControlTest {
protected:
    TAVUComboBox* Combo(const std::string& keys = "") {
        std::string xml = "<c><Width>100</Width><Height>20</Height><FullHeight>85</FullHeight>"
                          "<ButtonWidth>16</ButtonWidth><Border>2</Border>"
                          "<ListBox><Font><Size>12</Size></Font><ScrollBar><Width>16</Width>"
                          "</ScrollBar><Items><item>one</item></Items></ListBox>" +
                          keys + "</c>";
        auto* combo = Load<TAVUComboBox>("combobox", "C", xml.c_str());
        if (combo) RenderFrame();
        return combo;
    }
};

TEST_F(ComboBoxTest, LoadsItsListWithItemsOfBothNodesAndShowsTheDefaultClosed) {
    TAVUComboBox* combo = Combo("<Items><item>two</item><item Default='1'>three</item></Items>");
    ASSERT_TRUE(combo && combo->List);
    EXPECT_EQ(Words(combo->SelectedID, combo->Open, combo->Height, combo->ClosedHeight,
                    combo->List->Y, combo->List->Height, combo->List->ItemCount,
                    combo->List->Visible),
              "3 0 20 20 20 65 3 0");
    bool drawn = false;
    for (const auto& text : Host.Texts)
        drawn |= text.Value == "three";
    EXPECT_TRUE(drawn);
    EXPECT_EQ(Load<TAVUComboBox>("combobox", "D", "<c/>"), nullptr); // no "ListBox"
}

// Picking a row reports the old row's release (0), then the new row, and
// closes the box; what OnSelect sees is compared end to end (tavuhost's
// lists case).
TEST_F(ComboBoxTest, ChoosingARowClosesTheBoxAndReportsTheChangeTwice) {
    TAVUComboBox* combo = Combo("<OnSelect>pick</OnSelect>"
                                "<Items><item Default='1'>two</item></Items>");
    ASSERT_NE(combo, nullptr);
    Notes();
    Click(combo, 5, 5);
    EXPECT_EQ(Words(combo->Open, combo->Height, g_UIManager.MouseOverRootID == combo->ID),
              "1 85 1");
    Click(combo->List, 5, 20 + 2); // the first row: ID 1
    EXPECT_EQ(Words(combo->SelectedID, combo->Open, combo->Height, Notes()), "1 0 20 9 0;9 1;");
    Click(combo, 5, 5); // open again, then a press elsewhere closes it
    combo->OnLMouseDownOther(combo->List);
    EXPECT_TRUE(combo->Open);
    Host.AtomRuns.clear();
    combo->OnLMouseDownOther(Parent);
    EXPECT_EQ(Words(combo->Open, combo->Height, g_UIManager.MouseOverRootID, Host.AtomRuns.size()),
              "0 20 0 0");
}

// Under ASan: the combo box's OnSelect deletes the combo box.
TEST_F(ComboBoxTest, OnSelectMayDeleteTheComboBox) {
    TAVUComboBox* combo = Combo("<OnSelect>die</OnSelect>");
    ASSERT_NE(combo, nullptr);
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        if (Parent->FirstChild) Parent->DeleteChild(Parent->FirstChild);
        return 0;
    };
    combo->List->SelectItem(1);
    EXPECT_EQ(Parent->FirstChild, nullptr);
}
