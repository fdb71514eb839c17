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
        Host.InterfaceFiles[kFile] = std::string(TAVU_TEST_DATA_DIR) + "/manager/" + kFile;
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
                    ToolkitTest::SetUp();
                    SetUp();
                    continue;
                }
                ExpectConsistentTree();
                g_UIManager.Reset();
            }
        }
    }
}

// The three first seen as crashes, each with what is left afterwards.
TEST_F(Teardown, AResetFromTheResetsOwnUnloadIsIgnored) {
    Run({"UI -reset", "UI -reset", "a"});
    ASSERT_NE(g_UIManager.Screen, nullptr);
    EXPECT_EQ(g_UIManager.Screen->FirstChild, nullptr);
    EXPECT_FALSE(g_UIManager.Screen->IsBeingDeleted());
    EXPECT_NE(g_UIManager.LoadElement(g_UIManager.Screen, "frame", "Fresh"), nullptr);
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

TEST_F(Teardown, ElementsLoadedDuringAResetAreRefused) {
    Run({"UI -reset", "UI -load teardown.xml", "c"});
    EXPECT_EQ(Host.Console.front(), "Cannot load 'A' under 'screen': it is being deleted");
    EXPECT_EQ(g_UIManager.Screen->FirstChild, nullptr);
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
