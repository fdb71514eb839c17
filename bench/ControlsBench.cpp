// The toolkit's side of the comparison with CEGUI on one interface of 5,000
// controls (ControlsInterface): loading it until the first frame is drawn,
// a frame, and the hit search of a pointer move. CeguiBench.cpp measures the
// same three on CEGUI under the same names.
#include "CUIManager.h"
#include "ControlsBench.h"
#include "ControlsInterface.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUButton.h"
#include "TAVUControlHelpers.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <string>
#include <vector>

namespace {
// Finds the generated file wherever it was written; draws nothing, and
// compiles no event script (every atom is the same handle).
class InterfaceHost : public FixedPitchHost {
public:
    bool FindInterfaceFile(const char* file, char* path) override {
        snprintf(path, TAVU_INTERFACE_PATH_BUFFER, "%s", file);
        return true;
    }
    // Captions come back from the host at every frame: keep them as given.
    unsigned PreParseText(const char* text, bool) override {
        if (Free.empty()) {
            Texts.emplace_back(text ? text : "");
            return unsigned(Texts.size());
        }
        unsigned handle = Free.back();
        Free.pop_back();
        Texts[handle - 1] = text ? text : "";
        return handle;
    }
    bool RetrieveProcessedText(unsigned handle, char* buffer, size_t size) override {
        if (!handle || handle > Texts.size() || !size) return false;
        const std::string& text = Texts[handle - 1];
        size_t length = text.size() < size ? text.size() : size - 1;
        memcpy(buffer, text.data(), length);
        buffer[length] = 0;
        return true;
    }
    void FreePreParsed(unsigned handle) override {
        if (!handle || handle > Texts.size()) return;
        std::string().swap(Texts[handle - 1]);
        Free.push_back(handle);
    }
    void Forget() {
        std::vector<std::string>().swap(Texts);
        std::vector<unsigned>().swap(Free);
    }
    std::vector<std::string> Texts;
    std::vector<unsigned> Free;
};

// Keeps every event script as text, as a host that compiles lazily would.
class TextEventsHost : public InterfaceHost {
public:
    unsigned CompileAtom(const char* text, size_t length) override {
        Atoms.emplace_back(text, length);
        return unsigned(Atoms.size());
    }
    void DeleteAtom(unsigned atom) override {
        if (atom && atom <= Atoms.size()) std::string().swap(Atoms[atom - 1]);
    }
    void Forget() {
        InterfaceHost::Forget();
        std::vector<std::string>().swap(Atoms);
    }
    std::vector<std::string> Atoms;
};

InterfaceHost g_NullEvents;
TextEventsHost g_TextEvents;

const std::string& InterfaceFile() {
    static const std::string path = [] {
        std::string written;
        return ControlsInterface::WriteTavukitFiles(written) ? written : std::string();
    }();
    return path;
}

void Use(HostInterface* host) {
    F1(host);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
}

// Loads the interface on an empty screen and draws its first frame.
bool LoadAndDraw() {
    g_UIManager.Reset();
    g_UIManager.ClearTemplates();
    if (!g_UIManager.LoadInterfaceXML(InterfaceFile().c_str(), false, nullptr)) return false;
    g_UIManager.Render();
    return true;
}

void LoadInterface(benchmark::State& state, HostInterface* host) {
    Use(host);
    if (InterfaceFile().empty()) return state.SkipWithError("cannot write the interface file");
    size_t elements = 0;
    for (auto _ : state) {
        if (!LoadAndDraw()) return state.SkipWithError("the interface did not load");
        state.PauseTiming();
        elements = g_UIManager.ElementsByName.size();
        g_UIManager.Reset(); // the deletion is not the load's
        g_NullEvents.Forget();
        g_TextEvents.Forget();
        state.ResumeTiming();
    }
    state.counters["elements"] = double(elements);
}

// A loaded interface: its controls, and the button whose caption changes.
TAVUButton* LoadedButton() {
    Use(&g_NullEvents);
    if (InterfaceFile().empty() || !LoadAndDraw()) return nullptr;
    return dynamic_cast<TAVUButton*>(g_UIManager.FindElement("Item1@Window0"));
}

void FrameControls(benchmark::State& state, bool changeCaption) {
    TAVUButton* button = LoadedButton();
    if (!button) return state.SkipWithError("the interface did not load");
    size_t drawnBefore = g_NullEvents.Drawn;
    char caption[32];
    unsigned frame = 0;
    for (auto _ : state) {
        if (changeCaption) {
            snprintf(caption, sizeof(caption), "Item %u", frame++ % 1000);
            button->Text.PreParse(caption);
        }
        g_UIManager.Render();
    }
    state.counters["texts_per_frame"] =
        double(g_NullEvents.Drawn - drawnBefore) / double(state.iterations());
    g_UIManager.Reset(); // while its host is still the one that holds its texts
}

void HitSearch(benchmark::State& state) {
    if (!LoadedButton()) return state.SkipWithError("the interface did not load");
    std::vector<_Point2i> points = ControlsBench::Scattered<_Point2i>();
    for (auto _ : state)
        for (_Point2i& point : points)
            benchmark::DoNotOptimize(g_UIManager.OnMouseMove(point));
    state.counters["ns_per_move"] =
        benchmark::Counter(double(points.size()), benchmark::Counter::kIsIterationInvariantRate |
                                                      benchmark::Counter::kInvert);
    int overControls = 0; // after the timing: that both sides find the same controls
    for (_Point2i& point : points) {
        g_UIManager.OnMouseMove(point);
        TAVUElement* over = g_UIManager.FindElementByID(g_UIManager.MouseOverElementID);
        if (over && (over->IsTypeOf("button") || over->IsTypeOf("checkbox"))) ++overControls;
    }
    state.counters["moves_over_controls"] = overControls;
    g_UIManager.Reset();
}

// The host calls of one frame, kept as the toolkit made them: what any
// toolkit drawing this interface through this host must at least spend.
struct HostCall {
    enum Kind { Rect, Rects, Caption, Text } What;
    unsigned First = 0, Count = 0; // records in HostCallList::Records
    unsigned Handle = 0;           // the caption's pre-parsed text, or the font
    tagRECT Place{};
    unsigned Color = 0, Format = 0;
};

struct HostCallList {
    std::vector<HostCall> Calls;
    std::vector<TAVUDrawRecord> Records;
};

// Passes every call on to the benchmark host and keeps the drawing ones.
class FrameRecorder : public InterfaceHost {
public:
    explicit FrameRecorder(HostCallList& list) : List(list) {}
    bool TexturedRect(TAVUDrawRecord* record) override { return Keep(HostCall::Rect, 1, record); }
    bool TexturedRects(unsigned count, TAVUDrawRecord* records) override {
        return Keep(HostCall::Rects, count, records);
    }
    bool RetrieveProcessedText(unsigned handle, char* buffer, size_t size) override {
        List.Calls.push_back({HostCall::Caption, 0, 0, handle});
        return g_NullEvents.RetrieveProcessedText(handle, buffer, size);
    }
    size_t DrawText(unsigned font, const char* text, tagRECT* place, unsigned color,
                    unsigned format) override {
        List.Calls.push_back({HostCall::Text, 0, 0, font, *place, color, format});
        return g_NullEvents.DrawText(font, text, place, color, format);
    }

private:
    bool Keep(HostCall::Kind kind, unsigned count, const TAVUDrawRecord* records) {
        List.Calls.push_back({kind, unsigned(List.Records.size()), count});
        List.Records.insert(List.Records.end(), records, records + count);
        return true;
    }
    HostCallList& List;
};

// Replays the recorded frame with nothing of the toolkit between the calls:
// records copied to the stack (the host may write to them), each caption
// fetched and drawn, every call through the host's table as the toolkit
// makes it.
void ReplayHostCalls(const HostCallList& list) {
    TAVUDrawRecord records[9];
    char caption[TAVUControlHelpers::TextBufferSize];
    for (const HostCall& call : list.Calls) {
        switch (call.What) {
        case HostCall::Rect:
        case HostCall::Rects: {
            unsigned count = call.Count < 9 ? call.Count : 9;
            for (unsigned i = 0; i < count; ++i)
                records[i] = list.Records[call.First + i];
            if (call.What == HostCall::Rect)
                g_pHost->TexturedRect(records);
            else
                g_pHost->TexturedRects(count, records);
            break;
        }
        case HostCall::Caption:
            caption[0] = 0;
            g_pHost->RetrieveProcessedText(call.Handle, caption, sizeof(caption));
            break;
        case HostCall::Text: {
            tagRECT place = call.Place;
            g_pHost->DrawText(call.Handle, caption, &place, call.Color, call.Format);
            break;
        }
        }
    }
}

void FrameHostCalls(benchmark::State& state) {
    if (!LoadedButton()) return state.SkipWithError("the interface did not load");
    HostCallList calls;
    FrameRecorder recorder(calls);
    g_pHost = &recorder;
    g_UIManager.Render();
    g_pHost = &g_NullEvents;
    for (auto _ : state)
        ReplayHostCalls(calls);
    state.counters["calls_per_frame"] = double(calls.Calls.size());
    g_UIManager.Reset();
}

const bool kRegistered = [] {
    benchmark::RegisterBenchmark("BM_LoadInterface/tavukit/nullhost", LoadInterface, &g_NullEvents)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_LoadInterface/tavukit/texthost", LoadInterface, &g_TextEvents)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_FrameControls/tavukit/unchanged", FrameControls, false)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("BM_FrameControls/tavukit/caption", FrameControls, true)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("BM_HitSearch/tavukit", HitSearch)->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("BM_FrameHostCalls", FrameHostCalls)
        ->Unit(benchmark::kMicrosecond);
    return true;
}();
} // namespace
