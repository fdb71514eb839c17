#include "ControlTest.h"
#include "TAVUButton.h"
#include "TAVUFrame.h"
#include "TAVUTabControl.h"
#include "Words.h"

#include <string>

// A control at 10,20 of 200 by 100 with a strip 20 high. With the fake host's
// 7 pixels a letter, "One" and "Two" are 37 wide and "Three" 51: the strip
// runs from 30 (past the left button) to 190 (the right button).
class TabControlTest : public ControlTest {
protected:
    TAVUTabControl* Tabs(const std::string& keys = "", const std::string& tabs = kThreeTabs) {
        std::string xml = "<t><X>10</X><Y>20</Y><Width>200</Width><Height>100</Height>"
                          "<TabHeight>20</TabHeight><Font><Size>10</Size></Font>"
                          "<TabTexture Filename=\"#tab\"/>"
                          "<TabSelectedTexture Filename=\"#sel\"/>"
                          "<OnSelect>picked</OnSelect>" +
                          keys + "<Tabs>" + tabs + "</Tabs></t>";
        auto* control = Load<TAVUTabControl>("tabcontrol", "Options", xml.c_str());
        if (control) RenderFrame(); // places the strip on the screen
        Host.AtomRuns.clear();
        return control;
    }
    // The order of the tabs by name, and the selected tab's name.
    static std::string State(TAVUTabControl* control) {
        std::string names;
        for (unsigned order = 0; order < control->Ordered.GetSize(); ++order)
            if (CTAVUTab* tab = control->Ordered[order]) names += std::string(tab->Name) + " ";
        CTAVUTab* shown = control->Selected ? control->Tabs[control->Selected - 1] : nullptr;
        return names + "| " + (shown ? shown->Name : "none");
    }
    std::string Events() {
        std::string events;
        for (const auto& run : Host.AtomRuns)
            events += (events.empty() ? "" : " ") + run.Args.at(0);
        return events;
    }
    // "one" is "One" again, ignoring case: three tabs.
    static constexpr const char* kThreeTabs =
        "<Tab Name=\"One\"/><Tab Name=\"Two\"/><Tab Name=\"one\"/><Tab Name=\"Three\"/>";
};

TEST_F(TabControlTest, RemovingAndSelectingUnknownTabsLeaveNoneUntilTheNextDrawing) {
    TAVUTabControl* control = Tabs();
    ASSERT_NE(control, nullptr);
    control->SelectTab(2);
    control->RemoveTab(2);
    EXPECT_EQ(State(control), "One Three | none");
    EXPECT_EQ(control->FindChild("two"), nullptr);
    EXPECT_EQ(control->Tabs[2]->Order, 1u);
    for (unsigned id : {0u, 2u, 12u, 0xFFFFFFFFu})
        control->RemoveTab(id); // none of these exists
    EXPECT_EQ(control->TabCount, 2u);
    for (unsigned id : {2u, 4u, 11u, 0xFFFFFFFFu}) { // a hole, free room, beyond, wrapped
        control->SelectTab(1);
        control->SelectTab(id);
        EXPECT_EQ(Words(control->Selected, control->Tabs[0]->Frame->Visible), "0 0") << id;
    }
    EXPECT_EQ(Events(), "2 1 1 1 1"); // unknown tabs run nothing
    control->MoveTab(control->Tabs[2], 0);
    RenderFrame();
    EXPECT_EQ(State(control), "Three One | Three");
    EXPECT_TRUE(Host.AtomRuns.empty());                             // chosen without an event
    EXPECT_EQ(control->AddTab("Two", nullptr, "two", nullptr), 2u); // the freed ID again
    EXPECT_EQ(State(control), "Three One Two | Three");
}

