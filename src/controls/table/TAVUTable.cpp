#include "TAVUTable.h"

#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUTableCell.h"
#include "XMLHelper.h"
#include "XMLNode.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {
const char kTypeWord[] = "table";

bool IsNamed(XMLNode* node, const char* name) {
    return node->Type == XMLNode::Element && StrCompareNoCase(node->Name, name) == 0;
}

// A span as the grid counts it: 0 counts as 1.
uint64_t SpanOf(XMLNode* cell, const char* key) {
    return std::max(XMLHelper::GetIntAttribute(cell, key, 1), 1u);
}

// A cell's size asks for something unless it is 0 pixels.
bool Asks(const ElementPosition& position) {
    return position.Type != ElementPosition::Absolute || position.Value.Pixels != 0;
}

// Of two requests of one kind the larger size wins; of two kinds, the later.
void Merge(const ElementPosition& asked, ElementPosition& into) {
    if (asked.Type != into.Type) {
        into = asked;
        return;
    }
    if (asked.Type == ElementPosition::Fraction)
        into.Value.Factor = std::max(into.Value.Factor, asked.Value.Factor);
    else if (asked.Type == ElementPosition::FarEdge)
        into.Value.Pixels = std::min(into.Value.Pixels, asked.Value.Pixels);
    else
        into.Value.Pixels = std::max(into.Value.Pixels, asked.Value.Pixels);
}

unsigned SizeOf(const ElementPosition& position, int size) {
    switch (position.Type) {
    case ElementPosition::Fraction:
        return unsigned(TruncateToInt(float(size) * position.Value.Factor));
    case ElementPosition::FarEdge:
        return unsigned(size) - unsigned(position.Value.Pixels);
    default:
        return unsigned(position.Value.Pixels);
    }
}

// One axis: fixed, fractional and far-edge entries take their sizes; the
// automatic ones share the rest, the first of them also taking what the
// division leaves. An over-committed axis wraps, as unsigned sizes do.
void LayoutAxis(ElementPosition* specs, unsigned count, int size, int* ends) {
    unsigned used = 0, automatic = 0, first = count;
    for (unsigned i = 0; i < count; ++i) {
        if (specs[i].Type != TAVUTable::Automatic) {
            used += SizeOf(specs[i], size);
        } else {
            if (first == count) first = i;
            ++automatic;
        }
    }
    if (automatic) {
        unsigned share = (unsigned(size) - used) / automatic;
        for (unsigned i = first + 1; i < count; ++i)
            if (specs[i].Type == TAVUTable::Automatic) {
                specs[i].Value.Pixels = int32_t(share);
                used += share;
            }
        specs[first].Value.Pixels = int32_t(unsigned(size) - used);
    }
    unsigned end = 0;
    for (unsigned i = 0; i < count; ++i) {
        end += SizeOf(specs[i], size);
        ends[i] = int(end);
    }
}

// The start and length of a run of span entries from first; a span that
// reaches past the grid ends with it.
void Place(const int* ends, unsigned count, unsigned first, unsigned span, int& start,
           int& length) {
    unsigned last = unsigned(std::min<uint64_t>(uint64_t(first) + span, count)) - 1;
    start = first == 0 ? 0 : ends[first - 1];
    length = WrapSubtract(ends[last], start);
}
} // namespace

TAVUFactory<TAVUTable> g_TAVUTableFactory(kTypeWord);

TAVUTable::TAVUTable(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name) {}

// The cells belong to the element tree.
TAVUTable::~TAVUTable() {
    FreeGrid();
    StrFree(CellTemplate);
}

bool TAVUTable::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUFrame::FromXML(node, templateNode)) return false;
    TAVUControlHelpers::ReplaceText(CellTemplate, XMLHelper::GetStringValue(node, "Template", ""));
    FreeGrid();
    CountGrid(node);
    if (!AllocateGrid()) return true;
    TAVUElementWatch watch(this);
    int cellNumber = 0;
    unsigned r = 0;
    for (XMLNode* row = node ? node->FirstChild : nullptr; row && watch.Alive(); row = row->Next)
        if (IsNamed(row, "Row")) PlaceRow(row, r++, cellNumber);
    return true;
}

// The grid's size: as many rows as there are, or as the spans reach, and as
// many columns as the widest row's spans add up to.
void TAVUTable::CountGrid(XMLNode* node) {
    uint64_t rows = 0, columns = 0, r = 0;
    for (XMLNode* row = node ? node->FirstChild : nullptr; row; row = row->Next) {
        if (!IsNamed(row, "Row")) continue;
        rows = std::max(rows, ++r);
        uint64_t c = 0;
        bool hasCells = false;
        for (XMLNode* cell = row->FirstChild; cell; cell = cell->Next) {
            if (!IsNamed(cell, "Cell")) continue;
            hasCells = true;
            c += SpanOf(cell, "ColSpan");
            rows = std::max(rows, r + SpanOf(cell, "RowSpan") - 1);
        }
        if (hasCells) columns = std::max(columns, c);
    }
    bool fits = rows * columns <= MaxSlots;
    RowCount = fits ? unsigned(rows) : 0;
    ColumnCount = fits ? unsigned(columns) : 0;
}

