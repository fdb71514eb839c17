// CEGUI's side of the comparison on ControlsInterface, under the same names
// as the toolkit's (ControlsBench.cpp): the same 5,000 controls as a
// TaharezLook layout, drawn by CEGUI's null renderer. Built only when CEGUI
// is installed.
#if defined(TAVU_BENCH_CEGUI)
#include "ControlsBench.h"
#include "ControlsInterface.h"

#include <CEGUI/CEGUI.h>
#include <CEGUI/RendererModules/Null/Renderer.h>
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <string>

namespace {
bool IgnoreEvent(const CEGUI::EventArgs&) {
    return true;
}

// The layout's event subscriptions go to the scripting module. The null one
// binds every event to one function and keeps nothing; the text one keeps
// the function's name with the subscription, as a script module does.
class BenchScriptModule : public CEGUI::ScriptModule {
public:
    using Subscriber = CEGUI::Event::Subscriber;
    void executeScriptFile(const CEGUI::String&, const CEGUI::String&) override {}
    int executeScriptGlobal(const CEGUI::String&) override { return 0; }
    bool executeScriptedEventHandler(const CEGUI::String&, const CEGUI::EventArgs&) override {
        return true;
    }
    void executeString(const CEGUI::String&) override {}
    CEGUI::Event::Connection subscribeEvent(CEGUI::EventSet* target, const CEGUI::String& name,
                                            const CEGUI::String& function) override {
        if (KeepText)
            return target->subscribeEvent(name, Subscriber(CEGUI::ScriptFunctor(function)));
        return target->subscribeEvent(name, Subscriber(&IgnoreEvent));
    }
    CEGUI::Event::Connection subscribeEvent(CEGUI::EventSet* target, const CEGUI::String& name,
                                            CEGUI::Event::Group group,
                                            const CEGUI::String& function) override {
        if (KeepText)
            return target->subscribeEvent(name, group, Subscriber(CEGUI::ScriptFunctor(function)));
        return target->subscribeEvent(name, group, Subscriber(&IgnoreEvent));
    }
    bool KeepText = false;
};

BenchScriptModule g_Scripts;
const float kPulse = 1.0f / 60.0f;

// The system, the TaharezLook scheme and the layout file, made once.
bool StartCegui() {
    static bool started = [] {
        CEGUI::NullRenderer& renderer = CEGUI::NullRenderer::create();
        renderer.setDisplaySize(CEGUI::Sizef(float(ControlsInterface::kDisplayWidth),
                                             float(ControlsInterface::kDisplayHeight)));
        const char* folder = getenv("TMPDIR");
        const std::string temporary = std::string(folder && *folder ? folder : "/tmp") + "/";
        CEGUI::System::create(renderer, nullptr, nullptr, nullptr, &g_Scripts, "",
                              temporary + "tavubench-cegui.log");
        auto* resources = static_cast<CEGUI::DefaultResourceProvider*>(
            CEGUI::System::getSingleton().getResourceProvider());
        const std::string data = TAVU_BENCH_CEGUI_DATA;
        const char* groups[][2] = {{"schemes", "/schemes/"},
                                   {"imagesets", "/imagesets/"},
                                   {"fonts", "/fonts/"},
                                   {"looknfeels", "/looknfeel/"},
                                   {"layouts", "/layouts/"}};
        for (auto& group : groups)
            resources->setResourceGroupDirectory(group[0], data + group[1]);
        resources->setResourceGroupDirectory("bench", temporary);
        CEGUI::ImageManager::setImagesetDefaultResourceGroup("imagesets");
        CEGUI::Font::setDefaultResourceGroup("fonts");
        CEGUI::Scheme::setDefaultResourceGroup("schemes");
        CEGUI::WidgetLookManager::setDefaultResourceGroup("looknfeels");
        CEGUI::WindowManager::setDefaultResourceGroup("layouts");
        CEGUI::SchemeManager::getSingleton().createFromFile("TaharezLook.scheme");
        CEGUI::System::getSingleton().getDefaultGUIContext().setDefaultFont("DejaVuSans-12");
        return !ControlsInterface::WriteTemporary("tavubench-controls.layout",
                                                  ControlsInterface::Cegui())
                    .empty();
    }();
    return started;
}

CEGUI::GUIContext& Context() {
    return CEGUI::System::getSingleton().getDefaultGUIContext();
}

// One frame as CEGUI's samples run it: the time pulse, then the drawing.
void Frame() {
    CEGUI::System::getSingleton().injectTimePulse(kPulse);
    Context().injectTimePulse(kPulse);
    CEGUI::System::getSingleton().renderAllGUIContexts();
}

void Unload() {
    CEGUI::Window* root = Context().getRootWindow();
    Context().setRootWindow(nullptr);
    if (root) CEGUI::WindowManager::getSingleton().destroyWindow(root);
    CEGUI::WindowManager::getSingleton().cleanDeadPool();
}

// CEGUI builds its geometry in the first frame after loading, so that frame
// belongs to the load.
CEGUI::Window* LoadAndDraw() {
    Unload();
    CEGUI::Window* root = CEGUI::WindowManager::getSingleton().loadLayoutFromFile(
        "tavubench-controls.layout", "bench");
    Context().setRootWindow(root);
    Frame();
    return root;
}

void LoadInterface(benchmark::State& state, bool keepText) {
    if (!StartCegui()) return state.SkipWithError("CEGUI did not start");
    g_Scripts.KeepText = keepText;
    for (auto _ : state) {
        benchmark::DoNotOptimize(LoadAndDraw());
        state.PauseTiming();
        Unload();
        state.ResumeTiming();
    }
    g_Scripts.KeepText = false;
}

void FrameControls(benchmark::State& state, bool changeCaption) {
    if (!StartCegui()) return state.SkipWithError("CEGUI did not start");
    CEGUI::Window* button = LoadAndDraw()->getChild("Window0/Item1");
    unsigned frame = 0;
    char caption[32];
    for (auto _ : state) {
        if (changeCaption) {
            snprintf(caption, sizeof(caption), "Item %u", frame++ % 1000);
            button->setText(caption);
        }
        Frame();
    }
}

struct Point {
    int x, y;
};

void HitSearch(benchmark::State& state) {
    if (!StartCegui()) return state.SkipWithError("CEGUI did not start");
    LoadAndDraw();
    auto points = ControlsBench::Scattered<Point>();
    for (auto _ : state)
        for (const Point& point : points)
            benchmark::DoNotOptimize(Context().injectMousePosition(float(point.x), float(point.y)));
    state.counters["ns_per_move"] =
        benchmark::Counter(double(points.size()), benchmark::Counter::kIsIterationInvariantRate |
                                                      benchmark::Counter::kInvert);
    int overControls = 0; // after the timing: that both sides find the same controls
    for (const Point& point : points) {
        Context().injectMousePosition(float(point.x), float(point.y));
        CEGUI::Window* over = Context().getWindowContainingMouse();
        if (over && over->getName().find("Item") == 0) ++overControls;
    }
    state.counters["moves_over_controls"] = overControls;
}

const bool kRegistered = [] {
    benchmark::RegisterBenchmark("BM_LoadInterface/cegui/nullhost", LoadInterface, false)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_LoadInterface/cegui/texthost", LoadInterface, true)
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark("BM_FrameControls/cegui/unchanged", FrameControls, false)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("BM_FrameControls/cegui/caption", FrameControls, true)
        ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("BM_HitSearch/cegui", HitSearch)->Unit(benchmark::kMicrosecond);
    return true;
}();
} // namespace
#endif
