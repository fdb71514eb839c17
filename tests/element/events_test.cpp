#include "TAVUEmbeddedScript.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

class Events : public ToolkitTest {
protected:
    TAVUEmbeddedScript* Script(TAVUElement* element, const char* source,
                               const char* arguments = "int X, int Y") {
        return TAVUEmbeddedScript::New(element, source, arguments);
    }
};

TEST_F(Events, ScriptsCompileInTheAtomFormAndFailCleanly) {
    TAVUElement* element = MakeElement("Scripted");
    EXPECT_EQ(TAVUEmbeddedScript::New(nullptr, "x", ""), nullptr);
    EXPECT_EQ(TAVUEmbeddedScript::New(element, nullptr, ""), nullptr);
    EXPECT_EQ(Host.Count("CompileAtom"), 0u);
    TAVUEmbeddedScript* script = TAVUEmbeddedScript::New(element, "echo hi", nullptr);
    ASSERT_NE(script, nullptr);
    EXPECT_EQ(Host.LiveAtoms[script->Atom], "atom auto()\n{\necho hi\n}\n");
    script->Delete();
    EXPECT_TRUE(Host.LiveAtoms.empty());
    Host.FailCompile = true;
    EXPECT_EQ(TAVUEmbeddedScript::New(element, "broken", "int X"), nullptr);
    std::string longSource(100000, 'x'); // sized from its parts: no fixed buffer
    Host.FailCompile = false;
    TAVUEmbeddedScript* big = TAVUEmbeddedScript::New(element, longSource.c_str(), "");
    ASSERT_NE(big, nullptr);
    EXPECT_EQ(Host.LiveAtoms[big->Atom].size(), longSource.size() + 17);
    big->Delete();
}

TEST_F(Events, AnElementThatDeletesItselfInItsClickSurvivesUntilTheScriptEnds) {
    TAVUElement* button = MakeElement("SelfDestruct");
    button->OnLeftClick = Script(button, "delete");
    unsigned atom = button->OnLeftClick->Atom;
    unsigned id = button->ID;
    bool atomAliveDuringRun = false;
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        g_UIManager.Screen->DeleteChild(button);
        atomAliveDuringRun = Host.LiveAtoms.count(atom) == 1;
        return 0;
    };
    _Point2i point{3, 4};
    EXPECT_TRUE(button->OnLMouseUp(point));
    EXPECT_TRUE(atomAliveDuringRun);           // the script outlived its element's destructor
    EXPECT_EQ(Host.LiveAtoms.count(atom), 0u); // and was freed at its end
    EXPECT_EQ(g_UIManager.FindElementByID(id), nullptr);
}

// The scripts of entering and leaving run end to end in tavuhost's input case.
TEST_F(Events, TheMouseIsOverTheTopmostElementUnderItOrNoneOffTheDisplay) {
    TAVUElement* panel = MakeBox("Panel", 0, 0, 100, 100);
    TAVUElement* button = MakeBox("Button", 10, 10, 20, 20, panel);
    g_UIManager.Render(); // absolute positions
    const std::pair<_Point2i, TAVUElement*> cases[] = {{{15, 15}, button},
                                                       {{50, 50}, panel},
                                                       {{500, 500}, g_UIManager.Screen},
                                                       {{-10, -10}, nullptr}};
    for (const auto& [point, over] : cases) {
        g_UIManager.MousePosition = point;
        EXPECT_EQ(g_UIManager.SetMouseOverElement(), over) << point.x << "," << point.y;
    }
    EXPECT_EQ(g_UIManager.MouseOverElementID, 0u);
    _Point2i inPanel{50, 50};
    EXPECT_EQ(button->FindMouseOver(inPanel, nullptr), nullptr);
}

TEST_F(Events, ThePressedElementHoldsTheMouseUntilItGoes) {
    TAVUElement* held = MakeElement("Held");
    g_UIManager.LeftPressedElementID = held->ID;
    EXPECT_EQ(g_UIManager.GetMouseOverElement(), held);
    g_UIManager.Screen->DeleteChild(held);
    g_UIManager.MousePosition = {1, 1};
    EXPECT_EQ(g_UIManager.GetMouseOverElement(), g_UIManager.Screen);
    EXPECT_EQ(g_UIManager.LeftPressedElementID, 0u);
}

TEST_F(Events, UnloadScriptsThatDeleteAgainOrDeleteTheParentAreSafe) {
    TAVUElement* parent = MakeElement("Parent");
    TAVUElement* first = MakeElement("First", parent);
    TAVUElement* second = MakeElement("Second", parent);
    TAVUElement* sibling = MakeElement("Sibling", parent);
    first->OnUnload = Script(first, "destroy myself again", "");
    second->OnUnload = Script(second, "destroy my parent", "");
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
        if (run.This == first) parent->DeleteChild(first);
        if (run.This == second) g_UIManager.Screen->DeleteChild(parent);
        return 0;
    };
    parent->DeleteChild(first);
    EXPECT_EQ(parent->FirstChild, second); // the siblings kept their links
    EXPECT_EQ(second->Next, sibling);
    EXPECT_EQ(Host.AtomRuns.size(), 1u);
    parent->DeleteChild(second); // its unload deletes the parent under it
    EXPECT_EQ(g_UIManager.FindElement("Parent"), nullptr);
    EXPECT_EQ(g_UIManager.FindElement("Sibling@Parent"), nullptr);
    EXPECT_EQ(g_UIManager.FindElement("Second@Parent"), nullptr);
}
