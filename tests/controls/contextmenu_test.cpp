// What a user sees of a menu (opening, choosing, closing, a press that goes
// on beneath) is compared end to end in tavuhost's contextmenu case; these
// tests keep the rows, the drawing, the hover, submenus and deletion.
#include "CContextMenuHandler.h"
#include "ControlTest.h"
#include "TAVUContextMenu.h"
#include "TAVUContextMenuNode.h"

namespace {
// A handler as a module author writes one: rows from Fill, clicks recorded.
class RecordingHandler : public CContextMenuHandler {
public:
    void OnCreate(unsigned parentItemId) override {
        Created.push_back(parentItemId);
        if (Fill) Fill(*this);
    }
    void OnClick(unsigned itemId) override {
        Clicks.push_back(itemId);
        if (Clicked) Clicked(itemId);
    }
    std::function<void(RecordingHandler&)> Fill;
    std::function<void(unsigned)> Clicked;
    std::vector<unsigned> Created, Clicks;
};

// An element that holds its handler by value, as a window does.
class MenuOwner : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    RecordingHandler Handler;
};
TAVUFactory<MenuOwner> g_MenuOwnerFactory("menuowner");

void WindowRows(RecordingHandler& handler) {
    handler.AddItem("Lock", 1);
    handler.AddItem("Reset Position", 2);
    handler.AddSeparator();
    handler.AddItem("Close", 3);
}
} // namespace

// Menus of the template "contextmenu": a 10-pixel font (rows 12 high), a
// border of 3 and a highlight; the fake host measures 7 pixels a byte.
class ContextMenuTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        g_UIManager.AddTemplate("contextmenu",
                                "<Template><Border>3</Border><Font><Size>10</Size></Font>"
                                "<HighlightColor>FF0000FF</HighlightColor></Template>");
    }
    // Opens the menu and draws a frame, which gives it its place on the screen.
    TAVUContextMenu* Open(RecordingHandler& handler, int x, int y) {
        EXPECT_TRUE(handler.Create(x, y));
        RenderFrame();
        return handler.Menu;
    }
    void Move(int x, int y) { g_UIManager.OnMouseMove(Point = {x, y}); }
    // A click in the middle of a row, coming from off the screen.
    void ClickRow(const TAVUContextMenu* menu, int row) {
        Move(-5, -5);
        Move(menu->AbsolutePosition.x + 10, menu->AbsolutePosition.y + 12 + row * 12);
        g_UIManager.OnLMouseDown();
        g_UIManager.OnLMouseUp();
        RenderFrame();
    }
    // Fills in the highlight colour, textures with the box they cover, texts
    // with their top left corner, in the order drawn.
    std::vector<std::string> Drawn() const {
        auto corner = [](int x, int y) { return std::to_string(x) + "," + std::to_string(y); };
        std::vector<std::string> drawn;
        size_t record = 0, text = 0;
        for (const FakeHost::Call& call : Host.Calls) {
            if (call.Name == "FillRect" && call.Args[1] == "0xff0000ff")
                drawn.push_back("fill " + call.Args[0]);
            if (call.Name == "TexturedRect" || call.Name == "TexturedRects") {
                const TAVUDrawRecord& first = Host.DrawRecords[record];
                record += call.Name == "TexturedRect" ? 1 : std::stoul(call.Args[0]);
                const TAVUDrawRecord& last = Host.DrawRecords[record - 1];
                drawn.push_back(Host.LiveTextures.at(first.Texture) + " " +
                                corner(first.Left, first.Top) + "," +
                                corner(last.Right, last.Bottom));
            }
            if (call.Name == "DrawText") {
                const FakeHost::Text& drawnText = Host.Texts[text++];
                drawn.push_back(drawnText.Value + " " +
                                corner(drawnText.Rect.left, drawnText.Rect.top));
            }
        }
        return drawn;
    }
    // Without entering an ID that the manager does not have.
    bool Alive(unsigned id) {
        auto found = g_UIManager.ElementsByID.find(id);
        return found != g_UIManager.ElementsByID.end() && found->second;
    }
};

