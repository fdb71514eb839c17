#include "StringHelpers.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"
#include "Words.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {
std::vector<std::string> g_Log; // "name:event", across all recording elements

// An element type of the tests' own, made through TAVUFactory as another
// module's would be: it records the handler calls the manager makes on it.
class RecordingElement : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    void OnKeyboardEnter() override { g_Log.push_back(std::string(Name) + ":enter"); }
    void OnKeyboardExit(TAVUElement* next) override {
        g_Log.push_back(std::string(Name) + ":exit(" + (next ? next->Name : "null") + ")");
    }
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override {
        if (code == TAVU_NOTIFY_CHILD_REMOVED)
            g_Log.push_back(std::string(Name) + ":removed(" + reinterpret_cast<const char*>(value) +
                            ")");
        TAVUElement::OnNotify(source, code, value);
    }
    void OnDestroy() override { g_Log.push_back(std::string(Name) + ":destroy"); }
    bool IsTypeOf(const char* type) override {
        return StrCompareNoCase(type, "recording") == 0 || TAVUElement::IsTypeOf(type);
    }
};
TAVUFactory<RecordingElement> g_RecordingFactory("Recording");

// A window's client area, which full names pass over.
class ClientArea : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    bool IsTypeOf(const char* type) override {
        return StrCompareNoCase(type, "windowclient") == 0 || TAVUElement::IsTypeOf(type);
    }
};
TAVUFactory<ClientArea> g_ClientFactory("testclient");
} // namespace

class Element : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        g_Log.clear();
    }
    TAVUElement* Recording(const char* name, TAVUElement* parent = nullptr) {
        return g_RecordingFactory.CreateUIElement(parent ? parent : g_UIManager.Screen, name);
    }
    // The names of parent's children from bottom to top.
    static std::string Order(TAVUElement* parent) {
        std::string order;
        for (TAVUElement* child = parent->FirstChild; child; child = child->Next) {
            order += child->Name;
            EXPECT_EQ(child->Next ? child->Next->Previous : parent->LastChild, child);
        }
        return order;
    }
};

TEST_F(Element, FullNamesHangOnTheParentAndSkipClientAreas) {
    TAVUElement* window = MakeElement("MainWindow");
    TAVUElement* client = g_ClientFactory.CreateUIElement(window, "Client");
    TAVUElement* ok = MakeElement("OK", client);
    TAVUElement* label = MakeElement("Label", ok);
    EXPECT_EQ(Words(window->FullName, client->FullName, ok->FullName, label->FullName),
              "MainWindow Client@MainWindow OK@MainWindow Label@OK@MainWindow");
    EXPECT_STREQ(ok->Name, "ok"); // lower-cased, full name keeps its case
    EXPECT_EQ(g_UIManager.FindElement("ok@mainwindow"), ok);
    EXPECT_EQ(window->FindChild("CLIENT"), client);
    EXPECT_EQ(window->FindUsableChild("ok", "tavuelement"), ok);
    EXPECT_EQ(window->FindUsableChild("ok", "recording"), nullptr);
    EXPECT_GT(ok->ID, client->ID);
}

TEST_F(Element, SameFullNameOverwritesAndEitherDeletionRemovesTheEntry) {
    TAVUElement* first = MakeElement("Twin");
    TAVUElement* second = MakeElement("twin");
    EXPECT_EQ(g_UIManager.FindElement("Twin"), second);
    g_UIManager.Screen->DeleteChild(first);
    EXPECT_EQ(g_UIManager.FindElement("Twin"), nullptr); // the survivor is no longer found
    EXPECT_EQ(g_UIManager.FindElementByID(second->ID), second);
}

TEST_F(Element, DeletionNotifiesParentDeletesChildrenAndInvalidates) {
    TAVUElement* parent = Recording("Parent");
    TAVUElement* child = Recording("Child", parent);
    Recording("Grandchild", child);
    unsigned childID = child->ID;
    parent->DeleteChild(child);
    EXPECT_EQ(g_Log, (std::vector<std::string>{
                         "child:destroy", "parent:removed(child)", "grandchild:destroy",
                         // the child is a plain element by now: the code climbs
                         "parent:removed(grandchild)"}));
    EXPECT_EQ(parent->FirstChild, nullptr);
    EXPECT_EQ(parent->LastChild, nullptr);
    EXPECT_EQ(g_UIManager.ElementsByID.count(childID), 0u);
    EXPECT_EQ(Host.Invalidated.size(), 2u);
    EXPECT_TRUE(g_RecordingFactory.Elements.count(parent));
    EXPECT_FALSE(g_RecordingFactory.Elements.count(child));
}

