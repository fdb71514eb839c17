#include "ControlTest.h"
#include "TAVUTable.h"
#include "TAVUTableCell.h"
#include "Words.h"

#include <string>

class TableTest : public ControlTest {
protected:
    // A table of the given size with the rows given as XML.
    TAVUTable* Table(int width, int height, const std::string& rows) {
        std::string xml = "<t><Width>" + std::to_string(width) + "</Width><Height>" +
                          std::to_string(height) + "</Height>" + rows + "</t>";
        return Load<TAVUTable>("table", ("Grid" + std::to_string(++Made)).c_str(), xml.c_str());
    }
    // Every cell once, in slot order: its name, slot and rectangle.
    static std::string Layout(TAVUTable* table) {
        std::string layout;
        TAVUTableCell* last = nullptr;
        for (unsigned r = 0; r < table->RowCount; ++r)
            for (unsigned c = 0; c < table->ColumnCount; ++c) {
                TAVUTableCell* cell = table->CellAt(r, c);
                if (!cell) layout += "- ";
                if (!cell || cell == last || cell->Row != r || cell->Column != c) continue;
                last = cell;
                layout += Words(cell->Name, cell->X, cell->Y, cell->Width, cell->Height) + "; ";
            }
        return layout;
    }
    int Made = 0;
};

// How rows and columns share a table's size is tavuhost's table_layout case.
// Grids with nothing to place, or too many slots to build, stay plain frames.
TEST_F(TableTest, EmptyAndAbsurdGridsLeaveAPlainFrame) {
    const char* cases[] = {
        "",
        "<Row/><Row/>",
        "<Cell/>",
        "<Row><Cell ColSpan=\"4000000000\"/></Row>",
        "<Row><Cell RowSpan=\"4294967295\" ColSpan=\"2\"/></Row>",
        "<Row><Cell ColSpan=\"1100\"/></Row><Row><Cell RowSpan=\"1000\"/></Row>",
    };
    for (const char* rows : cases) {
        size_t messages = Host.Console.size();
        TAVUTable* table = Table(100, 100, rows);
        ASSERT_NE(table, nullptr) << rows;
        EXPECT_EQ(Words(table->RowCount * table->ColumnCount, table->Cells == nullptr,
                        table->FirstChild == nullptr),
                  "0 1 1")
            << rows;
        EXPECT_EQ(Host.Console.size(), messages) << rows;
        table->SizeRecalculated(true);
        Parent->DeleteChild(table);
    }
}

// Under ASan: a cell that a script deletes leaves its slots before the next layout.
TEST_F(TableTest, ACellDeletedByScriptLeavesItsSlots) {
    TAVUTable* table = Table(40, 40, "<Row><Cell RowSpan=\"2\"/><Cell/></Row><Row><Cell/></Row>");
    ASSERT_NE(table, nullptr);
    table->DeleteChild(table->CellAt(0, 0));
    table->Height = 80;
    table->SizeRecalculated(true);
    EXPECT_EQ(Layout(table), "- cell 1 20 0 20 40; - cell 2 20 40 20 40; ");
}
