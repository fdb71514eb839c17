#include "ControlTest.h"
#include "TAVUElementWatch.h"
#include "TAVUScrollBar.h"
#include "TAVUTexture.h"
#include "TAVUTree.h"
#include "TAVUTreeNode.h"
#include "Words.h"

#include <random>
#include <string>
#include <vector>

// Trees of 20-pixel rows under a 2-pixel inset: a tree 102 high shows four
// rows, from y 2, 22, 42 and 62. Images are 16 wide, the text follows 4
// pixels later, and each level indents by 10.
class TreeTest : public ControlTest {
protected:
    void SetUp() override {
        ControlTest::SetUp();
        g_UIManager.AddTemplate("scrollbar",
                                "<Template><UpButton/><DownButton/>"
                                "<Slider><Height>60</Height><Vertical>1</Vertical></Slider>"
                                "</Template>");
        g_UIManager.AddTemplate(
            "tree", "<Template><Font><Size>12</Size></Font><ItemHeight>20</ItemHeight>"
                    "<ImageSize>16</ImageSize><TextMargin>4</TextMargin>"
                    "<IndentPerDepth>10</IndentPerDepth><ImageTexture Filename='#leaf'/>"
                    "<ImageTextureCollapsible Filename='#open'/>"
                    "<ImageTextureCollapsed Filename='#shut'/>"
                    "<SelectionTextColor>ff000001</SelectionTextColor>"
                    "<ScrollBar><Width>16</Width><XPosition Type='far'>16</XPosition></ScrollBar>"
                    "</Template>");
    }

    TAVUTree* Tree(const std::string& keys = "") {
        std::string xml = "<t><Width>200</Width><Height>102</Height>" + keys + "</t>";
        return Load<TAVUTree>("tree", "T", xml.c_str());
    }

    // Builds nodes from words: a word adds a node, "(" goes into the node
    // just added and ")" comes out again.
    static void Build(TAVUTreeNode* at, const std::string& words) {
        TAVUTreeNode* last = nullptr;
        size_t start = 0;
        while (start < words.size()) {
            size_t end = words.find_first_of(" ()", start);
            if (end == std::string::npos) end = words.size();
            if (end > start) last = Add(at, words.substr(start, end - start));
            if (end < words.size() && words[end] == '(') at = last;
            if (end < words.size() && words[end] == ')') at = at->Parent;
            start = end + 1;
        }
    }
    static TAVUTreeNode* Add(TAVUTreeNode* parent, std::string text) {
        char* argv[] = {text.data()};
        return parent->AddChild(1, argv);
    }
    // The rows as a walk shows them, each after its depth.
    static std::string Walk(TAVUTree* tree) {
        std::string rows;
        for (TAVUTreeNode* node = tree->Root->FirstChild; node;
             node = TAVUTreeNode::NextRow(node, false)) {
            int depth = 0;
            for (TAVUTreeNode* up = node->Parent; up != tree->Root; up = up->Parent)
                ++depth;
            rows.append(rows.empty() ? "" : " ").append(std::to_string(depth) + node->Text);
        }
        return rows;
    }
    static TAVUTreeNode* Find(TAVUTree* tree, const char* text) {
        for (TAVUTreeNode* node : tree->Nodes)
            if (std::string(node->Text) == text) return node;
        return nullptr;
    }
    // "text x,y" of each row drawn, then the textures drawn.
    std::string Drawn() {
        RenderFrame();
        std::string drawn;
        for (const auto& text : Host.Texts)
            drawn += text.Value + " " + std::to_string(text.Rect.left) + "," +
                     std::to_string(text.Rect.top) + (text.Color == 0xff000001 ? "*" : "") + " ";
        for (const std::string& file : DrawnTextures())
            drawn += file + " ";
        return drawn;
    }
    void Press(TAVUTree* tree, int x, int y) {
        Point = {x, y};
        TAVUElementWatch watch(tree);
        tree->OnLMouseDown(Point);
        if (watch.Alive()) tree->OnLMouseUp(Point);
    }
};

