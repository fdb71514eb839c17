// Laying a table out again: a grid of N by N cells, each holding a frame,
// resized a hundred times. Layout walks each axis once and each slot once,
// so the time per cell should stay flat from 25 by 25 to 50 by 50; a layout
// that grew with the square of the cells would show here as four times the
// cost per cell.
#include "CUIManager.h"
#include "Module.h"
#include "NullHost.h"
#include "TAVUScreen.h"
#include "TAVUTable.h"
#include "TAVUTableCell.h"
#include "XMLNode.h"
#include "XMLParser.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {
NullHost g_TableHost;

const int kResizes = 100;

// Every other column asks a width and every third row a height; the rest share.
std::string TableXML(int size) {
    std::string xml = "<table><Width>800</Width><Height>600</Height>";
    for (int r = 0; r < size; ++r) {
        xml += "<Row>";
        for (int c = 0; c < size; ++c) {
            xml += "<Cell>";
            if (r == 0 && c % 2 == 0) xml += "<Width>8</Width>";
            if (c == 0 && r % 3 == 0) xml += "<Height>5%</Height>";
            xml += "<Children><frame Name=\"f\"><Width>50%</Width><Height>50%</Height>"
                   "</frame></Children></Cell>";
        }
        xml += "</Row>";
    }
    return xml + "</table>";
}

void BM_TableLayout(benchmark::State& state) {
    const int size = int(state.range(0));
    F1(&g_TableHost);
    if (!g_UIManager.Screen) g_UIManager.Initialize();
    g_UIManager.Reset();
    std::string xml = TableXML(size);
    XMLParser parser;
    parser.ParseBuffer(xml.c_str(), xml.size());
    auto* table = static_cast<TAVUTable*>(g_UIManager.LoadElement(
        g_UIManager.Screen, "table", "Grid", parser.Root->FirstChild, nullptr));
    if (!table || table->RowCount != unsigned(size)) {
        state.SkipWithError("the table did not load");
        return;
    }
    for (auto _ : state) {
        for (int i = 0; i < kResizes; ++i) {
            table->Width = 600 + (i * 37) % 400;
            table->Height = 400 + (i * 53) % 300;
            table->SizeRecalculated(true);
        }
        benchmark::DoNotOptimize(table->CellAt(unsigned(size) - 1, unsigned(size) - 1)->X);
    }
    const double cells = double(size) * size;
    state.counters["ns_per_cell"] =
        benchmark::Counter(cells * kResizes, benchmark::Counter::kIsIterationInvariantRate |
                                                 benchmark::Counter::kInvert);
    g_UIManager.Reset();
}
BENCHMARK(BM_TableLayout)->Arg(25)->Arg(50)->Unit(benchmark::kMicrosecond);
} // namespace