// Rows take the ID given or the next automatic one, from 0; a separator
// always takes one. Checks live with their menu. An empty menu is 80 wide
// and two borders high; the width follows the rows one frame late.
TEST_F(ContextMenuTest, RowIdsChecksAndSize) {
    RecordingHandler handler;
    EXPECT_EQ(handler.AddItem("closed", 5), 0u);
    TAVUContextMenu* menu = Open(handler, 900, 700); // past the display: kept
    EXPECT_EQ(std::tuple(menu->AbsolutePosition.x, menu->Width, menu->Height),
              std::tuple(900, 80, 6));
    EXPECT_FALSE(handler.Create(0, 0));
    WindowRows(handler);
    EXPECT_EQ(handler.AddItem("A twenty-byte label!", 0), 1u);
    std::vector<unsigned> ids;
    for (TAVUContextMenuNode* node = menu->FirstNode; node; node = node->Next)
        ids.push_back(node->ID);
    EXPECT_EQ(ids, (std::vector<unsigned>{1, 2, 0, 3, 1}));
    bool checked = true;
    EXPECT_FALSE(handler.GetItemCheck(0, checked) || handler.GetItemCheck(9, checked));
    handler.SetItemCheck(1, true);
    EXPECT_TRUE(handler.GetItemCheck(1, checked) && checked);
    RenderFrame();
    EXPECT_EQ(std::pair(menu->Width, menu->Height), std::pair(20 * 7 + 20, 5 * 12 + 6));
    handler.DestroyMenu(false);
    handler.Fill = WindowRows;
    Open(handler, 0, 0);
    EXPECT_TRUE(handler.GetItemCheck(1, checked) && !checked);
}

