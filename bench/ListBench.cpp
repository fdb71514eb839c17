// List boxes: a frame of a long list, adding rows to a list that does not
// sort, and sorting a long list by text and by a script atom. The host
// answers everything at once, so the figures are the toolkit's own cost.
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "RXTypeDefinition.h"
#include "TAVUListBox.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUScrollBar.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

namespace {
// Counts the rows drawn, and answers the sorting atom with the difference of
// the two IDs' last three digits.
class ListHost : public NullHost {
public:
    unsigned FindAtom(const char*) override { return 1; }
    bool ExecuteAtomForResult(unsigned, int argc, char* argv[], _RXTypeVar*, int, char* result,
                              size_t size) override {
        if (argc < 2) return false;
        long a = strtol(argv[0], nullptr, 10) % 1000;
        long b = strtol(argv[1], nullptr, 10) % 1000;
        snprintf(result, size, "%ld", a - b);
        return true;
    }
    size_t DrawText(unsigned, const char*, tagRECT*, unsigned, unsigned) override {
        ++Rows;
        return 0;
    }
    size_t Rows = 0;
};

ListHost g_ListHost;

// 20 rows of 12 pixels and a pitch of 13.
const char kList[] = "<listbox><Width>300</Width><Height>260</Height><Font><Size>12</Size>"
                     "<Color>FFFFFFFF</Color></Font><ScrollBar>none</ScrollBar></listbox>";

TAVUListBox* MakeList(XMLParser& document) {
    F1(&g_ListHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
    document.ParseBuffer(kList, strlen(kList));
    return static_cast<TAVUListBox*>(g_UIManager.LoadElement(g_UIManager.Screen, "listbox", "List",
                                                             document.Root->FirstChild, nullptr));
}

// Texts in an order that sorting has to change.
std::vector<std::string> Texts(unsigned count) {
    std::vector<std::string> texts;
    std::mt19937 random(7);
    for (unsigned i = 0; i < count; ++i)
        texts.push_back("item " + std::to_string(random() % 1000000));
    return texts;
}

void BM_ListBoxFrame(benchmark::State& state) {
    XMLParser document;
    TAVUListBox* list = MakeList(document);
    unsigned count = unsigned(state.range(0));
    for (const std::string& text : Texts(count))
        list->AddItem(text.c_str(), nullptr, 0);
    for (unsigned id = count / 2; id < count / 2 + 40; id += 3)
        list->SelectItem(id);
    list->ScrollBar->SetValue(list->ScrollBar->Range / 2); // the middle
    g_UIManager.Render();
    g_ListHost.Rows = 0;
    for (auto _ : state)
        g_UIManager.Render();
    state.counters["rows_per_frame"] = double(g_ListHost.Rows) / double(state.iterations());
    g_UIManager.Reset();
}

// A new list each time, filled and deleted; the count is the items added.
void BM_ListBoxAdd(benchmark::State& state) {
    unsigned count = unsigned(state.range(0));
    std::vector<std::string> texts = Texts(count);
    XMLParser document;
    MakeList(document);
    for (auto _ : state) {
        auto* list = static_cast<TAVUListBox*>(g_UIManager.LoadElement(
            g_UIManager.Screen, "listbox", "Filled", document.Root->FirstChild, nullptr));
        for (const std::string& text : texts)
            list->AddItem(text.c_str(), nullptr, 0);
        benchmark::DoNotOptimize(list->ItemCount);
        g_UIManager.Screen->DeleteChild(list);
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * count);
    g_UIManager.Reset();
}

// Each sort starts from the same shuffled order (set outside the timing).
// Argument 1 sorts by text, 0 through the script type's "Sort" with an atom.
void BM_ListBoxSort(benchmark::State& state) {
    XMLParser document;
    TAVUListBox* list = MakeList(document);
    unsigned count = unsigned(state.range(0));
    for (const std::string& text : Texts(count))
        list->AddItem(text.c_str(), nullptr, 0);
    std::vector<unsigned> shuffled(count);
    for (unsigned i = 0; i < count; ++i)
        shuffled[i] = i + 1;
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(11));
    bool byText = state.range(1) != 0;
    list->Sort = TAVUListBox::SortText;
    char atom[] = "ByDigits";
    char* argv[] = {atom};
    RXObjectData object{};
    object.Value.Pointer = list;
    for (auto _ : state) {
        state.PauseTiming();
        list->TakeOrder(shuffled.data(), count);
        state.ResumeTiming();
        if (byText)
            list->ApplySort();
        else
            pTAVUListBoxType->DispatchMethod(object, "Sort", 1, argv);
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * count);
    state.SetLabel(byText ? "text" : "atom");
    g_UIManager.Reset();
}
} // namespace

BENCHMARK(BM_ListBoxFrame)->Arg(1000)->Arg(100000);
BENCHMARK(BM_ListBoxAdd)->Arg(1000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ListBoxSort)
    ->Args({1000, 1})
    ->Args({100000, 1})
    ->Args({1000, 0})
    ->Args({100000, 0})
    ->Unit(benchmark::kMillisecond);
