#include "CContextMenuHandler.h"
#include "ControlTest.h"
#include "TAVUContextMenu.h"
#include "TAVUContextMenuNode.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {
// A handler as a module author writes one: its rows come from Fill, and it
// keeps what it was told.
class RecordingHandler : public CContextMenuHandler {
public:
    void OnCreate(unsigned parentItemId) override {
        Created.push_back(parentItemId);
        if (Fill) Fill(*this);
    }
    void OnClick(unsigned itemId) override {
        Clicks.push_back(itemId);
        MenuOpenDuringClick = Menu != nullptr;
        if (Clicked) Clicked(itemId);
    }
    std::function<void(RecordingHandler&)> Fill;
    std::function<void(unsigned)> Clicked;
    std::vector<unsigned> Created, Clicks;
    bool MenuOpenDuringClick = false;
};

// An element that owns a menu handler by value, as a window does.
class MenuOwner : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    RecordingHandler Handler;
};
TAVUFactory<MenuOwner> g_MenuOwnerFactory("menuowner");

std::string RectText(const tagRECT& rect) {
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + "," +
           std::to_string(rect.right) + "," + std::to_string(rect.bottom);
}
} // namespace

// Menus of the template "contextmenu": a 10-pixel font (rows 12 high), a
// border of 3 and a highlight fill; the fake host measures 7 pixels a byte.
class ContextMenuTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        g_UIManager.AddTemplate("contextmenu",
                                "<Template><Border>3</Border><Font><Size>10</Size></Font>"
                                "<BackgroundColor>FF202020</BackgroundColor>"
                                "<HighlightColor>FF0000FF</HighlightColor></Template>");
    }
    // Opens the handler's menu at x, y and draws a frame, so that it has its
    // place on the screen.
    TAVUContextMenu* Open(RecordingHandler& handler, int x, int y) {
        EXPECT_TRUE(handler.Create(x, y));
        RenderFrame();
        return handler.Menu;
    }
    static void ThreeItems(RecordingHandler& handler) {
        handler.AddItem("Lock", 1);
        handler.AddItem("Reset Position", 2);
        handler.AddSeparator();
        handler.AddItem("Close", 3);
    }
    void Move(int x, int y) { g_UIManager.OnMouseMove(Point = {x, y}); }
    // From off the screen, so that the menu under the pointer is found anew.
    void Click(int x, int y) {
        Move(-5, -5);
        Move(x, y);
        g_UIManager.OnLMouseDown();
        g_UIManager.OnLMouseUp();
        RenderFrame();
    }
    // The middle of row `row` of a menu at x, y, where the hover counts it.
    static _Point2i Row(const TAVUContextMenu* menu, unsigned row) {
        return {menu->AbsolutePosition.x + 10, menu->AbsolutePosition.y + 6 + int(row) * 12 + 6};
    }
    void ClickRow(const TAVUContextMenu* menu, unsigned row) {
        _Point2i at = Row(menu, row);
        Click(at.x, at.y);
    }
    // What the rows drew, in order: highlight fills, textures
    // with the box they cover, and texts with their top left corner.
    std::vector<std::string> Drawn() const {
        std::vector<std::string> drawn;
        size_t record = 0, text = 0;
        for (const FakeHost::Call& call : Host.Calls) {
            if (call.Name == "FillRect" && call.Args[1] == "0xff0000ff")
                drawn.push_back("fill FF0000FF " + call.Args[0]);
            if (call.Name == "TexturedRect" || call.Name == "TexturedRects") {
                size_t count = call.Name == "TexturedRect" ? 1 : std::stoul(call.Args[0]);
                const TAVUDrawRecord& first = Host.DrawRecords[record];
                const TAVUDrawRecord& last = Host.DrawRecords[record + count - 1];
                tagRECT box{first.Left, first.Top, last.Right, last.Bottom};
                drawn.push_back(Host.LiveTextures.at(first.Texture) + " " + RectText(box));
                record += count;
            }
            if (call.Name == "DrawText") {
                const FakeHost::Text& t = Host.Texts[text++];
                drawn.push_back(t.Value + " " + std::to_string(t.Rect.left) + "," +
                                std::to_string(t.Rect.top));
            }
        }
        return drawn;
    }
    // Without adding an entry for an ID that has none.
    bool Alive(unsigned id) {
        auto found = g_UIManager.ElementsByID.find(id);
        return found != g_UIManager.ElementsByID.end() && found->second;
    }
};