// Bare text without the row's texture (and then no check mark), else the
// texture or, hovered, the highlight; the check mark in a square at the right
// end inside the row texture's frame; the text inside the last frame drawn.
TEST_F(ContextMenuTest, RowsDrawTextTexturesHighlightAndCheckMarks) {
    const std::string ticks = "<Border>3</Border><Font><Size>10</Size></Font>"
                              "<HighlightColor>FF0000FF</HighlightColor>"
                              "<ItemCheckTexture Filename=\"#tick\"/>";
    g_UIManager.AddTemplate("Ticks", ("<Template>" + ticks + "</Template>").c_str());
    g_UIManager.AddTemplate("Skinned",
                            ("<Template>" + ticks +
                             "<ItemTexture Filename=\"#item\"><Border>2</Border></ItemTexture>"
                             "<SeparatorTexture Filename=\"#rule\"/>"
                             "<HighlightSubmenuTexture Filename=\"#open\"/></Template>")
                                .c_str());
    struct Case {
        const char* skin;
        bool checked;
        int hover; // a row, or -1
        std::vector<std::string> drawn;
    };
    const Case cases[] = {
        {"Ticks", true, -1, {"Item 3,3", "More 3,15"}},
        {"Ticks", true, 0, {"fill 3,3,77,15", "#tick 65,3,77,15", "Item 3,3", "More 3,15"}},
        {"Skinned",
         true,
         -1,
         {"#item 3,3,77,15", "#tick 67,5,75,13", "Item 3,3", "More 3,15", "#rule 3,27,77,39"}},
        {"Skinned",
         false,
         1,
         {"#item 3,3,77,15", "Item 5,5", "#open 3,15,77,27", "More 3,15", "#rule 3,27,77,39"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.drawn.back());
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

// The hover counts rows from two borders down, one more than they are drawn
// at: the first border's pixels of the first row highlight nothing.
TEST_F(ContextMenuTest, HoverIsOffByTheBorder) {
    RecordingHandler handler;
    handler.Fill = WindowRows;
    TAVUContextMenu* menu = Open(handler, 100, 100);
    const std::pair<int, int> cases[] = {{103, -1}, {105, -1}, {106, 0}, {117, 0},
                                         {118, 1},  {153, 3},  {154, -1}};
    for (const auto& [y, row] : cases) {
        Move(150, y);
        EXPECT_EQ(menu->HoverNode, row < 0 ? nullptr : menu->NodeAt(unsigned(row))) << y;
    }
}

// A submenu opens on a click beside its row and the parent stays; its item
// closes the chain; a press elsewhere closes only the submenu; a second
// submenu opened while one is open replaces the parent too.
TEST_F(ContextMenuTest, SubmenusOpenBesideTheirRowAndCloseAsAChain) {
    RecordingHandler root, colours, sizes;
    root.Fill = [&](RecordingHandler& h) {
        h.AddItem("Top", 1);
        h.AddSubMenu("Colours", &colours, 2);
        h.AddSubMenu("Sizes", &sizes, 3);
    };
    colours.Fill = WindowRows;
    TAVUContextMenu* top = Open(root, 100, 100);
    ClickRow(top, 1);
    ASSERT_NE(colours.Menu, nullptr);
    EXPECT_EQ(std::tuple(colours.Menu->X, colours.Menu->Y, colours.Created[0], root.Menu),
              std::tuple(100 + 77 + 2, 115 - 2, 2u, top));
    ClickRow(colours.Menu, 1);
    EXPECT_EQ(std::tuple(colours.Clicks, root.Menu, colours.Menu),
              std::tuple(std::vector<unsigned>{2}, nullptr, nullptr));

    top = Open(root, 100, 100);
    ClickRow(top, 1);
    Move(600, 500);
    g_UIManager.OnLMouseDown();
    EXPECT_EQ(std::tuple(root.Menu, root.ChildHandler, colours.Menu),
              std::tuple(top, nullptr, nullptr));
    g_UIManager.OnLMouseUp();
    ClickRow(top, 1);
    ClickRow(top, 2);
    EXPECT_EQ(std::tuple(root.Menu, colours.Menu, sizes.Created.size()),
              std::tuple(nullptr, nullptr, 1u));
    EXPECT_NE(sizes.Menu, nullptr);

    // Sizes still names the root as its parent: the root never opens below it.
    sizes.DestroyMenu(true);
    sizes.Fill = [&](RecordingHandler& h) { h.AddSubMenu("Back", &root, 0), WindowRows(h); };
    ClickRow(Open(sizes, 0, 0), 0);
    EXPECT_EQ(root.Menu, nullptr);
    ClickRow(sizes.Menu, 1);
    EXPECT_EQ(sizes.Clicks, std::vector<unsigned>{1});
}

// A menu may lose its owner or its element at any time, also from its own
// click at the end of a chain deeper than the display: nothing is touched
// afterwards, and no menu stays behind.
TEST_F(ContextMenuTest, MenusSurviveTheirOwnersAndElementsGoingAtAnyTime) {
    std::vector<std::unique_ptr<RecordingHandler>> chain;
    for (int level = 0; level < 30; ++level)
        chain.push_back(std::make_unique<RecordingHandler>());
    for (size_t level = 0; level + 1 < chain.size(); ++level)
        chain[level]->Fill = [&, level](RecordingHandler& h) {
            h.AddSubMenu("Deeper", chain[level + 1].get(), 0);
        };
    MenuOwner* owner = nullptr;
    auto kill = [&](unsigned) { Parent->DeleteChild(owner); };
    const std::function<void()> cases[] = {
        [&] {
            Open(owner->Handler, 10, 10);
            kill(0);
        },
        [&] {
            owner->Handler.Fill = WindowRows;
            owner->Handler.Clicked = kill;
            ClickRow(Open(owner->Handler, 10, 10), 0);
        },
        [&] {
            owner->Handler.Fill = [&](RecordingHandler& h) {
                h.AddSubMenu("In", chain[0].get(), 0);
            };
            chain.back()->Fill = WindowRows;
            chain.back()->Clicked = kill;
            TAVUContextMenu* menu = Open(owner->Handler, 700, 500);
            for (auto& handler : chain) {
                menu->FirstNode->OnClick();
                RenderFrame();
                menu = handler->Menu;
            }
            EXPECT_EQ(std::pair(menu->X, menu->Y), std::pair(700 + 30 * 79, 500 + 30));
            menu->FirstNode->OnClick();
        },
        [&] {
            g_UIManager.Screen->DeleteChild(Open(owner->Handler, 10, 10));
            EXPECT_EQ(owner->Handler.Menu, nullptr);
            EXPECT_TRUE(owner->Handler.Create(10, 10));
            g_UIManager.Reset();
        },
    };
    for (const auto& run : cases) {
        owner = static_cast<MenuOwner*>(g_UIManager.LoadElement(Parent, "menuowner", "Owner"));
        unsigned next = g_UIManager.NextElementID;
        run();
        for (unsigned id = next; id < g_UIManager.NextElementID; ++id) // a reset makes a screen
            EXPECT_EQ(Alive(id), id == g_UIManager.Screen->ID) << id;
        for (auto& handler : chain)
            EXPECT_EQ(handler->Menu, nullptr);
    }
}
