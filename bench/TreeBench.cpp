// Trees: a frame of a big tree with every node open, opening every node of
// a closed one, and a query over all of them. The host answers everything
// at once (a query holds for no node, so every node is asked), so the
// figures are the toolkit's own cost.
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUScreen.h"
#include "TAVUScrollBar.h"
#include "TAVUTree.h"
#include "TAVUTreeNode.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <deque>
#include <string>

namespace {
// Counts the rows drawn and the nodes a query is asked about.
class TreeHost : public NullHost {
public:
    size_t DrawText(unsigned, const char*, tagRECT*, unsigned, unsigned) override {
        ++Rows;
        return 0;
    }
    unsigned CompileQuery(const char*) override { return 1; }
    bool EvaluateQuery(unsigned, _RXTypeVar*, bool* result) override {
        ++Asked;
        *result = false;
        return true;
    }
    size_t Rows = 0;
    size_t Asked = 0;
};

TreeHost g_TreeHost;

// Rows of 10 pixels in 310: 31 fit, and 30 are drawn.
const char kTree[] = "<tree><Width>300</Width><Height>312</Height><Font><Size>8</Size></Font>"
                     "<ItemHeight>10</ItemHeight><ImageSize>8</ImageSize>"
                     "<IndentPerDepth>12</IndentPerDepth>"
                     "<ScrollBar><Width>16</Width><Slider><Height>300</Height>"
                     "<Vertical>1</Vertical></Slider></ScrollBar></tree>";

TAVUTree* MakeTree(XMLParser& document) {
    F1(&g_TreeHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
    document.ParseBuffer(kTree, strlen(kTree));
    return static_cast<TAVUTree*>(g_UIManager.LoadElement(g_UIManager.Screen, "tree", "Tree",
                                                          document.Root->FirstChild, nullptr));
}

// A file system's shape: every node holds ten, level by level, until there
// are count nodes (1,000 nodes are four levels deep, 100,000 six).
void Fill(TAVUTree* tree, unsigned count) {
    std::deque<TAVUTreeNode*> open{tree->Root};
    for (unsigned made = 0; made < count;) {
        TAVUTreeNode* parent = open.front();
        open.pop_front();
        for (unsigned child = 0; child < 10 && made < count; ++child, ++made) {
            std::string text = "node " + std::to_string(made);
            char* argv[] = {text.data()};
            open.push_back(parent->AddChild(1, argv));
        }
    }
}

void SetAllExpanded(TAVUTree* tree, bool expanded) {
    for (TAVUTreeNode* node = tree->Root->FirstChild; node;
         node = TAVUTreeNode::NextRow(node, true))
        expanded ? node->Expand() : node->Collapse();
}

// Scrolled to the middle; the same frame again and again.
void BM_TreeFrame(benchmark::State& state) {
    XMLParser document;
    TAVUTree* tree = MakeTree(document);
    Fill(tree, unsigned(state.range(0)));
    g_UIManager.Render(); // fits the scroll bar
    tree->ScrollBar->SetValue(tree->ScrollBar->Range / 2);
    g_UIManager.Render();
    g_TreeHost.Rows = 0;
    for (auto _ : state)
        g_UIManager.Render();
    state.counters["rows_per_frame"] = double(g_TreeHost.Rows) / double(state.iterations());
    g_UIManager.Reset();
}

// A frame after each step of the scroll bar: the first row shown is found
// afresh every time, stepping over whole subtrees.
void BM_TreeScrollFrame(benchmark::State& state) {
    XMLParser document;
    TAVUTree* tree = MakeTree(document);
    Fill(tree, unsigned(state.range(0)));
    g_UIManager.Render();
    unsigned range = tree->ScrollBar->Range;
    unsigned value = 0;
    for (auto _ : state) {
        value = (value + 7919) % (range + 1);
        tree->ScrollBar->SetValue(value);
        g_UIManager.Render();
    }
    g_UIManager.Reset();
}

// Opens every node of a closed tree of 100,000; closing them again is not
// timed.
void BM_TreeExpandAll(benchmark::State& state) {
    XMLParser document;
    TAVUTree* tree = MakeTree(document);
    Fill(tree, unsigned(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        SetAllExpanded(tree, false);
        state.ResumeTiming();
        SetAllExpanded(tree, true);
        benchmark::DoNotOptimize(tree->VisibleRowCount());
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * state.range(0));
    g_UIManager.Reset();
}

void BM_TreeQuery(benchmark::State& state) {
    XMLParser document;
    TAVUTree* tree = MakeTree(document);
    Fill(tree, unsigned(state.range(0)));
    g_TreeHost.Asked = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(tree->FindNode("Text == nothing"));
    state.counters["asked"] = double(g_TreeHost.Asked) / double(state.iterations());
    state.SetItemsProcessed(int64_t(state.iterations()) * state.range(0));
    g_UIManager.Reset();
}
} // namespace

BENCHMARK(BM_TreeFrame)->Arg(1000)->Arg(100000);
BENCHMARK(BM_TreeScrollFrame)->Arg(1000)->Arg(100000);
BENCHMARK(BM_TreeExpandAll)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TreeQuery)->Arg(100000)->Unit(benchmark::kMillisecond);
