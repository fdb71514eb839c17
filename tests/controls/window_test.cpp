#include "ControlTest.h"
#include "TAVUButton.h"
#include "TAVUContextMenu.h"
#include "TAVUContextMenuNode.h"
#include "TAVUElementWatch.h"
#include "TAVUWindow.h"
#include "Words.h"

namespace {
// A window template as interfaces write one: a 20-pixel title bar with its
// title, the two size buttons on one spot and a close button, and a client
// below the bar.
const char kWindowTemplate[] =
    "<Template><BackgroundColor>FF202020</BackgroundColor><Border>2</Border>"
    "<CloseButton>1</CloseButton><MinimizeButton>1</MinimizeButton>"
    "<TitleBar><Width>100%</Width><Height>20</Height><BackgroundColor>FF404040</BackgroundColor>"
    "<Children><text Name=\"Title\"><Width>100</Width><Height>20</Height></text>"
    "<button Name=\"Minimize\"><X>r40</X><Width>18</Width><Height>18</Height></button>"
    "<button Name=\"Maximize\"><X>r40</X><Width>18</Width><Height>18</Height></button>"
    "<button Name=\"Close\"><X>r20</X><Width>18</Width><Height>18</Height></button>"
    "</Children></TitleBar>"
    "<Client><Y>20</Y><Width>100%</Width><Height>r20</Height></Client></Template>";

std::string Rect(const TAVUElement* element) {
    return std::to_string(element->X) + " " + std::to_string(element->Y) + " " +
           std::to_string(element->Width) + " " + std::to_string(element->Height);
}
} // namespace

class WindowTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        g_UIManager.AddTemplate("window", kWindowTemplate);
    }

    // Loads a window under the screen; the loader answers with its client.
    TAVUWindow* LoadWindow(const char* name, const std::string& body,
                           const std::string& attributes = "") {
        std::string xml = "<window" + attributes + ">" + body + "</window>";
        g_UIManager.LoadElement(g_UIManager.Screen, "window", name, Parse(xml), nullptr);
        return static_cast<TAVUWindow*>(g_UIManager.Screen->FindChild(name));
    }

    // "X Y W H" of a 200x120 window at 100,50 (outer 98,48 204x124) after a
    // press at `from`, moves to each point of `to`, and a release.
    void Drag(_Point2i from, std::vector<_Point2i> to) {
        TavuAdvanceClock(1000); // no press here makes a double click
        RenderFrame();
        MoveTo(from);
        g_UIManager.OnLMouseDown();
        for (_Point2i& point : to)
            g_UIManager.OnMouseMove(point);
        g_UIManager.OnLMouseUp();
    }

    void Click(_Point2i point) { Drag(point, {}); }

    // The pointer arrives at point from beside it, so that the element under
    // it is found anew even when it rests there already.
    static void MoveTo(_Point2i point) {
        _Point2i beside{point.x + 1, point.y};
        g_UIManager.OnMouseMove(beside);
        g_UIManager.OnMouseMove(point);
    }

    void RightClick(_Point2i point) {
        TavuAdvanceClock(1000);
        RenderFrame();
        MoveTo(point);
        g_UIManager.OnRMouseDown();
        g_UIManager.OnRMouseUp();
    }

    // The open menu's rows as "ID:text", a separator as "ID:-".
    static std::string Rows(TAVUContextMenu* menu) {
        std::string rows;
        for (TAVUContextMenuNode* node = menu->FirstNode; node; node = node->Next) {
            rows += rows.empty() ? "" : " ";
            rows += std::to_string(node->ID) + ":";
            rows += node->NodeType == TAVUContextMenuNode::ItemNode
                        ? static_cast<TAVUContextMenuItem*>(node)->Text
                        : "-";
        }
        return rows;
    }
};

// What a file's keys make of a window is read back in tavuhost's
// window_parts case; the minimum sizes a script cannot read stay here.
TEST_F(WindowTest, MinimumSizesRideOnTheResizeToggles) {
    const std::pair<const char*, const char*> cases[] = {
        {"<Width>200</Width>", "2 20 40"}, // the constructor's, unused
        {"<Width>10</Width><HeightResizable>1</HeightResizable>", "3 20 20"},
        {"<Resizable MinWidth=\"7\">1</Resizable>", "3 7 20"},
    };
    for (const auto& [body, expected] : cases) {
        TAVUWindow* window = LoadWindow("Sized", body);
        ASSERT_NE(window, nullptr) << body;
        EXPECT_EQ(Words(window->Border, window->MinWidth, window->MinHeight), expected) << body;
        g_UIManager.Screen->DeleteChild(window);
    }
}

// Hostile sizes and places: only the sums wrap; nothing is undefined.
TEST_F(WindowTest, AbsurdPlacesAndSizesWrapWithoutHarm) {
    TAVUWindow* window = LoadWindow("Huge", "<X>2147483647</X><Y>-2147483648</Y>"
                                            "<Width>4000000000</Width><Height>99999</Height>"
                                            "<Resizable MinWidth=\"-5\">1</Resizable>");
    ASSERT_NE(window, nullptr);
    RenderFrame();
    window->Minimize(true);
    window->Minimize(true); // saves the minimised size over the real one, as it always has
    window->Minimize(false);
    EXPECT_EQ(window->Height, 26) << "the title bar and the border";
    EXPECT_EQ(std::to_string(window->X) + " " + std::to_string(window->Y), "2147483644 2147483645");
    Drag({2147483645, 2147483646}, {{-2147483647, 0}});
    int x, y;
    unsigned width, height;
    EXPECT_TRUE(window->GetStoragePosition(x, y, width, height));
}

