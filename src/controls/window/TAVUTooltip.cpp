#include "TAVUTooltip.h"

#include "CUIManager.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUFont.h"
#include "TAVUScriptTypes.h"

#include <cstdarg>
#include <cstdio>
#include <cstring>

namespace {
const char kTypeWord[] = "tooltip";
const char kAutoTooltipName[] = "Auto Tooltip";
// The auto tooltip opens this far up and left of the pointer.
const int kPointerOffset = 10;

// Shared by every line of every tooltip: resolving allocates nothing.
char g_ParsedLine[TAVUControlHelpers::TextBufferSize];

bool HasDataSequence(const char* text) {
    return strstr(text, "${") != nullptr;
}
} // namespace

TAVUTooltipLine::TAVUTooltipLine(const char* text)
    : Text(StrDuplicate(text ? text : "")), HasDataSequence(text && ::HasDataSequence(text)) {}

TAVUTooltipLine::~TAVUTooltipLine() {
    StrFree(Text);
}

void TAVUTooltipLine::Set(const char* text) {
    StrFree(Text);
    Text = StrDuplicate(text ? text : "");
    HasDataSequence = text && ::HasDataSequence(text);
}

const char* TAVUTooltipLine::Parse() {
    if (!HasDataSequence) return Text;
    g_ParsedLine[0] = 0;
    g_pHost->ParseDataSequences(Text, g_ParsedLine, sizeof(g_ParsedLine));
    g_ParsedLine[sizeof(g_ParsedLine) - 1] = 0;
    return g_ParsedLine;
}

TAVUFactory<TAVUTooltip> g_TAVUTooltipFactory(kTypeWord);

TAVUTooltip::TAVUTooltip(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name) {
    Texture = nullptr;
}

// The frame gives its texture back itself.
TAVUTooltip::~TAVUTooltip() {
    TAVUFont::Delete(Font);
    Reset();
}

bool TAVUTooltip::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUFrame::FromXML(node, templateNode)) return false;
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    Visible = false; // shown only when a user has printed into it
    return true;
}

bool TAVUTooltip::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUFrame::IsTypeOf(type);
}

void TAVUTooltip::Print(const char* text) {
    if (!text) return;
    char* copy = StrDuplicate(text);
    char* piece = copy;
    for (char* end = strchr(piece, '\n'); end; end = strchr(piece, '\n')) {
        *end = 0;
        AddLine(piece);
        piece = end + 1;
    }
    AddLine(piece);
    StrFree(copy);
}

void TAVUTooltip::Printf(const char* format, ...) {
    char buffer[PrintfBufferSize] = {0};
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(buffer, sizeof(buffer), format ? format : "", arguments);
    va_end(arguments);
    Print(buffer);
}

void TAVUTooltip::AddLine(const char* text) {
    auto* line = new TAVUTooltipLine(text);
    if (Lines.Add(line) < 0) {
        delete line; // the table could not grow: the line is lost, not leaked
        return;
    }
    ++LineCount;
}

void TAVUTooltip::Reset() {
    for (unsigned place = 0; place < Lines.GetSize(); ++place) {
        delete Lines.Get(place);
        Lines.Remove(place);
    }
    LineCount = 0;
}

TAVUTooltipLine* TAVUTooltip::GetLine(unsigned n) {
    if (n < 1 || n > LineCount) return nullptr;
    unsigned seen = 0;
    for (unsigned place = 0; place < Lines.GetSize(); ++place) {
        TAVUTooltipLine* line = Lines.Get(place);
        if (line && ++seen == n) return line;
    }
    return nullptr;
}

// The box is sized before it is drawn, the height from the count of lines
// and the width from what the lines measured in the frame before.
void TAVUTooltip::Render() {
    unsigned lineHeight = (Font ? Font->Height : 0) + 1;
    Height = int(LineCount * lineHeight + 2 * Border);
    if (Width < int(MinimumWidth)) Width = MinimumWidth;
    TAVUElementWatch watch(this);
    TAVUFrame::Render();
    if (!watch.Alive()) return;
    if (Lines.GetSize() == 0) {
        Width = MinimumWidth;
        return;
    }
    bool gone = false;
    unsigned width = DrawLines(gone);
    if (!gone) Width = int(width);
}

// The right margin is the font's height and a border, the left one a border.
unsigned TAVUTooltip::DrawLines(bool& gone) {
    unsigned fontHeight = Font ? Font->Height : 0;
    int x = WrapAdd(AbsolutePosition.x, int(Border));
    int y = WrapAdd(AbsolutePosition.y, int(Border));
    unsigned width = MinimumWidth;
    TAVUElementWatch watch(this);
    for (unsigned place = 0; place < Lines.GetSize(); ++place) {
        TAVUTooltipLine* line = Lines.Get(place);
        if (!line) continue;
        const char* text = line->Parse();
        if (!watch.Alive()) {
            gone = true;
            return 0;
        }
        if (text[0]) {
            unsigned drawn = unsigned(DrawColoredText(Font, text, x, y)) + fontHeight + Border;
            if (drawn > width) width = drawn;
        }
        y = WrapAdd(y, int(fontHeight + 1));
    }
    return width;
}

// A tooltip under the pointer gets out of the way and lets the mouse pass.
bool TAVUTooltip::OnMouseMove(_Point2i&) {
    Show(false);
    return false;
}

RXTypeDefinition* TAVUTooltip::GetRXType() {
    return pTAVUTooltipType;
}

void TAVUTooltip::UpdateAutoTooltip(TAVUElement* element) {
    if (!element->AutoTooltip) return;
    TAVUElement* found = g_UIManager.FindElement(kAutoTooltipName);
    if (!found || !found->IsTypeOf(kTypeWord)) return;
    auto* tooltip = static_cast<TAVUTooltip*>(found);
    CUIManager& manager = g_UIManager;
    if (element->IsMouseOver()) {
        if (tooltip->Visible || manager.AutoTooltipElementID != 0) return;
        if (GetTickCount() - manager.LastInputTime < manager.TooltipDelay) return;
        manager.AutoTooltipElementID = element->ID;
        tooltip->X = WrapSubtract(manager.MousePosition.x, kPointerOffset);
        tooltip->Y = WrapSubtract(manager.MousePosition.y, kPointerOffset);
        tooltip->Reset();
        tooltip->Printf("%s", element->AutoTooltip);
        tooltip->Show(true);
    } else if (manager.AutoTooltipElementID == element->ID && tooltip->Visible) {
        manager.AutoTooltipElementID = 0;
        tooltip->Show(false);
    }
}
