// Scripts that tear the tree down from inside a teardown: every teardown
// command, with every teardown command run from the "OnUnload" of the element
// going (A) or of its child (C@A). Whatever the mix, no element is deleted
// twice, each "OnUnload" runs once, the tree that is left hangs together, and
// the recursion ends. Run under AddressSanitizer, this is the memory check too.
#include "ToolkitTest.h"
#include "TreeChecks.h"

#include "CUIManager.h"
#include "TAVUElement.h"
#include "TAVUScreen.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace {
const char kFile[] = "teardown.xml";
const std::string kTemplateFile = "teardown-template.xml";

struct TeardownCase {
    const char* Outer;     // what starts the teardown
    const char* Inner;     // what an "OnUnload" runs meanwhile
    const char* RunsInner; // whose "OnUnload" runs it: "a" or "c"
};

std::string Describe(const TeardownCase& teardown) {
    return std::string(teardown.Outer) + " / " + teardown.RunsInner + " runs " + teardown.Inner;
}

const char* const kOuterCommands[] = {
    "UI -reset",
    "UIElement -kill A",
    "UIElement -kill C@A",
    "UI -unload teardown.xml",
    "UI -reload teardown.xml",
    "shutdown",
};
const char* const kInnerCommands[] = {
    "UI -reset",
    "UIElement -kill A",
    "UIElement -kill C@A",
    "UI -unload teardown.xml",
    "UI -reload teardown.xml",
    "UI -reload -parent A teardown.xml A",
    "UI -load teardown.xml",
    "UI -load -parent A teardown.xml A Again",
};

class Teardown : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        for (std::string file : {std::string(kFile), kTemplateFile})
            Host.InterfaceFiles[file] = std::string(TAVU_TEST_DATA_DIR) + "/manager/" + file;
    }

    // Loads the file, arms the inner command, runs the outer one; gives how
    // many "OnUnload" scripts ran.
    size_t Run(const TeardownCase& teardown) {
        EXPECT_TRUE(g_UIManager.LoadInterfaceXML(kFile, false, nullptr));
        std::map<unsigned, int> unloads;
        size_t runs = 0;
        Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
            auto* element = static_cast<TAVUElement*>(run.This);
            EXPECT_EQ(++unloads[element->ID], 1) << "a second OnUnload of " << element->FullName;
            if (++runs > 50) return 0; // a runaway teardown fails below, not by hanging
            if (std::string(element->Name) == teardown.RunsInner)
                Host.RunCommandLine(teardown.Inner);
            return 0;
        };
        if (std::string(teardown.Outer) == "shutdown")
            g_UIManager.Shutdown();
        else
            Host.RunCommandLine(teardown.Outer);
        Host.OnExecuteAtom = nullptr;
        EXPECT_LE(runs, 50u) << "the teardown did not end";
        return runs;
    }
};

TEST_F(Teardown, AnyTeardownFromInsideAnyOtherIsSafe) {
    for (const char* outer : kOuterCommands) {
        for (const char* inner : kInnerCommands) {
            for (const char* runsInner : {"a", "c"}) {
                TeardownCase teardown{outer, inner, runsInner};
                SCOPED_TRACE(Describe(teardown));
                Run(teardown);
                if (g_UIManager.IsShutDown) {
                    EXPECT_EQ(g_UIManager.Screen, nullptr);
                    ResetToolkit();
                    SetUp();
                    continue;
                }
                ExpectConsistentTree();
                g_UIManager.Reset();
            }
        }
    }
}

// While a file loads, an "OnLoad" (of an element, or of a child that its
// template gives it) reloads, unloads or resets: the template whose children
// are being read is replaced, the parent being filled goes, the skin of the
// load is replaced. The load stops where its parent went, and reads nothing
// freed.
TEST_F(Teardown, AnyTeardownFromAnOnLoadIsSafe) {
    const std::string& file = kTemplateFile;
    const std::string kInner[] = {"UI -reset",          "UI -reload " + file,
                                  "UI -unload " + file, "UI -load " + file,
                                  "UIElement -kill A",  "UI -load -skin Look " + file};
    for (const std::string& line : kInner) {
        for (const char* runsInner : {"load A", "load C"}) {
            SCOPED_TRACE(line + " from " + runsInner);
            size_t runs = 0;
            Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
                if (++runs <= 100 &&
                    run.Source.find(std::string("{\n") + runsInner + "\n}") != std::string::npos)
                    Host.RunCommandLine(line);
                return 0;
            };
            Host.RunCommandLine("UI -load -skin Look " + file);
            Host.RunCommandLine("UI -reload " + file);
            Host.OnExecuteAtom = nullptr;
            EXPECT_LE(runs, 100u) << "the load did not end";
            ExpectConsistentTree();
            g_UIManager.Reset();
        }
    }
}

