// Dragging a slider: a thousand pointer moves through the manager's input
// entry points while the left button holds the handle, a third of them
// outside the slider, where the drag goes on. Most moves change the value,
// so they place the handle and tell the parent. A drag must allocate
// nothing per move; the counter shows it.
#include "AllocationCount.h"
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUScreen.h"
#include "TAVUSlider.h"

#include <benchmark/benchmark.h>

namespace {
NullHost g_SliderHost;

const int kMoves = 1000;

// A horizontal slider of 1,000 steps over 1,005 pixels, held by its handle.
TAVUSlider* HoldSlider() {
    F1(&g_SliderHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
    auto* slider =
        static_cast<TAVUSlider*>(g_UIManager.LoadElement(g_UIManager.Screen, "slider", "Fader"));
    slider->X = 100;
    slider->Y = 100;
    slider->Width = 1005;
    slider->Range = 1000;
    slider->RecalculateSize(true);
    g_UIManager.Render(); // positions known
    _Point2i grip{102, 108};
    g_UIManager.OnMouseMove(grip);
    g_UIManager.OnLMouseDown();
    return slider;
}

void BM_DragSlider(benchmark::State& state) {
    TAVUSlider* slider = HoldSlider();
    AllocationCount::Start();
    unsigned changes = 0;
    for (auto _ : state) {
        for (int i = 0; i < kMoves; ++i) {
            // From 60 pixels left of the slider to 360 right of it and back,
            // a new place at every move; the y wanders off the slider too.
            int x = 40 + (i * 7919) % 1430;
            _Point2i point{x, 108 + (i % 3) * 40};
            unsigned before = slider->Value;
            g_UIManager.OnMouseMove(point);
            changes += slider->Value != before;
        }
    }
    size_t allocations = AllocationCount::Stop();
    if (AllocationCount::Counted)
        state.counters["allocs_per_move"] =
            double(allocations) / double(state.iterations() * kMoves);
    // Tells that the moves really dragged the handle.
    state.counters["changes_per_move"] = double(changes) / double(state.iterations() * kMoves);
    state.counters["ns_per_move"] =
        benchmark::Counter(double(kMoves), benchmark::Counter::kIsIterationInvariantRate |
                                               benchmark::Counter::kInvert);
    g_UIManager.OnLMouseUp();
    g_UIManager.Reset();
}
BENCHMARK(BM_DragSlider)->Unit(benchmark::kMicrosecond);
} // namespace
