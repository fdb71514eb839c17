// The toolkit's own cost of a frame and of the hit search, over trees of
// visible elements drawn through a host that does nothing.
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUFactory.h"
#include "TAVUScreen.h"
#include "TAVUTexture.h"

#include <benchmark/benchmark.h>

namespace {
// Half of them fill a rectangle, half draw a texture: the two common cases.
class BenchBox : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    ~BenchBox() override { TAVUTexture::Delete(Texture); }
    void Render() override {
        tagRECT rect{AbsolutePosition.x, AbsolutePosition.y, AbsolutePosition.x + Width,
                     AbsolutePosition.y + Height};
        if (Texture)
            TexturedRect(rect, Texture);
        else
            FillRect(rect, 0xC0336699u);
        TAVUElement::Render();
    }
    TAVUTexture* Texture = nullptr;
};
TAVUFactory<BenchBox> g_BenchBoxFactory("benchbox");

NullHost g_Host;

// A fresh screen with `count` boxes: panels of ten, each with nine children,
// spread over a 1920 by 1080 display.
void BuildTree(int count) {
    static bool initialised = false;
    if (!initialised) {
        F1(&g_Host);
        g_UIManager.Initialize();
        initialised = true;
    }
    g_UIManager.Reset();
    int made = 0;
    for (int panelIndex = 0; made < count; ++panelIndex) {
        auto* panel =
            static_cast<BenchBox*>(g_BenchBoxFactory.CreateUIElement(g_UIManager.Screen, "panel"));
        panel->X = (panelIndex * 37) % 1800;
        panel->Y = (panelIndex * 53) % 1000;
        panel->Width = 120;
        panel->Height = 80;
        ++made;
        for (int child = 0; child < 9 && made < count; ++child, ++made) {
            auto* box = static_cast<BenchBox*>(g_BenchBoxFactory.CreateUIElement(panel, "box"));
            box->X = (child % 3) * 40;
            box->Y = (child / 3) * 26;
            box->Width = 36;
            box->Height = 22;
            if (made % 2) box->Texture = TAVUTexture::New("button.png");
        }
    }
    g_UIManager.Render(); // textures acquired, positions known
}

void BM_Frame(benchmark::State& state) {
    int count = int(state.range(0));
    BuildTree(count);
    for (auto _ : state)
        g_UIManager.Render();
    state.SetItemsProcessed(state.iterations() * count);
    state.counters["ns_per_element"] = benchmark::Counter(
        double(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_Frame)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

void BM_MouseMove(benchmark::State& state) {
    int count = int(state.range(0));
    BuildTree(count);
    int step = 0;
    for (auto _ : state) {
        _Point2i point{(step * 97) % 1920, (step * 61) % 1080};
        ++step;
        benchmark::DoNotOptimize(g_UIManager.OnMouseMove(point));
    }
    state.SetItemsProcessed(state.iterations() * count);
}
BENCHMARK(BM_MouseMove)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
} // namespace
