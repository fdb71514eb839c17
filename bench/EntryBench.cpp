// Text entries: the frame of a focused entry whose long text keeps the caret
// in view, which measures the shown part at every frame, and typing in front
// of a long text, each byte moving the text behind it.
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUElementFactory.h"
#include "TAVUScreen.h"
#include "TAVUTextEntry.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

namespace {
FixedPitchHost g_EntryHost;

// A focused 300-pixel entry of the largest buffer, on this program's host.
TAVUTextEntry* MakeEntry() {
    F1(&g_EntryHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
    auto* entry = static_cast<TAVUTextEntry*>(
        g_UIManager.FindFactory("textentry")->CreateUIElement(g_UIManager.Screen, "e"));
    _CreateTextEntry create;
    create.Width = 300;
    create.Height = 20;
    create.MaxLength = TAVUTextEntry::LargestMaxLength;
    entry->Create(create, nullptr);
    g_UIManager.SetFocusElement(entry);
    return entry;
}

// A full 4095-byte text with the caret at state.range(0): the scroll settles
// after two frames, and each frame then measures the text from the shown
// start and finds how much of it fits.
void BM_EntryFrame(benchmark::State& state) {
    TAVUTextEntry* entry = MakeEntry();
    std::string text(TAVUTextEntry::LargestMaxLength - 1, 'w');
    entry->SetText(text.data());
    entry->Caret = size_t(state.range(0));
    g_UIManager.Render();
    g_UIManager.Render();
    g_EntryHost.Drawn = 0;
    for (auto _ : state)
        g_UIManager.Render();
    // Tells that the entry was really drawn: its text on each side of the caret.
    state.counters["texts_per_frame"] = double(g_EntryHost.Drawn) / double(state.iterations());
    g_UIManager.Reset();
}
BENCHMARK(BM_EntryFrame)->Arg(2048)->Arg(4095)->Unit(benchmark::kMicrosecond);

// 2048 bytes typed in front of 2048 others, as a paste does: each byte tells
// the parent and moves the tail behind the caret, about 4 MB in all.
void BM_EntryTyping(benchmark::State& state) {
    TAVUTextEntry* entry = MakeEntry();
    std::string tail(TAVUTextEntry::LargestMaxLength / 2, 't');
    for (auto _ : state) {
        entry->SetText(tail.data());
        entry->Caret = 0;
        for (size_t i = 0; i < tail.size(); ++i)
            entry->InsertCharacter('p');
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(tail.size()));
    g_UIManager.Reset();
}
BENCHMARK(BM_EntryTyping)->Unit(benchmark::kMicrosecond);
} // namespace
