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

// Each row: the table's size, its rows, and the cells' places after layout.
TEST_F(TableTest, RowsAndColumnsTakeWhatTheirCellsAskAndShareTheRest) {
    const struct {
        int Width, Height;
        const char* Rows;
        const char* Expected;
    } cases[] = {
        // Two automatic rows of 101: the upper takes the odd pixel.
        {100, 101, "<Row><Cell/></Row><Row><Cell/></Row>",
         "cell 0 0 0 100 51; cell 1 0 51 100 50; "},
        // The larger of two pixel heights; an automatic column beside a fixed one.
        {100, 100,
         "<Row><Cell><Height>20</Height><Width>30</Width></Cell><Cell><Height>30</Height></Cell></"
         "Row>",
         "cell 0 0 0 30 30; cell 1 30 0 70 30; "},
        // Kinds differ: the later request wins, here the fraction.
        {100, 100,
         "<Row><Cell><Height>30</Height></Cell><Cell><Height>50%</Height></Cell></Row><Row><Cell/"
         "></Row>",
         "cell 0 0 0 50 50; cell 1 50 0 50 50; cell 2 0 50 50 50; - "},
        // The far edge: the smaller number makes the larger row.
        {100, 100,
         "<Row><Cell><Height>r80</Height></Cell><Cell><Height>r60</Height></Cell></Row><Row><Cell/"
         "></Row>",
         "cell 0 0 0 50 40; cell 1 50 0 50 40; cell 2 0 40 50 60; - "},
        // A row span fills the slot below; the next row's cell takes the next free column.
        {90, 60, "<Row><Cell RowSpan=\"2\"/><Cell/><Cell/></Row><Row><Cell/><Cell/></Row>",
         "cell 0 0 0 30 60; cell 1 30 0 30 30; cell 2 60 0 30 30; cell 3 30 30 30 30; "
         "cell 4 60 30 30 30; "},
        // A column span over two automatic columns; the span counts for the width.
        {100, 50, "<Row><Cell ColSpan=\"2\"/></Row><Row><Cell/><Cell ColSpan=\"0\"/></Row>",
         "cell 0 0 0 100 25; cell 1 0 25 50 25; cell 2 50 25 50 25; "},
        // More cells than columns: the extra is dropped and keeps no number.
        {60, 40,
         "<Row><Cell/><Cell/></Row><Row><Cell RowSpan=\"2\"/><Cell/></Row>"
         "<Row><Cell/><Cell/></Row><Row><Cell/></Row>",
         "cell 0 0 0 30 10; cell 1 30 0 30 10; cell 2 0 10 30 20; cell 3 30 10 30 10; "
         "cell 4 30 20 30 10; cell 5 0 30 30 10; - "},
        // A fraction of the height; two shared columns, the first taking the odd pixel.
        {201, 40,
         "<Row><Cell><Height>0.25</Height></Cell><Cell/></Row><Row><Cell ColSpan=\"2\"/></Row>",
         "cell 0 0 0 101 10; cell 1 101 0 100 10; cell 2 0 10 201 30; "},
        // Fixed rows above the table's height leave the automatic one a wrapped share.
        {10, 10, "<Row><Cell><Height>30</Height></Cell></Row><Row><Cell/></Row>",
         "cell 0 0 0 10 30; cell 1 0 30 10 -20; "},
    };
    for (const auto& c : cases) {
        TAVUTable* table = Table(c.Width, c.Height, c.Rows);
        ASSERT_NE(table, nullptr) << c.Rows;
        EXPECT_EQ(Layout(table), c.Expected) << c.Rows;
        Parent->DeleteChild(table);
    }
}

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