// The menu opens where it is asked, even past the display's edge, named
// after its ID, with the keyboard focus; a second Create changes nothing.
TEST_F(ContextMenuTest, OpensUnclampedOnceWithFocusAndItsTemplatesLooks) {
    RecordingHandler handler;
    handler.Fill = ThreeItems;
    TAVUContextMenu* menu = Open(handler, 790, 595);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(
        std::string(menu->Name), "context menu 0x" + [&] {
            char hex[16];
            snprintf(hex, sizeof(hex), "%x", menu->ID);
            return std::string(hex);
        }());
    EXPECT_EQ(menu->Parent, g_UIManager.Screen);
    EXPECT_EQ(g_UIManager.FocusElementID, menu->ID);
    EXPECT_EQ(std::pair(menu->AbsolutePosition.x, menu->AbsolutePosition.y), std::pair(790, 595));
    EXPECT_EQ(handler.Created, std::vector<unsigned>{0});
    EXPECT_EQ(menu->HighlightColor, 0xFF0000FFu);
    EXPECT_TRUE(menu->IsTypeOf("CONTEXTMENU") && menu->IsTypeOf("frame"));
    EXPECT_FALSE(handler.Create(10, 10));
    EXPECT_EQ(handler.Menu, menu);
    EXPECT_EQ(handler.Created.size(), 1u);

    // A handler's own template wins; with no template at all a menu has no
    // looks; a menu never loads from a file.
    RecordingHandler plain;
    plain.Template = g_UIManager.AddTemplate("Bare", "<Template><Border>1</Border></Template>");
    ASSERT_TRUE(plain.Create(0, 0));
    EXPECT_EQ(plain.Menu->Border, 1u);
    g_UIManager.RemoveTemplate("contextmenu");
    RecordingHandler none;
    ASSERT_TRUE(none.Create(0, 0));
    EXPECT_EQ(std::pair(none.Menu->Border, none.Menu->Font), std::pair(0u, (TAVUFont*)nullptr));
    RenderFrame();
    EXPECT_EQ(none.Menu->Height, 0);
    EXPECT_EQ(Load("contextmenu", "FromFile", "<contextmenu/>"), nullptr);
}

