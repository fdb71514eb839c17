// Dragging a window by its title bar: a thousand pointer moves through the
// manager's input entry points while the left button holds the title bar of
// a window whose client holds 500 frames. A move places the window and snaps
// it; the children are not laid out again (their places are relative to the
// window), so the cost should not grow with them. The counter shows the heap
// allocations per move.
#include "AllocationCount.h"
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUScreen.h"
#include "TAVUWindow.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

namespace {
NullHost g_WindowHost;

const int kMoves = 1000;
const int kChildren = 500;

const char kWindow[] = "<window><X>100</X><Y>100</Y><Width>600</Width><Height>400</Height>"
                       "<BackgroundColor>FF202830</BackgroundColor><Border>2</Border>"
                       "<TitleBar><Width>100%</Width><Height>20</Height>"
                       "<BackgroundColor>FF405060</BackgroundColor></TitleBar>"
                       "<Client><Y>20</Y><Width>100%</Width><Height>r20</Height></Client>"
                       "</window>";
const char kChild[] = "<frame><Width>20</Width><Height>10</Height>"
                      "<BackgroundColor>FF808080</BackgroundColor></frame>";

// The window, its children placed in rows, drawn once and held by its title bar.
TAVUWindow* HoldWindow(XMLParser& window, XMLParser& child) {
    F1(&g_WindowHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
    window.ParseBuffer(kWindow, strlen(kWindow));
    child.ParseBuffer(kChild, strlen(kChild));
    TAVUElement* client = g_UIManager.LoadElement(g_UIManager.Screen, "window", "Big",
                                                  window.Root->FirstChild, nullptr);
    for (int i = 0; i < kChildren; ++i) {
        std::string name = "Cell" + std::to_string(i);
        TAVUElement* cell =
            g_UIManager.LoadElement(client, "frame", name.c_str(), child.Root->FirstChild, nullptr);
        cell->X = (i % 25) * 24;
        cell->Y = (i / 25) * 14;
    }
    g_UIManager.Render(); // positions known
    _Point2i grip{300, 110};
    g_UIManager.OnMouseMove(grip);
    g_UIManager.OnLMouseDown();
    return static_cast<TAVUWindow*>(client->Parent);
}

void BM_WindowDrag(benchmark::State& state) {
    XMLParser window, child;
    TAVUWindow* held = HoldWindow(window, child);
    AllocationCount::Start();
    unsigned moved = 0;
    for (auto _ : state) {
        for (int i = 0; i < kMoves; ++i) {
            // Over the whole display and past its edges, where the title bar
            // keeps the window on the screen: a new place at every move.
            _Point2i point{-200 + (i * 7919) % 2400, -100 + (i * 104729) % 1300};
            int before = held->X;
            g_UIManager.OnMouseMove(point);
            moved += held->X != before;
        }
    }
    size_t allocations = AllocationCount::Stop();
    if (AllocationCount::Counted)
        state.counters["allocs_per_move"] =
            double(allocations) / double(state.iterations() * kMoves);
    // Tells that the moves really dragged the window.
    state.counters["moved_per_move"] = double(moved) / double(state.iterations() * kMoves);
    state.counters["ns_per_move"] =
        benchmark::Counter(double(kMoves), benchmark::Counter::kIsIterationInvariantRate |
                                               benchmark::Counter::kInvert);
    g_UIManager.OnLMouseUp();
    g_UIManager.Reset();
}
BENCHMARK(BM_WindowDrag)->Unit(benchmark::kMicrosecond);
} // namespace
