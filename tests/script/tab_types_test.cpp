#include "CUIManager.h"
#include "ScriptTypeTest.h"
#include "TAVUFrame.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUTabControl.h"

#include <string>
#include <utility>
#include <vector>

class TabTypes : public ScriptTypeTest {
protected:
    void SetUp() override {
        ScriptTypeTest::SetUp();
        Control = static_cast<TAVUTabControl*>(g_UIManager.LoadElement(
            g_UIManager.Screen, "tabcontrol", "Options",
            Parse("<t><TabTexture Filename=\"#tab\"/><TabSelectedTexture Filename=\"#sel\"/>"
                  "<Tabs><Tab Name=\"One\"/><Tab Name=\"Two\"/><Tab Name=\"Three\"/></Tabs></t>"),
            nullptr));
        ASSERT_NE(Control, nullptr);
    }
    CTAVUTab* Tab(unsigned id) { return Control->Tabs[id - 1]; }
    TAVUTabControl* Control = nullptr;
};

// Every row of both tables of the control, so that a name without its case fails.
TEST_F(TabTypes, EachNameOfTheControlsTablesAnswers) {
    Control->SelectTab(1);
    ExpectAnswered(pTAVUTabControlType, Control,
                   {{"Font", "tavufont"},
                    {"SelectedTab", "tavutab"},
                    {"Tab", "tavutab", "Two"},
                    {"Tabs", "3"},
                    {"TabTexture", "tavutexture"},
                    {"TabSelectedTexture", "tavutexture"}},
                   {{"AddTab", "Four"}});
    EXPECT_EQ(Control->TabCount, 4u);
    EXPECT_EQ(Method(pTAVUTabControlType, Control, "AddTab", {"four", "extra"}), 0); // taken
    Control->ClearSelection();
    EXPECT_EQ(Get(pTAVUTabControlType, Control, "SelectedTab"), "0");
    EXPECT_EQ(Get(pTAVUTabControlType, Control, "Name"), "1 options"); // from tavuelement
    char text[5] = {0};
    RXObjectData tab{};
    tab.Value.Pointer = Tab(3);
    ASSERT_TRUE(pTAVUTabType->ToTextSized(tab, text, 4));
    EXPECT_STREQ(text, "Thre"); // the name, cut to the buffer
}

// "Tab" takes a number as an ID bounded by the count of tabs, and anything
// else as a name; after a removal the highest IDs are out of reach by number.
TEST_F(TabTypes, TabFindsByIdWithinTheCountOrByName) {
    const std::pair<const char*, const char*> cases[] = {
        {"2", "Two"}, {"2.7", "Two"}, {"three", "Three"}, {"0", "-"},           {"4", "-"},
        {"-1", "-"},  {"", "-"},      {"x1", "-"},        {"99999999999", "-"},
    };
    for (const auto& [key, expected] : cases) {
        std::string got = Member(pTAVUTabControlType, Control, "Tab", {key}) == 1
                              ? static_cast<CTAVUTab*>(Result.Value.Pointer)->Name
                              : "-";
        EXPECT_EQ(got, expected) << key;
    }
    Control->RemoveTab(1);
    EXPECT_EQ(Member(pTAVUTabControlType, Control, "Tab", {"3"}), 0);
    EXPECT_EQ(Get(pTAVUTabControlType, Control, "Tabs"), "1 2");
}

TEST_F(TabTypes, EachNameOfTheTabsTablesAnswersAndTheRestGoesToItsPage) {
    const std::pair<const char*, const char*> members[] = {
        {"Name", "1 Two"},
        {"ID", "1 2"},
        {"Order", "1 1"},
        {"Border", "1 0"}, // the page's, through tavuframe
    };
    EXPECT_EQ(size_t(pTAVUTabType->Members.Count()), std::size(members) - 1);
    for (const auto& [name, answer] : members) {
        EXPECT_EQ(Get(pTAVUTabType, Tab(2), name), answer) << name;
        EXPECT_EQ(Member(pTAVUTabType, nullptr, name), 0) << name;
    }
    const struct {
        const char* Name;
        std::vector<std::string> Args;
        int Answer;
        const char* Order; // the tabs by order, and the selected ID
    } methods[] = {
        {"Select", {}, 1, "One Two Three 2"},
        {"Move", {}, 0, "One Two Three 2"},
        {"Move", {"3"}, 1, "One Three Two 2"},
        {"Move", {"0"}, 1, "One Three Two 2"}, // place 0 wraps round to the last
        {"Move", {"1"}, 1, "Two One Three 2"},
        {"Rename", {}, 0, "Two One Three 2"},
        {"Rename", {"Deux"}, 1, "Deux One Three 2"},
        {"SetBorder", {"3"}, 1, "Deux One Three 2"}, // the page's method
        {"Remove", {}, 0, "One Three 0"},            // acted, yet answers false
    };
    EXPECT_EQ(size_t(pTAVUTabType->Methods.Count()), 4u);
    for (const auto& m : methods) {
        EXPECT_EQ(Method(pTAVUTabType, nullptr, m.Name, m.Args), 0) << m.Name;
        CTAVUTab* tab = Tab(2);
        TAVUFrame* page = tab->Frame;
        EXPECT_EQ(Method(pTAVUTabType, tab, m.Name, m.Args), m.Answer) << m.Name;
        std::string order;
        for (unsigned place = 0; place < Control->TabCount; ++place)
            order += std::string(Control->Ordered[place]->Name) + " ";
        EXPECT_EQ(order + std::to_string(Control->Selected), m.Order) << m.Name;
        if (m.Answer && std::string(m.Name) == "SetBorder") {
            EXPECT_EQ(page->Border, 3u);
        }
    }
}
