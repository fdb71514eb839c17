// "tablecell": a frame that a table places on its grid. It covers RowSpan by
// ColSpan slots from its first one, at Row and Column.
#pragma once

#include "TAVUFrame.h"

class TAVU_API TAVUTableCell : public TAVUFrame {
public:
    TAVUTableCell(const char* type, TAVUElement* parent, const char* name);

    ~TAVUTableCell() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;

    unsigned RowSpan = 1;
    unsigned ColSpan = 1;
    unsigned Row = 0;
    unsigned Column = 0;
};