TEST_F(TreeTest, KeysLoadAndAFontAndAScrollBarAreNeeded) {
    const struct {
        const char* Keys;
        const char* Expected; // loaded, indent, image, border, margin, height, colours
    } rows[] = {
        {"", "1 10 16 0 4 20 0x00000000 0xff000001 0x00000000"},
        {"<ImageBorder>3</ImageBorder><TextMargin>7</TextMargin>"
         "<SelectionBackgroundColor>ff102030</SelectionBackgroundColor>",
         "1 10 16 3 7 20 0xff102030 0xff000001 0x00000000"},
        {"<Font><Color>ff00ff00</Color></Font>", "1 10 16 0 4 20 0x00000000 0xff000001 0xff00ff00"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Keys);
        TAVUTree* tree = Tree(row.Keys);
        ASSERT_NE(tree, nullptr);
        EXPECT_EQ(Words(1, tree->IndentPerDepth, tree->ImageSize, tree->ImageBorder,
                        tree->TextMargin, tree->ItemHeight, Hex(tree->SelectionBackgroundColor),
                        Hex(tree->SelectionTextColor), Hex(tree->DefaultTextColor)),
                  row.Expected);
        ASSERT_TRUE(tree->Root && tree->ScrollBar);
        EXPECT_EQ(Words(tree->Nodes.size(), tree->Root->Text, tree->ScrollBar->Range), "1  1");
        Parent->DeleteChild(tree);
    }
    // The keys' own defaults replace the constructor's 16 and 5.
    g_UIManager.AddTemplate("bare", "<Template><Font/><ScrollBar/></Template>");
    auto* bare = Load<TAVUTree>("tree", "B", "<t/>", "bare");
    ASSERT_NE(bare, nullptr);
    EXPECT_EQ(Words(bare->ImageSize, bare->TextMargin, bare->ItemHeight), "0 0 0");
    g_UIManager.AddTemplate("nobar", "<Template><Font/></Template>");
    EXPECT_EQ(Load<TAVUTree>("tree", "N", "<t/>", "nobar"), nullptr);
}

// The count of rows kept by the nodes must always equal what a walk counts,
// whatever is added, moved, opened, closed or removed.
TEST_F(TreeTest, TheKeptRowCountMatchesTheWalkThroughEveryChange) {
    TAVUTree* tree = Tree();
    ASSERT_NE(tree, nullptr);
    std::mt19937 random(7);
    std::vector<TAVUTreeNode*> nodes{tree->Root};
    for (int step = 0; step < 600; ++step) {
        TAVUTreeNode* node = nodes[random() % nodes.size()];
        std::string text = "n" + std::to_string(step);
        char* argv[] = {text.data()};
        TAVUTreeNode* made = nullptr;
        switch (random() % 8) {
        case 0:
        case 1:
            made = node->AddChild(1, argv);
            break;
        case 2:
            made = node->InsertSiblingBefore(1, argv);
            break;
        case 3:
            made = node->InsertSiblingAfter(1, argv);
            break;
        case 4:
            node->ToggleExpand();
            break;
        case 5:
            if (random() % 3 == 0) node->RemoveChildren();
            break;
        default:
            if (!node->IsRoot() && random() % 3 == 0) node->Remove();
            break;
        }
        if (made) nodes.push_back(made);
        std::erase_if(nodes,
                      [&](TAVUTreeNode* n) { return !tree->GetNode(uint64_t(uintptr_t(n))); });
        size_t walked = 0;
        for (TAVUTreeNode* row = tree->Root->FirstChild; row;
             row = TAVUTreeNode::NextRow(row, false))
            ++walked;
        ASSERT_EQ(tree->VisibleRowCount(), walked) << "step " << step;
    }
    EXPECT_EQ(tree->Nodes.size(), nodes.size());
}

