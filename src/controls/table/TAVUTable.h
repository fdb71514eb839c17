// "table": a frame that lays its cells out on a grid read from XML, with row
// and column spans as in an HTML table. Rows and columns take the sizes their
// cells ask for; what is left goes to those that ask for nothing. The grid is
// fixed once read; only the sizes follow the table's.
#pragma once

#include "ElementPosition.h"
#include "TAVUFrame.h"

class TAVUTableCell;

class TAVU_API TAVUTable : public TAVUFrame {
public:
    // A row or column that shares what the others leave; its Pixels are
    // filled in by each layout.
    enum : uint32_t { Automatic = 1 };
    // A grid larger than this many slots is not built: the table stays empty.
    enum : uint64_t { MaxSlots = 1u << 20 };

    TAVUTable(const char* type, TAVUElement* parent, const char* name);

    ~TAVUTable() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void RecalculateSize(bool recurse) override;
    void SizeRecalculated(bool changed) override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;

    // The cell in a slot (a spanning cell stands in each it covers), or null.
    TAVUTableCell* CellAt(unsigned row, unsigned column) const;

    char* CellTemplate = nullptr;
    TAVUTableCell** Cells = nullptr;
    ElementPosition* Columns = nullptr;
    ElementPosition* Rows = nullptr;
    unsigned RowCount = 0;
    unsigned ColumnCount = 0;

private:
    void CountGrid(XMLNode* node);
    bool AllocateGrid();
    void FreeGrid();
    void PlaceRow(XMLNode* row, unsigned r, int& cellNumber);
    void Occupy(TAVUTableCell* cell, unsigned r, unsigned c);
    void PlaceCells();

    // Where each row and column ends, from the last layout.
    int* RowEnds = nullptr;
    int* ColumnEnds = nullptr;
};