// Rows take the IDs given or the next automatic one from 0; a separator
// always takes an automatic one. Checks live only as long as the menu.
TEST_F(ContextMenuTest, RowIdsAndCheckMarks) {
    struct Case {
        const char* name;
        std::function<void(RecordingHandler&)> fill;
        std::vector<unsigned> ids;
    };
    const Case cases[] = {
        {"automatic",
         [](RecordingHandler& h) {
             h.AddItem("a", 0);
             h.AddItem("b", 0);
         },
         {0, 1}},
        {"the window's rows", ThreeItems, {1, 2, 0, 3}},
        {"submenu and item",
         [](RecordingHandler& h) {
             h.AddSubMenu("More", nullptr, 0);
             h.AddItem("x", 7);
         },
         {0, 7}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        RecordingHandler handler;
        handler.Fill = c.fill;
        ASSERT_TRUE(handler.Create(0, 0));
        std::vector<unsigned> ids;
        for (TAVUContextMenuNode* node = handler.Menu->FirstNode; node; node = node->Next)
            ids.push_back(node->ID);
        EXPECT_EQ(ids, c.ids);
        EXPECT_EQ(handler.Menu->NodeCount, c.ids.size());
    }

    RecordingHandler handler;
    EXPECT_EQ(handler.AddItem("closed", 5), 0u);
    bool checked = true;
    EXPECT_FALSE(handler.GetItemCheck(5, checked));
    handler.Fill = [](RecordingHandler& h) {
        ThreeItems(h);
        h.AddItem("Close again", 3);
    };
    ASSERT_TRUE(handler.Create(0, 0));
    EXPECT_FALSE(handler.GetItemCheck(0, checked)); // the separator
    EXPECT_FALSE(handler.GetItemCheck(9, checked));
    ASSERT_TRUE(handler.GetItemCheck(3, checked));
    EXPECT_FALSE(checked);
    handler.SetItemCheck(3, true);
    int marked = 0;
    for (TAVUContextMenuNode* node = handler.Menu->FirstNode; node; node = node->Next)
        marked += node->ID == 3 && static_cast<TAVUContextMenuItem*>(node)->Checked;
    EXPECT_EQ(marked, 2);
    handler.DestroyMenu(false);
    ASSERT_TRUE(handler.Create(0, 0));
    ASSERT_TRUE(handler.GetItemCheck(3, checked));
    EXPECT_FALSE(checked);
}

// Height fits the rows inside the border; the width is at least 80 and
// follows the longest row, with a margin of 20, one frame late.
TEST_F(ContextMenuTest, SizeFollowsTheRowsAndTheWidthComesAFrameLate) {
    RecordingHandler handler;
    TAVUContextMenu* menu = Open(handler, 0, 0);
    EXPECT_EQ(std::pair(menu->Width, menu->Height), std::pair(80, 6));
    handler.AddItem("A fairly long caption", 0); // 21 bytes, 147 pixels
    handler.AddSeparator();
    RenderFrame();
    EXPECT_EQ(menu->Height, 2 * 12 + 6);
    EXPECT_EQ(Host.Fills.back().Rect.right, 80 - 3); // drawn at the old width
    EXPECT_EQ(menu->Width, 147 + 20);
}

// What a row shows: bare text without its texture (and then no check mark),
// else the texture or, hovered, the highlight; a check mark in a square at
// the right end, inside the row's texture frame; the text inside the frame
// of the last texture drawn. Rows are 3,3 to 77,15, then 12 lower.
TEST_F(ContextMenuTest, RowsDrawTextTexturesHighlightAndCheckMarks) {
    const std::string ticks = "<Border>3</Border><Font><Size>10</Size></Font>"
                              "<HighlightColor>FF0000FF</HighlightColor>"
                              "<ItemCheckTexture Filename=\"#tick\"/>";
    g_UIManager.AddTemplate("Ticks", ("<Template>" + ticks + "</Template>").c_str());
    g_UIManager.AddTemplate("Skinned", ("<Template>" + ticks +
                                        "<ItemTexture Filename=\"#item\"><Border>2</Border>"
                                        "</ItemTexture><SeparatorTexture Filename=\"#rule\"/>"
                                        "<HighlightSubmenuTexture Filename=\"#open\"/></Template>")
                                           .c_str());
    struct Case {
        const char* name;
        const char* skin;
        bool checked;
        int hover; // a row, or -1
        std::vector<std::string> drawn;
    };
    const Case cases[] = {
        {"bare and checked", "Ticks", true, -1, {"Item 3,3", "More 3,15"}},
        {"hovered", "contextmenu", false, 0, {"fill FF0000FF 3,3,77,15", "Item 3,3", "More 3,15"}},
        {"hovered and checked",
         "Ticks",
         true,
         0,
         {"fill FF0000FF 3,3,77,15", "#tick 65,3,77,15", "Item 3,3", "More 3,15"}},
        {"textured",
         "Skinned",
         false,
         -1,
         {"#item 3,3,77,15", "Item 5,5", "More 3,15", "#rule 3,27,77,39"}},
        {"textured and checked",
         "Skinned",
         true,
         -1,
         {"#item 3,3,77,15", "#tick 67,5,75,13", "Item 3,3", "More 3,15", "#rule 3,27,77,39"}},
        {"submenu hovered",
         "Skinned",
         false,
         1,
         {"#item 3,3,77,15", "Item 5,5", "#open 3,15,77,27", "More 3,15", "#rule 3,27,77,39"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        RecordingHandler handler;
        handler.Template = g_UIManager.FindTemplate(c.skin);
        handler.Fill = [](RecordingHandler& h) {
            h.AddItem("Item", 1);
            h.AddSubMenu("More", nullptr, 2);
            h.AddSeparator();
        };
        TAVUContextMenu* menu = Open(handler, 0, 0);
        handler.SetItemCheck(1, c.checked);
        menu->HoverNode = c.hover < 0 ? nullptr : menu->NodeAt(unsigned(c.hover));
        RenderFrame();
        EXPECT_EQ(Drawn(), c.drawn);
    }
}

// The hover counts rows from two borders below the menu's top, one border
// lower than they are drawn: the first border's pixels of the first row
// highlight nothing. A point off the menu is not taken.
TEST_F(ContextMenuTest, HoverIsOffByTheBorder) {
    RecordingHandler handler;
    handler.Fill = [](RecordingHandler& h) {
        for (const char* text : {"a", "b", "c"})
            h.AddItem(text, 0);
    };
    TAVUContextMenu* menu = Open(handler, 100, 100);
    const std::pair<int, int> cases[] = {{103, -1}, {105, -1}, {106, 0}, {117, 0},
                                         {118, 1},  {141, 2},  {142, -1}};
    for (const auto& [y, row] : cases) {
        SCOPED_TRACE(y);
        Move(150, y);
        EXPECT_EQ(menu->HoverNode, row < 0 ? nullptr : menu->NodeAt(unsigned(row)));
    }
    Move(150, 130);
    TAVUContextMenuNode* hovered = menu->HoverNode;
    Move(300, 130);
    EXPECT_FALSE(menu->OnMouseMove(Point));
    EXPECT_EQ(menu->HoverNode, hovered);

    RecordingHandler empty;
    TAVUContextMenu* bare = Open(empty, 400, 400);
    Move(410, 403);
    EXPECT_TRUE(bare->OnMouseMove(Point));
    EXPECT_EQ(bare->HoverNode, nullptr);
}

// A click on an item tells the handler while the menu is still open, then
// closes it; a separator takes the click and does nothing. A press outside
// closes the menu and goes on to what lies beneath, as does focus moving on.
TEST_F(ContextMenuTest, ClicksChooseItemsAndAnythingElseCloses) {
    auto* below = Load("frame", "Below",
                       "<frame><X>300</X><Y>200</Y><Width>50</Width><Height>50</Height>"
                       "<BackgroundColor>FF000000</BackgroundColor></frame>");
    RecordingHandler handler;
    handler.Fill = ThreeItems;
    TAVUContextMenu* menu = Open(handler, 100, 100);
    unsigned id = menu->ID;
    ClickRow(menu, 2); // the separator
    EXPECT_EQ(handler.Menu, menu);
    ClickRow(menu, 1);
    EXPECT_EQ(handler.Clicks, std::vector<unsigned>{2});
    EXPECT_TRUE(handler.MenuOpenDuringClick);
    EXPECT_EQ(handler.Menu, nullptr);
    EXPECT_FALSE(Alive(id));

    menu = Open(handler, 100, 100);
    id = menu->ID;
    Move(320, 220);
    Parent->Notes.clear();
    g_UIManager.OnLMouseDown();
    g_UIManager.OnLMouseUp();
    EXPECT_FALSE(Alive(id));
    EXPECT_EQ(Parent->Notes, (std::vector<std::pair<unsigned, size_t>>{{TAVU_NOTIFY_LEFT_DOWN, 0},
                                                                       {TAVU_NOTIFY_LEFT_UP, 0}}));

    menu = Open(handler, 100, 100);
    g_UIManager.SetFocusElement(below);
    EXPECT_EQ(handler.Menu, nullptr);
    EXPECT_EQ(handler.Clicks.size(), 1u);
}

// Submenu rows open their handler's menu on a click, beside the row, and
// the parent stays open. An item chosen in a submenu closes the whole chain;
// a press elsewhere closes only the submenu; a second submenu opened from a
// parent with one open replaces the parent as well.
TEST_F(ContextMenuTest, SubmenusOpenBesideTheirRowAndCloseAsAChain) {
    RecordingHandler root, colours, sizes;
    root.Fill = [&](RecordingHandler& h) {
        h.AddItem("Top", 1);
        h.AddSubMenu("Colours", &colours, 2);
        h.AddSubMenu("Sizes", &sizes, 3);
    };
    colours.Fill = [](RecordingHandler& h) {
        h.AddItem("Red", 10);
        h.AddItem("Green", 11);
    };
    sizes.Fill = [](RecordingHandler& h) { h.AddItem("Small", 20); };

    TAVUContextMenu* top = Open(root, 100, 100);
    ClickRow(top, 1);
    ASSERT_NE(colours.Menu, nullptr);
    EXPECT_EQ(std::pair(colours.Menu->X, colours.Menu->Y), std::pair(100 + 77 + 2, 115 - 2));
    EXPECT_EQ(colours.Created, std::vector<unsigned>{2});
    EXPECT_EQ(root.Menu, top);
    EXPECT_EQ(root.ChildHandler, &colours);
    EXPECT_EQ(g_UIManager.FocusElementID, colours.Menu->ID);
    ClickRow(colours.Menu, 1);
    EXPECT_EQ(colours.Clicks, std::vector<unsigned>{11});
    EXPECT_TRUE(root.Menu == nullptr && colours.Menu == nullptr);

    top = Open(root, 100, 100);
    ClickRow(top, 1);
    Click(600, 500);
    EXPECT_EQ(colours.Menu, nullptr);
    EXPECT_EQ(root.Menu, top);
    EXPECT_EQ(root.ChildHandler, nullptr);

    ClickRow(top, 1);
    ClickRow(top, 2);
    EXPECT_EQ(sizes.Created, std::vector<unsigned>{3});
    EXPECT_NE(sizes.Menu, nullptr);
    EXPECT_TRUE(root.Menu == nullptr && colours.Menu == nullptr);
    sizes.DestroyMenu(true);
}

// Menus chained deeper than the display reaches still open where their rows
// put them, draw, and close as one chain from the deepest item.
TEST_F(ContextMenuTest, ChainsDeeperThanTheDisplayOpenAndCloseWhole) {
    const unsigned depth = 40;
    std::vector<std::unique_ptr<RecordingHandler>> chain;
    for (unsigned level = 0; level <= depth; ++level)
        chain.push_back(std::make_unique<RecordingHandler>());
    for (unsigned level = 0; level < depth; ++level)
        chain[level]->Fill = [next = chain[level + 1].get()](RecordingHandler& h) {
            h.AddSubMenu("Deeper", next, 0);
        };
    chain[depth]->Fill = [](RecordingHandler& h) { h.AddItem("Bottom", 5); };
    TAVUContextMenu* menu = Open(*chain[0], 700, 500);
    for (unsigned level = 0; level < depth; ++level) {
        menu->FirstNode->OnClick();
        RenderFrame();
        menu = chain[level + 1]->Menu;
        ASSERT_NE(menu, nullptr);
    }
    EXPECT_EQ(std::pair(menu->X, menu->Y), std::pair(700 + int(depth) * 79, 500 + int(depth)));
    menu->FirstNode->OnClick();
    EXPECT_EQ(chain[depth]->Clicks, std::vector<unsigned>{5});
    for (const auto& handler : chain)
        EXPECT_EQ(handler->Menu, nullptr);
}

// A menu may lose its owner, or its element, at any time: from its own click,
// from a script, with the whole tree. Nothing is touched afterwards, and the
// handler can open again.
TEST_F(ContextMenuTest, MenusSurviveTheirOwnersAndElementsGoingAtAnyTime) {
    struct Case {
        const char* name;
        std::function<void(MenuOwner*, RecordingHandler&)> open; // opens, and kills later
    };
    auto deleteOwner = [this](MenuOwner* owner) { Parent->DeleteChild(owner); };
    const Case cases[] = {
        {"owner deleted while open",
         [&](MenuOwner* owner, RecordingHandler&) {
             Open(owner->Handler, 10, 10);
             deleteOwner(owner);
         }},
        {"owner deleted by the item's click",
         [&](MenuOwner* owner, RecordingHandler&) {
             owner->Handler.Fill = ThreeItems;
             owner->Handler.Clicked = [=](unsigned) { deleteOwner(owner); };
             ClickRow(Open(owner->Handler, 10, 10), 0);
         }},
        {"owner deleted by a submenu item's click",
         [&](MenuOwner* owner, RecordingHandler& sub) {
             owner->Handler.Fill = [&](RecordingHandler& h) { h.AddSubMenu("More", &sub, 4); };
             sub.Fill = ThreeItems;
             sub.Clicked = [=](unsigned) { deleteOwner(owner); };
             ClickRow(Open(owner->Handler, 10, 10), 0);
             ClickRow(sub.Menu, 0);
         }},
        {"menu deleted by a script",
         [&](MenuOwner* owner, RecordingHandler&) {
             TAVUContextMenu* menu = Open(owner->Handler, 10, 10);
             g_UIManager.Screen->DeleteChild(menu);
             EXPECT_EQ(owner->Handler.Menu, nullptr);
             EXPECT_TRUE(owner->Handler.Create(10, 10));
             g_UIManager.Screen->DeleteChild(owner->Handler.Menu);
         }},
        {"tree reset",
         [&](MenuOwner* owner, RecordingHandler&) {
             Open(owner->Handler, 10, 10);
             g_UIManager.Reset();
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        RecordingHandler sub;
        auto* owner =
            static_cast<MenuOwner*>(g_UIManager.LoadElement(Parent, "menuowner", "Owner"));
        unsigned ownerId = owner->ID, next = g_UIManager.NextElementID;
        c.open(owner, sub);
        RenderFrame();
        for (unsigned id = next; id < g_UIManager.NextElementID; ++id) // a reset's new screen lives
            EXPECT_EQ(Alive(id), id == g_UIManager.Screen->ID) << id;
        EXPECT_EQ(sub.Menu, nullptr);
        if (!g_UIManager.FindElement("Parent")) break; // the reset took the owner's parent
        if (Alive(ownerId)) Parent->DeleteChild(owner);
    }
}