TEST_F(TreeTest, RowsDrawIndentedWithTheImageOfTheirStateAndScroll) {
    TAVUTree* tree = Tree();
    ASSERT_NE(tree, nullptr);
    Build(tree->Root, "A(a1 a2(x)) B");
    Find(tree, "a2")->Collapse();
    EXPECT_EQ(Walk(tree), "0A 1a1 1a2 0B");
    // Four rows fit: no scroll bar; open, leaf, closed and leaf images.
    EXPECT_EQ(Drawn(), "A 22,6 a1 32,26 a2 32,46 B 22,66 #open #leaf #shut #leaf ");
    EXPECT_FALSE(tree->ScrollBar->Visible);

    Find(tree, "a2")->Expand(); // five rows: one to scroll
    tree->Select(Find(tree, "x"));
    EXPECT_EQ(Drawn(), "A 22,6 a1 32,26 a2 32,46 x 42,66* #open #leaf #open #leaf ");
    EXPECT_EQ(Words(tree->ScrollBar->Visible, tree->ScrollBar->Range, tree->ScrollOffset), "1 1 0");
    tree->ScrollBar->SetValue(0); // the bottom
    EXPECT_EQ(Drawn(), "a1 32,6 a2 32,26 x 42,46* B 22,66 #leaf #open #leaf #leaf ");
    Find(tree, "A")->Collapse(); // two rows: the offset goes back to 0
    EXPECT_EQ(Drawn(), "A 22,6 B 22,26 #shut #leaf ");
    EXPECT_EQ(Words(tree->ScrollBar->Visible, tree->ScrollOffset), "0 0");
}

// Each script below runs from the tree's own events and takes away what the
// event is about; nothing may be touched afterwards (ASan watches).
TEST_F(TreeTest, ScriptsThatRemoveNodesOrTheTreeFromItsEvents) {
    const struct {
        const char* Name;
        std::function<void(TAVUTree*)> Act;
        const char* Expected; // alive, selection, nodes, scripts run
    } rows[] = {
        {"OnSelect removes the node", [](TAVUTree* t) { t->Selection->Remove(); },
         "1 - 3 sel desel"},
        {"OnSelect deletes the tree", [](TAVUTree* t) { t->Parent->DeleteChild(t); }, "0 sel"},
        {"OnSelect removes the parent", [](TAVUTree* t) { t->Selection->Parent->Remove(); },
         "1 - 2 sel desel"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        TAVUTree* tree = Tree("<OnSelect>sel</OnSelect><OnDeSelect>desel</OnDeSelect>");
        ASSERT_NE(tree, nullptr);
        Build(tree->Root, "A(a1) B");
        RenderFrame();
        bool acted = false;
        Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
            if (!acted && run.Source.find("sel") != std::string::npos) {
                acted = true;
                row.Act(tree);
            }
            return 0;
        };
        Host.ClearRecords();
        TAVUElementWatch watch(tree);
        Press(tree, 60, 30);
        std::string ran;
        for (const std::string& body : Host.Ran())
            ran += " " + body;
        if (watch.Alive()) {
            EXPECT_EQ(Words(1, tree->Selection ? tree->Selection->Text : "-", tree->Nodes.size()) +
                          ran,
                      row.Expected);
            Parent->DeleteChild(tree);
        } else {
            EXPECT_EQ("0" + ran, row.Expected);
        }
        Host.OnExecuteAtom = nullptr;
    }
}

// Ten thousand levels: building, drawing, hit testing, removal and
// destruction all go by loops, not by a recursion as deep as the tree.
TEST_F(TreeTest, ATreeTenThousandDeepDrawsAndGoesAway) {
    TAVUTree* tree = Tree("<IndentPerDepth>0</IndentPerDepth>");
    ASSERT_NE(tree, nullptr);
    TAVUTreeNode* node = tree->Root;
    for (int depth = 0; depth < 10000; ++depth)
        node = Add(node, "d" + std::to_string(depth));
    EXPECT_EQ(tree->VisibleRowCount(), 10000u);
    RenderFrame(); // fits the scroll bar
    tree->ScrollBar->SetValue(0);
    EXPECT_EQ(Drawn(), "d9996 22,6 d9997 22,26 d9998 22,46 d9999 22,66 #open #open #open #leaf ");
    bool onImage = true;
    EXPECT_EQ(tree->NodeFromPoint(60, 70, onImage), node);
    Find(tree, "d5000")->Remove();
    EXPECT_EQ(tree->VisibleRowCount(), 5000u);
    Parent->DeleteChild(tree);
}