TEST_F(WindowTest, AWindowDeletedByItsCloseButtonsClickIsLeftAlone) {
    TAVUWindow* window = LoadWindow(
        "Doomed", "<X>100</X><Y>50</Y><Width>200</Width><Height>120</Height>"
                  "<TitleBar><Width>100%</Width><Height>20</Height><Children>"
                  "<button Name=\"Close\"><Width>18</Width><Height>18</Height>"
                  "<OnLeftClick>UI -unload Doomed</OnLeftClick></button></Children></TitleBar>");
    ASSERT_NE(window, nullptr);
    TAVUElementWatch watch(window);
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        g_UIManager.Screen->DeleteChild(window);
        return 0;
    };
    Click({105, 55});
    EXPECT_FALSE(watch.Alive()); // under ASan: nothing touched it afterwards
}

// Choosing the entries with the mouse is tavuhost's windows case.
TEST_F(WindowTest, TheTitleBarsMenuOpensOnceWithItsFourRows) {
    TAVUWindow* window =
        LoadWindow("Menu", "<X>100</X><Y>50</Y><Width>200</Width><Height>120</Height>");
    ASSERT_NE(window, nullptr);
    RightClick({150, 120}); // the client is no title bar
    EXPECT_EQ(window->ContextMenu.Menu, nullptr);
    window->Locked = true;
    RightClick({150, 55});
    TAVUContextMenu* menu = window->ContextMenu.Menu;
    ASSERT_NE(menu, nullptr) << "a locked window still has its menu";
    EXPECT_EQ(Rows(menu), "1:Unlock 2:Reset Position 0:- 3:Close");
    EXPECT_EQ(std::to_string(menu->X) + " " + std::to_string(menu->Y), "150 55");
    EXPECT_FALSE(window->ContextMenu.Create(10, 10)); // one menu at a time, left where it is
    EXPECT_EQ(window->ContextMenu.Menu, menu);
    window->ContextMenu.OnClick(CWindowContextMenu::ItemLock);
    EXPECT_FALSE(window->Locked);
}

TEST_F(WindowTest, AWindowDeletedWithItsMenuOpenTakesTheMenuAlong) {
    TAVUWindow* window =
        LoadWindow("Gone", "<X>100</X><Y>50</Y><Width>200</Width><Height>120</Height>");
    ASSERT_NE(window, nullptr);
    RightClick({150, 55});
    ASSERT_NE(window->ContextMenu.Menu, nullptr);
    TAVUElementWatch menu(window->ContextMenu.Menu);
    g_UIManager.Screen->DeleteChild(window);
    EXPECT_FALSE(menu.Alive());
    RenderFrame(); // under ASan: nothing left that points at the window
    RightClick({150, 55});
}

TEST_F(WindowTest, CodeMakesAWindowFromARecordTitledByItsNodeOrName) {
    auto* window =
        static_cast<TAVUWindow*>(g_UIManager.LoadElement(g_UIManager.Screen, "window", "Made"));
    ASSERT_NE(window, nullptr);
    _CreateWindow create;
    create.X = 10, create.Y = 20, create.Width = 100, create.Height = 50;
    create.Border = 1;
    create.Flags = TAVUWindow::FlagWidthResizable;
    create.Title = "Never shown";
    window->Create(create,
                   Parse("<window><OffsetTitleBarHeight>1</OffsetTitleBarHeight></window>"));
    // A border of 3 for the resizable window, and the title bar's 20 on top.
    EXPECT_EQ(Rect(window), "7 17 106 76");
    EXPECT_EQ(window->Flags, 1u | 2u | 8u | 64u);
    EXPECT_STRCASEEQ(window->Title, "Made");
    int x, y;
    unsigned width, height;
    window->GetStoragePosition(x, y, width, height);
    EXPECT_EQ(std::to_string(x) + " " + std::to_string(y) + " " + std::to_string(width) + " " +
                  std::to_string(height),
              "10 20 100 50"); // the record's rectangle again
}

// Raising and focusing by a press is tavuhost's window_parts case.
TEST_F(WindowTest, AWheelOverAClientThatLetsBothButtonsThroughGoesOnBeneath) {
    TAVUWindow* window =
        LoadWindow("Wheel", "<X>100</X><Y>50</Y><Width>200</Width><Height>120</Height>");
    ASSERT_NE(window, nullptr);
    RenderFrame();
    MoveTo({150, 120});
    EXPECT_TRUE(g_UIManager.OnMouseWheel(1));
    window->Client->LeftClickThru = window->Client->RightClickThru = true;
    EXPECT_FALSE(window->OnMouseWheel(1));
}

TEST_F(WindowTest, PartsThatScriptsDeleteAreForgotten) {
    TAVUWindow* window =
        LoadWindow("Parts", "<X>100</X><Y>50</Y><Width>200</Width><Height>120</Height>");
    ASSERT_NE(window, nullptr);
    window->Client->Parent->DeleteChild(window->Client);
    window->CloseButton->Parent->DeleteChild(window->CloseButton);
    EXPECT_EQ(window->Client, nullptr);
    EXPECT_EQ(window->CloseButton, nullptr);
    window->TitleBar->Parent->DeleteChild(window->TitleBar);
    EXPECT_TRUE(!window->TitleBar && !window->TitleText && !window->MinimizeButton);
    window->Minimize(true); // under ASan: nothing left that points at a deleted part
    window->SetTitle("Still here");
    RenderFrame();
    Drag({99, 100}, {{150, 150}}); // by the body's border band
    EXPECT_EQ(Rect(window), "149 98 204 124");
}
