// Maps: a frame of a radar with the heading turning each frame. The map moves
// every blip it knows, and a blip out of range should cost only its test:
// BM_MapFrame keeps a tenth of its blips in range, BM_MapFrameOutOfRange none,
// so the second's time per blip is what an out-of-range blip costs.
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUMap.h"
#include "TAVUMapBlip.h"
#include "TAVUScreen.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <string>

namespace {
NullHost g_MapHost;

// Blips spread on a ring inside the radius (1 in `every`) or well outside it.
TAVUMap* MakeMap(int count, int every) {
    F1(&g_MapHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
    auto* map = static_cast<TAVUMap*>(g_UIManager.LoadElement(g_UIManager.Screen, "map", "Radar"));
    map->Width = map->Height = 400;
    map->Radial = true;
    map->Rotation = true;
    map->MapSizeX = map->MapSizeY = 1000.0f;
    for (int i = 0; i < count; ++i) {
        float angle = float(i) * 0.618f;
        float distance = every && i % every == 0 ? 100.0f + float(i % 800) : 5000.0f + float(i);
        _Point3f at{distance * cosf(angle), distance * sinf(angle), 0.0f};
        std::string name = "B" + std::to_string(i);
        map->AddBlip(name.c_str(), at, 8, nullptr, nullptr, nullptr);
        map->FindBlip(name.c_str())->BackgroundColor = 0xFF40FF40;
    }
    return map;
}

void RunFrames(benchmark::State& state, int every) {
    const int count = int(state.range(0));
    TAVUMap* map = MakeMap(count, every);
    float heading = 0.0f;
    for (auto _ : state) {
        heading += 0.01f;
        map->RotationAngle = heading;
        g_UIManager.Render();
    }
    state.counters["ns_per_blip"] = benchmark::Counter(
        double(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    g_UIManager.Reset();
}

void BM_MapFrame(benchmark::State& state) {
    RunFrames(state, 10);
}

void BM_MapFrameOutOfRange(benchmark::State& state) {
    RunFrames(state, 0);
}
} // namespace

BENCHMARK(BM_MapFrame)->Arg(100)->Arg(10000);
BENCHMARK(BM_MapFrameOutOfRange)->Arg(10000);
