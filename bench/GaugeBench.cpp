// Variable gauges: a frame of gauges that each resolve their data sequence
// (to the same number at every frame, so the value stands still) and draw a
// segmented fill. A running frame must allocate nothing per gauge.
#include "AllocationCount.h"
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUScreen.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

namespace {
// Resolves every sequence to the same number at once and counts the
// textured rectangles it is asked to draw.
class GaugeHost : public NullHost {
public:
    bool RetrieveProcessedText(unsigned, char* buffer, size_t size) override {
        static const char kAnswer[] = "62.5";
        if (size < sizeof(kAnswer)) return false;
        memcpy(buffer, kAnswer, sizeof(kAnswer));
        return true;
    }
    bool TexturedRect(TAVUDrawRecord*) override {
        ++Drawn;
        return true;
    }
    size_t Drawn = 0;
};

GaugeHost g_GaugeHost;

const char kGauge[] = "<variablegauge><Width>104</Width><Height>14</Height><Border>2</Border>"
                      "<BackgroundColor>FF101820</BackgroundColor><Range>100</Range>"
                      "<Data>${Mana}</Data><Filler><Width>100%</Width><Height>100%</Height>"
                      "<Repeat>4</Repeat><Texture Filename=\"#bar\"/></Filler></variablegauge>";

void BM_VariableGaugeFrame(benchmark::State& state) {
    const int count = 1000;
    F1(&g_GaugeHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
    XMLParser document;
    document.ParseBuffer(kGauge, strlen(kGauge));
    for (int i = 0; i < count; ++i) {
        std::string name = "Gauge" + std::to_string(i);
        TAVUElement* filler = g_UIManager.LoadElement(
            g_UIManager.Screen, "variablegauge", name.c_str(), document.Root->FirstChild, nullptr);
        filler->Parent->X = (i * 37) % 1800;
        filler->Parent->Y = (i * 53) % 1060;
    }
    g_UIManager.Render(); // textures acquired, values taken
    AllocationCount::Start();
    g_GaugeHost.Drawn = 0;
    for (auto _ : state)
        g_UIManager.Render();
    size_t allocations = AllocationCount::Stop();
    // Tells that every gauge really drew its fill: three pieces and the last again.
    state.counters["draws_per_frame"] = double(g_GaugeHost.Drawn) / double(state.iterations());
    if (AllocationCount::Counted)
        state.counters["allocs_per_frame"] = double(allocations) / double(state.iterations());
    state.counters["ns_per_gauge"] = benchmark::Counter(
        double(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    g_UIManager.Reset();
}
} // namespace

BENCHMARK(BM_VariableGaugeFrame);
