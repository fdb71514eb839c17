// The console: appending lines to its ring, and a frame of a full console
// scrolled back to the middle. Appending must cost one free and one copy a
// line whatever the ring holds, and a frame must cost the visible lines,
// not the ring: BM_ConsoleFrame runs on a ring of 5,000 lines and on one of
// a tenth of that, which should cost the same.
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUConsole.h"
#include "TAVUScreen.h"
#include "TAVUScrollBar.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {
// Measures 7 pixels a byte, as a host with a cached fixed advance would, and
// counts the lines drawn.
class ConsoleHost : public NullHost {
public:
    void MeasureText(unsigned, const char* text, size_t* width) override {
        *width = strlen(text) * 7;
    }
    size_t DrawText(unsigned, const char* text, tagRECT*, unsigned, unsigned) override {
        ++Drawn;
        return strlen(text) * 7;
    }
    size_t Drawn = 0;
};

ConsoleHost g_ConsoleHost;

// A console of 30 lines of 82 columns on an empty screen, with a ring of the
// given size.
TAVUConsole* MakeConsole(int capacity) {
    F1(&g_ConsoleHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
    char xml[256];
    snprintf(xml, sizeof(xml),
             "<Template><Width>590</Width><Height>400</Height><BackgroundColor>FF000000"
             "</BackgroundColor><BackBufferSize>%d</BackBufferSize><ScrollBar/></Template>",
             capacity);
    // A template node reads as an element node does.
    XMLNode* node = g_UIManager.AddTemplate("benchconsole", xml);
    return static_cast<TAVUConsole*>(
        g_UIManager.LoadElement(g_UIManager.Screen, "console", "Console", node, nullptr));
}

std::string Line(int n) {
    char head[32];
    int length = snprintf(head, sizeof(head), "line %d ", n);
    return std::string(head, size_t(length)) + std::string(80 - size_t(length), 'x');
}

// 100,000 lines of 80 bytes into the console's default ring of 500 lines,
// through Print and its wrap, as host output arrives.
void BM_ConsoleAppend(benchmark::State& state) {
    TAVUConsole* console = MakeConsole(500);
    const int kLines = 100000;
    std::string lines[16];
    for (int i = 0; i < 16; ++i)
        lines[i] = Line(i);
    for (auto _ : state)
        for (int i = 0; i < kLines; ++i)
            console->Print(lines[i & 15].c_str());
    state.counters["ns_per_line"] =
        benchmark::Counter(double(kLines), benchmark::Counter::kIsIterationInvariantRate |
                                               benchmark::Counter::kInvert);
    g_UIManager.Reset();
}
BENCHMARK(BM_ConsoleAppend)->Unit(benchmark::kMillisecond);

// One frame of a full console scrolled to the middle of its ring.
void BM_ConsoleFrame(benchmark::State& state) {
    int capacity = int(state.range(0));
    TAVUConsole* console = MakeConsole(capacity);
    for (int i = 0; i < capacity; ++i)
        console->Print(Line(i).c_str());
    console->OnNotify(console->ScrollBar, TAVU_NOTIFY_VALUE_CHANGED, size_t(capacity / 2));
    g_UIManager.Render();
    g_ConsoleHost.Drawn = 0;
    for (auto _ : state)
        g_UIManager.Render();
    state.counters["lines_per_frame"] = double(g_ConsoleHost.Drawn) / double(state.iterations());
    state.counters["ns_per_visible_line"] = benchmark::Counter(
        double(console->VisibleLines),
        benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    g_UIManager.Reset();
}
BENCHMARK(BM_ConsoleFrame)->Arg(5000)->Arg(500)->Unit(benchmark::kMicrosecond);
} // namespace
