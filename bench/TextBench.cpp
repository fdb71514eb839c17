// Text elements: a frame of live text (each element's text holds a data
// sequence, resolved by the host at every frame) and the word wrap of a long
// paragraph. Live text must stay cheap and allocate nothing once running, so
// the frame benchmark also counts heap allocations per frame.
#include "AllocationCounter.h"
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUElementFactory.h"
#include "TAVUScreen.h"
#include "TAVUText.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

namespace {
// Resolves every data sequence to the same short status line, and measures
// 7 pixels a byte, as a host with a cached fixed advance would.
class LiveTextHost : public NullHost {
public:
    bool ParseDataSequences(const char*, char* output, size_t size) override {
        static const char kAnswer[] = "Stamina 42 / 100";
        size_t length = sizeof(kAnswer) < size ? sizeof(kAnswer) : size;
        memcpy(output, kAnswer, length);
        output[length - 1] = 0;
        return true;
    }
    void MeasureText(unsigned, const char* text, size_t* width) override {
        *width = strlen(text) * 7;
    }
    size_t DrawText(unsigned, const char* text, tagRECT*, unsigned, unsigned) override {
        ++Drawn;
        return strlen(text) * 7;
    }
    size_t Drawn = 0;
};

LiveTextHost g_LiveTextHost;

// The manager on this program's host, with an empty screen. Other benchmarks
// of the program may have initialised it already on theirs.
void UseLiveTextHost() {
    F1(&g_LiveTextHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
}

TAVUText* MakeText(TAVUElement* parent, int x, int y, int width, int height, const char* text) {
    auto* element =
        static_cast<TAVUText*>(g_UIManager.FindFactory("text")->CreateUIElement(parent, "t"));
    element->X = x;
    element->Y = y;
    element->Width = width;
    element->Height = height;
    element->Font = TAVUFont::New(element, nullptr, 13, false, false);
    element->SetText(text);
    return element;
}

void BM_LiveText(benchmark::State& state) {
    int count = int(state.range(0));
    UseLiveTextHost();
    for (int i = 0; i < count; ++i)
        MakeText(g_UIManager.Screen, (i * 37) % 1800, (i * 53) % 1060, 120, 16, "Stamina ${Sp}");
    g_UIManager.Render(); // fonts acquired, positions known
#if TAVU_BENCH_COUNTS_ALLOCATIONS
    g_Allocations = 0;
    g_Counting = true;
#endif
    g_LiveTextHost.Drawn = 0;
    for (auto _ : state)
        g_UIManager.Render();
    // Tells that every element was really resolved and drawn.
    state.counters["draws_per_frame"] = double(g_LiveTextHost.Drawn) / double(state.iterations());
#if TAVU_BENCH_COUNTS_ALLOCATIONS
    g_Counting = false;
    state.counters["allocs_per_frame"] = double(g_Allocations) / double(state.iterations());
#endif
    state.counters["ns_per_element"] = benchmark::Counter(
        double(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    g_UIManager.Reset();
}
BENCHMARK(BM_LiveText)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

// A 4 KB paragraph of words, wrapped into a 300-pixel text element: the wrap
// works in a buffer of 2048 bytes, so the rest is cut, as for any long text.
void BM_WrapText(benchmark::State& state) {
    UseLiveTextHost();
    std::string paragraph;
    const char* words[] = {"lighthouse ", "engine ", "of ", "the ", "winter ", "harbour "};
    for (int i = 0; paragraph.size() < 4096; ++i)
        paragraph += words[i % 6];
    paragraph.resize(4096);
    TAVUText* text = MakeText(g_UIManager.Screen, 0, 0, 300, 600, "");
    char buffer[TAVUText::BufferSize];
    size_t wrapped = strlen(strncpy(buffer, paragraph.c_str(), sizeof(buffer) - 1));
    for (auto _ : state) {
        buffer[sizeof(buffer) - 1] = 0;
        strncpy(buffer, paragraph.c_str(), sizeof(buffer) - 1);
        benchmark::DoNotOptimize(text->Split(buffer));
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(wrapped));
    state.counters["ns_per_byte"] =
        benchmark::Counter(double(wrapped), benchmark::Counter::kIsIterationInvariantRate |
                                                benchmark::Counter::kInvert);
    g_UIManager.Reset();
}
BENCHMARK(BM_WrapText)->Unit(benchmark::kMicrosecond);
} // namespace