TEST_F(Teardown, AFileWhoseElementReloadsItStopsSixteenLoadsDeep) {
    const std::string& file = kTemplateFile;
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
        if (run.Source.find("{\nload A\n}") != std::string::npos)
            Host.RunCommandLine("UI -reload " + file);
        return 0;
    };
    EXPECT_TRUE(g_UIManager.LoadInterfaceXML(file.c_str(), false, nullptr));
    Host.OnExecuteAtom = nullptr;
    size_t refused = 0;
    for (const std::string& line : Host.Console)
        refused += line == "Failed to load " + file + ": loads nested more than 16 deep";
    EXPECT_EQ(refused, 1u);
    EXPECT_NE(g_UIManager.FindElement("C@A"), nullptr);
    ExpectConsistentTree();
}

TEST_F(Teardown, AnElementDeletedThroughDeleteAloneLeavesItsParentsList) {
    TAVUElement* parent = MakeElement("Parent");
    MakeElement("First", parent);
    TAVUElement* middle = MakeElement("Middle", parent);
    TAVUElement* last = MakeElement("Last", parent);
    middle->Delete();
    EXPECT_EQ(parent->FirstChild->Next, last);
    EXPECT_EQ(last->Previous, parent->FirstChild);
    last->Delete();
    EXPECT_EQ(parent->LastChild, parent->FirstChild);
    ExpectConsistentTree();
}

// The three first seen as crashes, each with what is left afterwards.
TEST_F(Teardown, AResetFromTheResetsOwnUnloadIsIgnoredAndLoadsDuringItAreRefused) {
    Run({"UI -reset", "UI -reset", "a"});
    ASSERT_NE(g_UIManager.Screen, nullptr);
    EXPECT_EQ(g_UIManager.Screen->FirstChild, nullptr);
    EXPECT_FALSE(g_UIManager.Screen->IsBeingDeleted());
    EXPECT_NE(g_UIManager.LoadElement(g_UIManager.Screen, "frame", "Fresh"), nullptr);
    g_UIManager.Reset();
    Host.Console.clear();
    Run({"UI -reset", "UI -load teardown.xml", "c"}); // elements loaded meanwhile are refused
    EXPECT_EQ(Host.Console.front(), "Cannot load 'A' under 'screen': it is being deleted");
    EXPECT_EQ(g_UIManager.Screen->FirstChild, nullptr);
}

TEST_F(Teardown, AnElementReloadedAsItsOwnChildIsRefusedAndGoesOnce) {
    for (const char* outer :
         {"UIElement -kill A", "UI -reset", "UI -reload teardown.xml", "UI -unload teardown.xml"}) {
        SCOPED_TRACE(outer);
        Host.Console.clear();
        EXPECT_EQ(Run({outer, "UI -reload -parent A teardown.xml A", "a"}), 2u);
        EXPECT_EQ(Host.Console.front(), "Cannot load 'A' under 'a': it is being deleted");
        EXPECT_EQ(g_UIManager.FindElement("C@A@A"), nullptr);
        g_UIManager.Reset();
    }
}

TEST_F(Teardown, AKilledElementsUnloadMayLoadItsSuccessor) {
    Run({"UIElement -kill A", "UI -load teardown.xml", "a"});
    // The new A stands; B was there already. The old A, going last, took the
    // name entry with it, as a second element of one name always does.
    ASSERT_NE(g_UIManager.Screen->FirstChild, nullptr);
    EXPECT_STREQ(g_UIManager.Screen->LastChild->Name, "a");
    EXPECT_EQ(Host.Console.back(), "Child named 'B' already exists in parent element 'screen'");
    ExpectConsistentTree();
}
} // namespace