TEST_F(TabControlTest, ScrollButtonsMoveTheFirstShownTabWithinTheTabs) {
    TAVUTabControl* control = Tabs();
    ASSERT_NE(control, nullptr);
    std::string seen;
    const char* presses = "LRRRRL";
    for (const char* press = presses; *press; ++press) {
        TAVUButton* button = *press == 'L' ? control->LeftButton : control->RightButton;
        control->OnNotify(button, TAVU_NOTIFY_LEFT_DOWN, 0);
        seen += std::to_string(control->FirstVisible);
    }
    EXPECT_EQ(seen, "012221");
    size_t notes = Parent->Notes.size();
    EXPECT_GE(notes, 6u); // each press also went on to the parent
    _Point2i point{40, 25};
    control->OnLMouseDown(point);
    EXPECT_EQ(control->Selected, 2u); // the strip now starts at Two
}

TEST_F(TabControlTest, DrawsTheStripCutAtTheRightButton) {
    TAVUTabControl* control =
        Tabs("", "<Tab Name=\"One\"/><Tab Name=\"A very long tab name\"/><Tab Name=\"Two\"/>");
    ASSERT_NE(control, nullptr);
    RenderFrame();
    std::string drawn;
    for (const TAVUDrawRecord& r : Host.DrawRecords)
        drawn += Words(Host.LiveTextures[r.Texture], r.Left, r.Right) + "; ";
    // One, then the long tab cut at 190; the right button shows, the left not.
    EXPECT_EQ(drawn, "#sel 30 67; #tab 67 190; ");
    EXPECT_TRUE(control->RightButton->Visible);
    EXPECT_FALSE(control->LeftButton->Visible);
    control->FirstVisible = 2;
    RenderFrame();
    EXPECT_TRUE(control->LeftButton->Visible);
    EXPECT_FALSE(control->RightButton->Visible); // the strip is not full
}

TEST_F(TabControlTest, WithNoTabsNothingIsDrawnNotEvenChildren) {
    TAVUTabControl* control = Tabs("", "");
    ASSERT_NE(control, nullptr);
    RenderFrame();
    EXPECT_TRUE(Host.DrawRecords.empty());
    EXPECT_EQ(control->Selected, 0u);
}

// Under ASan: the script deletes the control while it is still in its own
// handler, which then touches nothing of it.
TEST_F(TabControlTest, AControlDeletedByItsOwnSelectEventIsNotTouchedAfter) {
    TAVUTabControl* control = Tabs("<Draggable>1</Draggable>");
    ASSERT_NE(control, nullptr);
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        Parent->DeleteChild(control);
        return 0;
    };
    _Point2i point{70, 25};
    EXPECT_TRUE(control->OnLMouseDown(point));
    EXPECT_EQ(Parent->FirstChild, nullptr);
}

// A page that a script deletes is forgotten by its tab.
TEST_F(TabControlTest, APageDeletedByScriptIsForgotten) {
    TAVUTabControl* control = Tabs();
    ASSERT_NE(control, nullptr);
    control->DeleteChild(control->Tabs[1]->Frame);
    EXPECT_EQ(control->Tabs[1]->Frame, nullptr);
    control->SelectTab(2);
    control->Width = 300;
    control->SizeRecalculated(true);
    control->RemoveTab(2);
    EXPECT_EQ(State(control), "One Three | none");
}

// Under ASan: a tab dragged to the last place the order has room for, past
// the others, must leave no copy behind when the tabs before it go.
TEST_F(TabControlTest, ATabDraggedPastTheOthersLeavesNoCopyWhenTabsGo) {
    std::string tabs;
    for (int i = 0; i < 10; ++i)
        tabs += "<Tab Name=\"T" + std::to_string(i) + "\"/>";
    TAVUTabControl* control = Tabs("<Draggable>1</Draggable>", tabs);
    ASSERT_NE(control, nullptr);
    control->FirstVisible = 9;
    for (unsigned id = 2; id <= 9; ++id)
        control->RemoveTab(id);
    control->DragTab = 1;
    _Point2i leftOfTheControl{0, 30};
    control->OnMouseMove(leftOfTheControl); // to FirstVisible, the last place
    control->RemoveTab(10);
    control->RemoveTab(1);
    control->AddTab("New", nullptr, "new", nullptr);
    RenderFrame();
    EXPECT_EQ(State(control), "New | New");
}
