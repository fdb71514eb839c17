#include "TAVUCommandCheckBox.h"

#include "Module.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"

namespace {
const char kTypeWord[] = "commandcheckbox";
} // namespace

TAVUFactory<TAVUCommandCheckBox> g_TAVUCommandCheckBoxFactory(kTypeWord);

TAVUCommandCheckBox::TAVUCommandCheckBox(const char* type, TAVUElement* parent, const char* name)
    : TAVUCheckBox(type, parent, name) {}

TAVUCommandCheckBox::~TAVUCommandCheckBox() {
    StrFree(Command);
    StrFree(CommandChecked);
    StrFree(Console);
}

bool TAVUCommandCheckBox::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUCheckBox::FromXML(node, templateNode)) return false;
    TAVUControlHelpers::ReplaceText(Console,
                                    TAVUControlHelpers::ReadString(node, templateNode, "Console"));
    TAVUControlHelpers::ReplaceText(Command,
                                    TAVUControlHelpers::ReadString(node, templateNode, "Command"));
    TAVUControlHelpers::ReplaceText(
        CommandChecked, TAVUControlHelpers::ReadString(node, templateNode, "CommandChecked"));
    Data.PreParse(TAVUControlHelpers::ReadString(node, templateNode, "Data"));
    return true;
}

bool TAVUCommandCheckBox::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUCheckBox::IsTypeOf(type);
}

// With "Data", the box shows what the expression says at each frame, so a
// click's toggle lasts only until the next frame. An expression the host
// cannot calculate leaves the box as it was.
void TAVUCommandCheckBox::Render() {
    if (Data.Text && Data.Text[0]) {
        char text[TAVUControlHelpers::TextBufferSize];
        TAVUControlHelpers::RetrieveCaption(Data, text);
        double result = 0.0;
        if (g_pHost->Calculate(text, &result)) Checked = result != 0.0;
    }
    TAVUCheckBox::Render();
}

// The command runs before the toggle, while Checked still holds the old state:
// unticking runs "CommandChecked" when there is one, anything else "Command".
bool TAVUCommandCheckBox::OnLMouseUp(_Point2i& point) {
    bool unticking = Checked && CommandChecked && CommandChecked[0];
    TAVUElementWatch watch(this);
    TAVUControlHelpers::RunCommand(unticking ? CommandChecked : Command, Console);
    if (watch.Alive()) TAVUCheckBox::OnLMouseUp(point);
    return true;
}