TEST_F(Element, DeletionsThatCannotBeDoneKeepTheElement) {
    TAVUElement* a = MakeElement("A");
    TAVUElement* b = MakeElement("B");
    TAVUElement* bChild = MakeElement("C", b);
    a->DeleteChild(bChild); // another's child: only debug output
    a->DeleteChild(nullptr);
    EXPECT_EQ(b->FirstChild, bChild);
    EXPECT_TRUE(Host.Console.empty());
    g_UIManager.Screen->DeleteChild(a);
    g_UIManager.Screen->DeleteChild(b);

    TAVUElement* orphan = new TAVUElement("ghost", g_UIManager.Screen, "Orphan");
    orphan->Delete();
    ASSERT_EQ(Host.Console.size(), 1u);
    EXPECT_EQ(Host.Console[0], "WARNING: CANNOT DELETE 'Orphan': Factory 'ghost' not found");
    EXPECT_EQ(g_UIManager.FindElement("Orphan"), orphan);
    delete orphan; // unlinks nothing: the screen still lists it
    g_UIManager.Screen->FirstChild = g_UIManager.Screen->LastChild = nullptr;
}

// Hit tests and an only child's move to the top are asked by scripts in
// tavuhost's element_queries case.
TEST_F(Element, ZOrderMovesRespectStrataOnlyWhereTheyShould) {
    TAVUElement* screen = g_UIManager.Screen;
    TAVUElement* a = MakeElement("a");
    TAVUElement* b = MakeElement("b");
    TAVUElement* c = MakeElement("c");
    EXPECT_EQ(Order(screen), "abc");
    c->Strata = 5;
    b->MoveZUp(); // does not pass a sibling of higher strata
    EXPECT_EQ(Order(screen), "abc");
    a->MoveZUp();
    EXPECT_EQ(Order(screen), "bac");
    c->MoveZDown(); // passes anything
    EXPECT_EQ(Order(screen), "bca");
    g_UIManager.ZOrderChanged = false;
    a->MoveZBottom();
    EXPECT_TRUE(g_UIManager.ZOrderChanged);
    EXPECT_EQ(Order(screen), "abc");
    a->MoveZTop(false); // below c's strata: just under c
    EXPECT_EQ(Order(screen), "bac");
    c->MoveZTop(false); // highest and already on top
    EXPECT_EQ(Order(screen), "bac");
    a->Strata = -1;
    a->MoveZTop(false); // below everyone: to the bottom
    EXPECT_EQ(Order(screen), "abc");
}

TEST_F(Element, WalkJumpsOneSiblingFurtherWhenItClimbs) {
    TAVUElement* a = MakeElement("a");
    TAVUElement* a1 = MakeElement("a1", a);
    TAVUElement* a2 = MakeElement("a2", a);
    TAVUElement* b = MakeElement("b");
    TAVUElement* c = MakeElement("c");
    auto name = [](TAVUElement* e) { return e ? e->Name : "(none)"; };
    // From a2, b is jumped over; the climb stops at stop.
    EXPECT_EQ(Words(name(a->Walk(false, nullptr)), name(a1->Walk(false, nullptr)),
                    name(a2->Walk(false, nullptr)), name(c->Walk(false, nullptr)),
                    name(a2->Walk(false, a)), name(c->WalkReverse(false, nullptr)),
                    name(a->WalkReverse(false, nullptr))),
              "a1 a2 c (none) (none) b a2");
    b->Visible = false; // from a2, the first visible one after the hidden sibling
    EXPECT_EQ(Words(name(a->Walk(true, nullptr)), name(a2->Walk(true, nullptr))), "a1 c");
    a1->Visible = false;
    EXPECT_EQ(Words(name(a->Walk(true, nullptr))), "a2");
}

