#include "TAVUCommandButton.h"

#include "CUIManager.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUFactory.h"

namespace {
const char kTypeWord[] = "commandbutton";
} // namespace

TAVUFactory<TAVUCommandButton> g_TAVUCommandButtonFactory(kTypeWord);

TAVUCommandButton::TAVUCommandButton(const char* type, TAVUElement* parent, const char* name)
    : TAVUButton(type, parent, name) {}

TAVUCommandButton::~TAVUCommandButton() {
    StrFree(Command);
    StrFree(Console);
}

// After reading, Command and Console are never null, though they may be empty.
bool TAVUCommandButton::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUButton::FromXML(node, templateNode)) return false;
    TAVUControlHelpers::ReplaceText(Console,
                                    TAVUControlHelpers::ReadString(node, templateNode, "Console"));
    TAVUControlHelpers::ReplaceText(Command,
                                    TAVUControlHelpers::ReadString(node, templateNode, "Command"));
    return true;
}

bool TAVUCommandButton::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUButton::IsTypeOf(type);
}

// The button's release comes first (its parent and script may delete it);
// the command runs only for a button that is still there.
bool TAVUCommandButton::OnLMouseUp(_Point2i& point) {
    unsigned id = ID;
    TAVUButton::OnLMouseUp(point);
    if (!g_UIManager.FindElementByID(id)) return true;
    TAVUControlHelpers::RunCommand(Command, Console);
    return true;
}