bool TAVUTable::AllocateGrid() {
    if (RowCount == 0 || ColumnCount == 0) return false;
    Cells = static_cast<TAVUTableCell**>(calloc(size_t(RowCount) * ColumnCount, sizeof(*Cells)));
    Rows = static_cast<ElementPosition*>(calloc(RowCount, sizeof(*Rows)));
    Columns = static_cast<ElementPosition*>(calloc(ColumnCount, sizeof(*Columns)));
    RowEnds = static_cast<int*>(calloc(RowCount, sizeof(*RowEnds)));
    ColumnEnds = static_cast<int*>(calloc(ColumnCount, sizeof(*ColumnEnds)));
    if (!Cells || !Rows || !Columns || !RowEnds || !ColumnEnds) {
        FreeGrid();
        return false;
    }
    // Rows that only spans reach ask for nothing, like those with no sizes.
    for (unsigned r = 0; r < RowCount; ++r)
        Rows[r].Type = Automatic;
    for (unsigned c = 0; c < ColumnCount; ++c)
        Columns[c].Type = Automatic;
    return true;
}

void TAVUTable::FreeGrid() {
    free(Cells);
    free(Rows);
    free(Columns);
    free(RowEnds);
    free(ColumnEnds);
    Cells = nullptr;
    Rows = Columns = nullptr;
    RowEnds = ColumnEnds = nullptr;
    RowCount = ColumnCount = 0;
}

// Cells go to the next free slot of the row; those that find none are
// dropped, and do not use up a cell number. A cell that fails to load leaves
// its slot empty.
void TAVUTable::PlaceRow(XMLNode* row, unsigned r, int& cellNumber) {
    TAVUElementWatch watch(this);
    unsigned c = 0;
    for (XMLNode* node = row->FirstChild; node; node = node->Next) {
        if (!IsNamed(node, "Cell")) continue;
        while (c < ColumnCount && CellAt(r, c))
            ++c;
        if (c >= ColumnCount) return;
        char name[128];
        snprintf(name, sizeof(name), "Cell %d", cellNumber++);
        auto* cell = static_cast<TAVUTableCell*>(
            g_UIManager.LoadElement(this, "tablecell", name, node, CellTemplate));
        if (!watch.Alive()) return;
        if (!cell) {
            ++c;
            continue;
        }
        Occupy(cell, r, c);
        if (Asks(cell->HeightPosition)) Merge(cell->HeightPosition, Rows[r]);
        if (Asks(cell->WidthPosition)) Merge(cell->WidthPosition, Columns[c]);
        c += cell->ColSpan;
    }
}

// The cell's rectangle of slots, cut where the grid ends.
void TAVUTable::Occupy(TAVUTableCell* cell, unsigned r, unsigned c) {
    cell->Row = r;
    cell->Column = c;
    unsigned lastRow = unsigned(std::min<uint64_t>(uint64_t(r) + cell->RowSpan, RowCount));
    unsigned lastColumn = unsigned(std::min<uint64_t>(uint64_t(c) + cell->ColSpan, ColumnCount));
    for (unsigned row = r; row < lastRow; ++row)
        for (unsigned column = c; column < lastColumn; ++column)
            Cells[size_t(row) * ColumnCount + column] = cell;
}

TAVUTableCell* TAVUTable::CellAt(unsigned row, unsigned column) const {
    if (row >= RowCount || column >= ColumnCount) return nullptr;
    return Cells[size_t(row) * ColumnCount + column];
}

bool TAVUTable::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUFrame::IsTypeOf(type);
}

// The table places its cells itself, whatever recurse asks.
void TAVUTable::RecalculateSize(bool) {
    TAVUElement::RecalculateSize(false);
}

// Each axis once, then each cell from the ends: linear in the slots.
void TAVUTable::SizeRecalculated(bool) {
    if (!Cells) return;
    LayoutAxis(Rows, RowCount, Height, RowEnds);
    LayoutAxis(Columns, ColumnCount, Width, ColumnEnds);
    PlaceCells();
}

// A cell that goes away leaves every slot it covered empty.
void TAVUTable::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (code == TAVU_NOTIFY_CHILD_REMOVED && Cells) {
        size_t slots = size_t(RowCount) * ColumnCount;
        for (size_t slot = 0; slot < slots; ++slot)
            if (Cells[slot] == source) Cells[slot] = nullptr;
    }
    TAVUFrame::OnNotify(source, code, value);
}

// A spanning cell is met once per slot it covers, with the same result; a
// cell that a script deleted has left its slots (see OnNotify).
void TAVUTable::PlaceCells() {
    size_t slots = size_t(RowCount) * ColumnCount;
    for (size_t slot = 0; slot < slots; ++slot) {
        TAVUTableCell* cell = Cells[slot];
        if (!cell) continue;
        Place(ColumnEnds, ColumnCount, cell->Column, cell->ColSpan, cell->X, cell->Width);
        Place(RowEnds, RowCount, cell->Row, cell->RowSpan, cell->Y, cell->Height);
        cell->RecalculateChildrenSize();
    }
}