// The host decides which nodes a query holds for; the tree walks its register
// and frees the query whatever happens, also when the query's own script
// removes nodes or the tree.
TEST_F(TreeTest, QueriesFindTheFirstNodeTheyHoldForAndAlwaysFreeTheQuery) {
    const struct {
        const char* Name;
        bool Fails;
        std::function<bool(TAVUTree*, TAVUTreeNode*)> Holds;
        const char* Expected; // found, nodes left, frees
    } rows[] = {
        {"holds for b", false,
         [](TAVUTree*, TAVUTreeNode* n) { return std::string(n->Text) == "b"; }, "b 4 1"},
        {"holds for none", false, [](TAVUTree*, TAVUTreeNode*) { return false; }, "- 4 1"},
        {"does not compile", true, nullptr, "- 4 0"},
        {"removes every node", false,
         [](TAVUTree* t, TAVUTreeNode*) {
             t->Root->RemoveChildren();
             return false;
         },
         "- 1 1"},
        {"removes the node it holds for", false,
         [](TAVUTree*, TAVUTreeNode* n) {
             if (n->IsRoot()) return false;
             n->Remove();
             return true;
         },
         "- 1 1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Name);
        TAVUTree* tree = Tree();
        ASSERT_NE(tree, nullptr);
        Build(tree->Root, "a(b) c");
        Host.FailQueries = row.Fails;
        Host.QueryHolds = [&](_RXTypeVar* object) {
            return row.Holds(tree, static_cast<TAVUTreeNode*>(object->Value.Pointer));
        };
        Host.ClearRecords();
        TAVUTreeNode* found = tree->FindNode("Text == b");
        EXPECT_EQ(Words(found ? found->Text : "-", tree->Nodes.size(), Host.Count("FreeQuery")),
                  row.Expected);
        Parent->DeleteChild(tree);
    }
    Host.QueryHolds = nullptr;
    Host.FailQueries = false;
    TAVUTree* tree = Tree();
    Build(tree->Root, "a b");
    Host.ClearRecords();
    Host.QueryHolds = [&](_RXTypeVar*) {
        Parent->DeleteChild(tree);
        return true;
    };
    EXPECT_EQ(tree->FindNode("x"), nullptr);
    EXPECT_EQ(Host.Count("FreeQuery"), 1u);
    Host.QueryHolds = nullptr;
}

// Sizes no interface should give: no division by zero, no overflow (UBSan
// watches), and what is drawn and hit follows the rules.
TEST_F(TreeTest, HostileSizesDrawAndHitWithoutFault) {
    const struct {
        const char* Keys;
        const char* Expected; // rows drawn, node hit at 60,30, scroll bar shown
    } rows[] = {
        {"<ItemHeight>0</ItemHeight>", "0 - 0"},
        {"<Height>-50</Height>", "4 a1 0"},               // 50 short of the parent's height
        {"<ItemHeight>4294967295</ItemHeight>", "0 A 1"}, // no whole row fits, the first is hit
        {"<IndentPerDepth>4000000000</IndentPerDepth><Border>2147483647</Border>", "4 - 1"},
        {"<Width>-9</Width><ImageSize>4294967295</ImageSize>", "4 a1 0"}, // all image zone
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.Keys);
        TAVUTree* tree = Tree(row.Keys);
        ASSERT_NE(tree, nullptr);
        Build(tree->Root, "A(a1 a2) B");
        RenderFrame();
        RenderFrame();
        bool onImage = false;
        TAVUTreeNode* hit = tree->NodeFromPoint(60, 30, onImage);
        EXPECT_EQ(Words(Host.Texts.size(), hit ? hit->Text : "-", tree->ScrollBar->Visible),
                  row.Expected);
        Press(tree, 60, 30);
        Parent->DeleteChild(tree);
    }
}
