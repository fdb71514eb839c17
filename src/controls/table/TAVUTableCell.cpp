#include "TAVUTableCell.h"

#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUFactory.h"
#include "XMLHelper.h"

#include <algorithm>

namespace {
const char kTypeWord[] = "tablecell";
} // namespace

TAVUFactory<TAVUTableCell> g_TAVUTableCellFactory(kTypeWord);

TAVUTableCell::TAVUTableCell(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name) {}

TAVUTableCell::~TAVUTableCell() = default;

// The spans are the node's own attributes: a template does not give them.
bool TAVUTableCell::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUFrame::FromXML(node, templateNode)) return false;
    RowSpan = std::max(XMLHelper::GetIntAttribute(node, "RowSpan", 1), 1u);
    ColSpan = std::max(XMLHelper::GetIntAttribute(node, "ColSpan", 1), 1u);
    return true;
}

bool TAVUTableCell::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUFrame::IsTypeOf(type);
}
