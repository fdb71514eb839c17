// The text editor: typing into the middle of a large text, a frame of it,
// and setting it. Typing must cost the caret's line and a frame the visible
// lines, whatever the whole text holds: each runs on a text of 1 MB and on
// one of 64 KB, which should cost the same. Setting the text is the one
// that grows with it.
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUScreen.h"
#include "TAVUTextEdit.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>

namespace {
FixedPitchHost g_EditHost;

// 40 rows of the 12-pixel font (a row is 14 pixels), 80 columns.
TAVUTextEdit* MakeEdit() {
    F1(&g_EditHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
    XMLNode* node = g_UIManager.AddTemplate(
        "benchedit", "<Template><Width>582</Width><Height>567</Height><BackgroundColor>FF000000"
                     "</BackgroundColor><VerticalScrollBar/></Template>");
    auto* edit = static_cast<TAVUTextEdit*>(
        g_UIManager.LoadElement(g_UIManager.Screen, "textedit", "Edit", node, nullptr));
    g_UIManager.SetFocusElement(edit);
    return edit;
}

// Lines of 63 bytes and a line feed, as many as make the size.
std::string Text(size_t bytes) {
    std::string text;
    text.reserve(bytes);
    for (size_t line = 0; text.size() + 64 <= bytes; ++line) {
        std::string head = "line " + std::to_string(line) + " ";
        text += head + std::string(63 - head.size(), 'x') + "\n";
    }
    return text;
}

// The caret in the middle of the middle line, and the view around it.
void ToMiddle(TAVUTextEdit* edit) {
    g_UIManager.Render(); // the rows that fit
    edit->HandleDown(edit->LineCount / 2);
    for (int i = 0; i < 32; ++i)
        edit->HandleRight();
    g_UIManager.Render();
}

// A character typed through the keyboard path and taken out again with
// Backspace, so that the text keeps its size from one round to the next.
void BM_TextEditType(benchmark::State& state) {
    TAVUTextEdit* edit = MakeEdit();
    edit->SetText(Text(size_t(state.range(0))).c_str());
    ToMiddle(edit);
    for (auto _ : state) {
        edit->OnKeyDown('X');
        edit->OnKeyDown(8);
    }
    state.counters["lines"] = double(edit->LineCount);
    g_UIManager.Reset();
}
BENCHMARK(BM_TextEditType)->Arg(1 << 20)->Arg(1 << 16)->Unit(benchmark::kNanosecond);

// One frame of the editor with the caret in the middle of the text.
void BM_TextEditFrame(benchmark::State& state) {
    TAVUTextEdit* edit = MakeEdit();
    edit->SetText(Text(size_t(state.range(0))).c_str());
    ToMiddle(edit);
    g_EditHost.Drawn = 0;
    for (auto _ : state)
        g_UIManager.Render();
    state.counters["lines_per_frame"] = double(g_EditHost.Drawn) / double(state.iterations());
    g_UIManager.Reset();
}
BENCHMARK(BM_TextEditFrame)->Arg(1 << 20)->Arg(1 << 16)->Unit(benchmark::kMicrosecond);

// Setting the whole text, which replaces every line.
void BM_TextEditLoad(benchmark::State& state) {
    TAVUTextEdit* edit = MakeEdit();
    std::string text = Text(size_t(state.range(0)));
    for (auto _ : state)
        edit->SetText(text.c_str());
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(text.size()));
    g_UIManager.Reset();
}
BENCHMARK(BM_TextEditLoad)->Arg(1 << 20)->Arg(1 << 16)->Unit(benchmark::kMillisecond);
} // namespace