TEST_F(Element, FocusMovesWithExitBeforeEnterAndLeavesHiddenElements) {
    TAVUElement* panel = Recording("Panel");
    TAVUElement* first = Recording("First", panel);
    TAVUElement* second = Recording("Second", panel);
    g_UIManager.SetFocusElement(first);
    g_UIManager.SetFocusElement(second);
    g_UIManager.SetFocusElement(second); // already focused: nothing fires
    EXPECT_EQ(g_Log,
              (std::vector<std::string>{"first:enter", "first:exit(second)", "second:enter"}));
    EXPECT_TRUE(second->IsFocus());
    g_Log.clear();
    panel->Visible = false;
    g_UIManager.SetFocusElement(first); // hidden by an ancestor: nothing changes
    EXPECT_TRUE(g_Log.empty());
    EXPECT_EQ(g_UIManager.GetFocusElement(), nullptr);
    EXPECT_EQ(g_UIManager.FocusElementID, 0u);
    EXPECT_EQ(g_Log, (std::vector<std::string>{"second:exit(null)"}));
}

TEST_F(Element, HidingTheFocusThroughTheManagerMovesItOut) {
    TAVUElement* field = Recording("Field");
    g_UIManager.SetFocusElement(field);
    g_Log.clear();
    EXPECT_TRUE(g_UIManager.ShowElement("Field", false));
    EXPECT_FALSE(field->Visible);
    EXPECT_EQ(g_Log, (std::vector<std::string>{"field:exit(null)", "field:exit(null)"}));
    EXPECT_FALSE(g_UIManager.ShowElement("Missing", true));
    EXPECT_TRUE(g_UIManager.ToggleElement("Field"));
    EXPECT_TRUE(field->Visible);
    EXPECT_FALSE(g_UIManager.ToggleElement("Missing"));
    // Toggling a parent away takes the focus from the child within.
    TAVUElement* inner = Recording("Inner", field);
    g_UIManager.SetFocusElement(inner);
    EXPECT_TRUE(g_UIManager.ToggleElement("Field"));
    EXPECT_FALSE(field->Visible);
    EXPECT_EQ(g_UIManager.FocusElementID, 0u);
}

TEST_F(Element, FactoryRegistrationIgnoresCaseRefusesOtherVersionsAndLaterWins) {
    EXPECT_EQ(g_UIManager.FindFactory("RECORDING"), &g_RecordingFactory);
    EXPECT_STREQ(g_RecordingFactory.TypeName, "recording");
    {
        TAVUFactory<TAVUElement> old("OldType", 17);
        EXPECT_EQ(old.TypeName, nullptr);
        EXPECT_EQ(g_UIManager.FindFactory("oldtype"), nullptr);
        ASSERT_EQ(Host.Console.size(), 1u);
        EXPECT_EQ(Host.Console[0], "UI Element type 'OldType' unavailable (version mismatch)");
        TAVUFactory<TAVUElement> replacement("recording");
        EXPECT_EQ(g_UIManager.FindFactory("recording"), &replacement);
    }
    g_UIManager.Factories[utf8stringnocase("recording")] = &g_RecordingFactory;
}

TEST_F(Element, ColourCodesAreSkippedWithoutReadingPastTheText) {
    // A dash form is three bytes of code, even with an unknown letter; a code
    // cut by the end of the text ends the count.
    const std::pair<const char*, size_t> lengths[] = {
        {"ab\a#FF0000cd", 4}, {"\a-rX", 1},   {"\a-zHello", 5}, {"ab\a-", 2},
        {"\axy", 1},          {"ab\a#12", 2}, {"ab\a", 2}};
    for (const auto& text : lengths)
        EXPECT_EQ(TAVUElement::ColorStrlen(text.first), text.second) << text.first;
    char out[32];
    TAVUElement::StripColor("a\a#00FF00b\axc\a#1", out);
    EXPECT_STREQ(out, "abc");
    TAVUElement::StripColor("\a-zHello\a-", out);
    EXPECT_STREQ(out, "Hello");
}

TEST_F(Element, SizesAndCentringCountInUnsignedArithmetic) {
    TAVUElement* panel = MakeBox("Panel", 0, 0, 300, 100);
    TAVUElement* box = MakeBox("Box", 0, 0, 100, 40, panel);
    box->Center();
    EXPECT_EQ(std::to_string(box->X) + "," + std::to_string(box->Y), "100,30");
    box->Width = 302; // wider than the parent: a logical shift of a negative difference
    box->Center();
    EXPECT_EQ(box->X, 0x7FFFFFFF);
    panel->Height = -1; // a negative parent size counts as unsigned
    box->HeightPosition = {ElementPosition::FarEdge, {.Pixels = 0}};
    box->RecalculateSize(false);
    EXPECT_EQ(box->Height, -1);
}
