#include "TAVUConsole.h"

#include "CUIManager.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUFixedFont.h"
#include "TAVUScriptTypes.h"
#include "TAVUScrollBar.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {
const char kTypeWord[] = "console";
const int kTextLeft = 3; // the text's inset from the left edge, in pixels
const int kTextTop = 2;
const int kWheelStep = 40; // a wheel notch of 120 moves three lines

int ClampInt(int value, int low, int high) {
    return std::max(low, std::min(value, high));
}

// Where the console's grid lies along one axis: a pixel offset within the
// element snapped to the start of its character cell, the border kept clear.
int SnapAxis(int offset, int size, int border, int inset, int cell) {
    if (offset < border) return border;
    if (offset > size - border) return size - border;
    int inside = offset - border - inset;
    if (cell > 0) inside = inside / cell * cell;
    return inside + border + inset;
}
} // namespace

TAVUFactory<TAVUConsole> g_TAVUConsoleFactory(kTypeWord);

TAVUConsole::TAVUConsole(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

TAVUConsole::~TAVUConsole() {
    FreeLines();
    TAVUFont::Delete(Font);
    TAVUTexture::Delete(Texture);
    TAVUTexture::Delete(ScrollbackTexture);
}

// The font is read twice, the second read replacing the first: both reads
// stay, since a font's reading may tell the host of a new face each time.
bool TAVUConsole::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    BackgroundColor = TAVUControlHelpers::ReadHex(node, templateNode, "BackgroundColor", 0);
    ScrollbackColor = TAVUControlHelpers::ReadHex(node, templateNode, "ScrollbackColor", 0);
    BorderColor = TAVUControlHelpers::ReadHex(node, templateNode, "BorderColor", 0);
    SelectionColor = TAVUControlHelpers::ReadHex(node, templateNode, "SelectionColor", 0);
    Border = TAVUControlHelpers::ReadInt(node, templateNode, "Border", 0);
    TAVUFont::Delete(Font);
    Font = FixedFontFromXML(node, "Font", templateNode);
    TAVUControlHelpers::ReplaceTexture(Texture, TextureFromXML(node, "Texture", templateNode));
    TAVUControlHelpers::ReplaceTexture(ScrollbackTexture,
                                       TextureFromXML(node, "ScrollbackTexture", templateNode));
    int size = int(TAVUControlHelpers::ReadInt(node, templateNode, "BackBufferSize", 0));
    FreeLines(); // its slots are counted by the size they were made with
    BackBufferSize = std::max(size, int(MinimumBackBuffer));
    TAVUFont::Delete(Font);
    Font = FixedFontFromXML(node, "Font", templateNode);
    if (!LoadScrollBar(node, templateNode)) return false;
    AllocateLines();
    return true;
}

// A "ScrollBar" text names the template of a bar made here; otherwise a
// "ScrollBar" child describes the bar, and a console has to have one.
bool TAVUConsole::LoadScrollBar(XMLNode* node, XMLNode* templateNode) {
    const char* templateName = TAVUControlHelpers::ReadString(node, templateNode, "ScrollBar");
    if (templateName && templateName[0]) {
        ScrollBar =
            TAVUControlHelpers::CreateVerticalBar(this, templateName, unsigned(BackBufferSize));
        ScrollBar->SetValue(0);
        return true;
    }
    XMLNode* child = XMLHelper::GetChild(node, "ScrollBar");
    if (!child) child = XMLHelper::GetChild(templateNode, "ScrollBar");
    ScrollBar = static_cast<TAVUScrollBar*>(
        g_UIManager.LoadElement(this, "scrollbar", "vertical", child, nullptr));
    if (!ScrollBar) return false;
    ScrollBar->SetRange(unsigned(BackBufferSize));
    ScrollBar->SetValue(0);
    return true;
}

bool TAVUConsole::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

RXTypeDefinition* TAVUConsole::GetRXType() {
    return pTAVUConsoleType;
}

// ---- the ring ----

void TAVUConsole::AllocateLines() {
    Lines = new char*[size_t(BackBufferSize)]();
    LastLine = -1;
}

void TAVUConsole::FreeLines() {
    Clear();
    delete[] Lines;
    Lines = nullptr;
}

void TAVUConsole::Clear() {
    if (Lines)
        for (int slot = 0; slot < BackBufferSize; ++slot) {
            StrFree(Lines[slot]);
            Lines[slot] = nullptr;
        }
    LastLine = -1;
}

int TAVUConsole::WrapSlot(int slot) const {
    if (slot < 0) return slot + BackBufferSize;
    if (slot >= BackBufferSize) return slot - BackBufferSize;
    return slot;
}

// One free and one copy, whatever the ring holds. A line longer than the
// console's line buffer is cut to it, so that copying it out stays bounded.
void TAVUConsole::AddLineInternal(char* line) {
    if (!Lines || !line) return;
    LastLine = LastLine + 1 >= BackBufferSize ? 0 : LastLine + 1;
    StrFree(Lines[LastLine]);
    size_t length = strnlen(line, LineBufferSize - 1);
    Lines[LastLine] = static_cast<char*>(malloc(length + 1));
    if (!Lines[LastLine]) return;
    memcpy(Lines[LastLine], line, length);
    Lines[LastLine][length] = '\0';
}

void TAVUConsole::Print(const char* text) {
    if (!text) return;
    int width = Width - ScrollBarWidth();
    int charWidth = CharWidth();
    size_t columns = width > 0 && charWidth > 0 ? size_t(width / charWidth) : 0;
    SplitFixed(const_cast<char*>(text), columns);
}

void TAVUConsole::Printf(const char* format, ...) {
    if (!format) return;
    char buffer[PrintfBufferSize];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(buffer, sizeof(buffer), format, arguments);
    va_end(arguments);
    Print(buffer);
}

// Breaks at the columns, back at the last blank of the line when there is
// one; a blank that falls on the break is dropped. Colour codes count as
// columns here although they do not show. Text beyond the line buffer is
// dropped, as is the trailing line feed's empty line.
void TAVUConsole::SplitFixed(char* text, size_t columns) {
    if (columns == 0 || !text) return;
    char line[LineBufferSize];
    size_t count = 0;
    const char* lastSpace = nullptr; // in text
    const char* lineStart = text;
    const char* c = text;
    while (*c) {
        if (*c == '\n') {
            line[count] = '\0';
            AddLineInternal(line);
            lineStart = ++c;
            count = 0;
            lastSpace = nullptr;
            continue;
        }
        if (count == columns) {
            if (*c == ' ') {
                ++c;
            } else if (lastSpace) {
                count = size_t(lastSpace - lineStart);
                c = lastSpace + 1;
            }
            line[count] = '\0';
            AddLineInternal(line);
            lineStart = c;
            count = 0;
            lastSpace = nullptr;
            continue;
        }
        if (*c == ' ') lastSpace = c;
        line[count++] = *c++;
        if (count == LineBufferSize - 1) break;
    }
    if (count == 0) return;
    line[count] = '\0';
    AddLineInternal(line);
}

// ---- scrolling ----

void TAVUConsole::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (code == TAVU_NOTIFY_FONT_CHANGED) {
        SizeRecalculated(false);
        return;
    }
    if (code != TAVU_NOTIFY_VALUE_CHANGED || !source || source != ScrollBar) return;
    ViewLine = value == 0 ? -1 : WrapSlot(LastLine - int(value % unsigned(BackBufferSize)));
}

void TAVUConsole::HandlePageUp() {
    if (ScrollBar) ScrollBar->RaiseValue(unsigned(std::max(VisibleLines, 0)));
}

void TAVUConsole::HandlePageDown() {
    if (!ScrollBar) return;
    if (g_UIManager.Control)
        ScrollBar->SetValue(0);
    else
        ScrollBar->LowerValue(unsigned(std::max(VisibleLines, 0)));
}

void TAVUConsole::HandleUp() {
    if (ScrollBar) ScrollBar->RaiseValue(1);
}

void TAVUConsole::HandleDown() {
    if (ScrollBar) ScrollBar->LowerValue(1);
}

// The scroll bar may run script of the parent's (OnChange), which may delete
// this console: it is watched before the base runs the wheel's own script.
bool TAVUConsole::OnMouseWheel(int offset) {
    TAVUElementWatch watch(this);
    long long delta = offset;
    if (ScrollBar) {
        if (delta > 0)
            ScrollBar->RaiseValue(unsigned(delta / kWheelStep));
        else
            ScrollBar->LowerValue(unsigned(-delta / kWheelStep));
    }
    if (watch.Alive()) TAVUElement::OnMouseWheel(offset);
    return true;
}

void TAVUConsole::SizeRecalculated(bool) {
    int usable = Height - 2 * int(Border);
    VisibleLines = usable > 0 ? usable / LineHeight() : 0;
    if (!ScrollBar) return;
    ScrollBar->X = Width - ScrollBar->Width - int(Border);
    ScrollBar->Height = Height - 2 * int(Border);
    // The bar lays nothing out itself: its arrows and slider follow it here.
    ScrollBar->RecalculateChildrenSize();
}

void TAVUConsole::SetFontSize(unsigned size) {
    size = std::max(8u, std::min(size, 96u));
    if (Font) Font->SetHeight((unsigned char)size);
    int usable = Height - 2 * int(Border);
    VisibleLines = usable > 0 ? usable / LineHeight() : 0;
}

int TAVUConsole::ScrollBarWidth() const {
    return ScrollBar ? ScrollBar->Width : 0;
}

int TAVUConsole::LineHeight() const {
    return (Font ? int(Font->Height) : 0) + 1;
}

int TAVUConsole::CharWidth() const {
    return Font ? int(Font->GetCharWidth()) : 0;
}

// ---- drawing ----

void TAVUConsole::Render() {
    int x = AbsolutePosition.x, y = AbsolutePosition.y;
    tagRECT rect{x, y, WrapAdd(x, Width - ScrollBarWidth()), WrapAdd(y, Height)};
    bool live = ViewLine < 0;
    DrawBackground(rect, live);
    if (Selecting) FillRect(Selection, SelectionColor);
    if (VisibleLines >= 1 && LastLine >= 0) DrawLines(live ? LastLine : ViewLine, rect);
    TAVUElement::Render();
}

// The textures show only while the user looks back; the live end has its
// colour alone.
void TAVUConsole::DrawBackground(tagRECT& rect, bool live) {
    TAVUTexture* texture = live ? nullptr : (ScrollbackTexture ? ScrollbackTexture : Texture);
    if (texture) {
        TAVUControlHelpers::DrawTexture(this, rect, texture, Border, BorderColor);
        return;
    }
    unsigned color = live ? BackgroundColor : ScrollbackColor;
    if (Border > 0)
        FillRectBordered(rect, color, Border, BorderColor);
    else
        FillRect(rect, color);
}

// At most as many lines as fit and as the ring holds, so that a frame costs
// the visible lines, whatever the size of the ring. Empty slots take a line.
void TAVUConsole::DrawLines(int lastSlot, tagRECT& rect) {
    if (!Lines) return;
    int count = std::min(VisibleLines, BackBufferSize);
    int slot = WrapSlot(lastSlot - count + 1);
    int x = WrapAdd(rect.left, kTextLeft);
    int right = WrapAdd(x, Width - ScrollBarWidth());
    int y = WrapAdd(rect.top, kTextTop);
    for (int drawn = 0; drawn < count; ++drawn) {
        if (Lines[slot]) DrawColoredTextClipped(Font, Lines[slot], x, y, right);
        y = WrapAdd(y, LineHeight());
        slot = slot + 1 >= BackBufferSize ? 0 : slot + 1;
    }
}

// ---- selection ----

void TAVUConsole::SnapToGrid(_Point2i& point) {
    int border = int(Border);
    int px = SnapAxis(point.x - AbsolutePosition.x, Width, border, kTextLeft, CharWidth());
    int py = SnapAxis(point.y - AbsolutePosition.y, Height, border, kTextTop, LineHeight());
    point.x = AbsolutePosition.x + px;
    point.y = AbsolutePosition.y + py;
}

// Focus goes to the command entry beside the console, so that typing after
// a selection goes on where the user types commands.
void TAVUConsole::FocusInput() {
    if (!Parent) return;
    if (TAVUElement* input = Parent->FindChild("input")) g_UIManager.SetFocusElement(input);
}

bool TAVUConsole::OnLMouseDown(_Point2i& point) {
    TAVUElementWatch watch(this);
    Selecting = true;
    _Point2i snapped = point;
    SnapToGrid(snapped);
    Selection = tagRECT{snapped.x, snapped.y, snapped.x, snapped.y};
    FocusInput();
    if (watch.Alive()) TAVUElement::OnLMouseDown(point);
    return true;
}

void TAVUConsole::ExtendSelection(_Point2i& point) {
    _Point2i snapped = point;
    SnapToGrid(snapped);
    tagRECT screen = TAVUControlHelpers::ScreenRect(this);
    Selection.right = ClampInt(snapped.x, screen.left, screen.right);
    Selection.bottom = ClampInt(snapped.y, screen.top, screen.bottom);
}

bool TAVUConsole::OnMouseMove(_Point2i& point) {
    if (!Selecting) return false;
    ExtendSelection(point);
    TAVUElement::OnMouseMove(point);
    return true;
}

bool TAVUConsole::OnLMouseUp(_Point2i& point) {
    if (!Selecting) return false;
    ExtendSelection(point);
    CopySelection();
    Selecting = false;
    TAVUElement::OnLMouseUp(point);
    return true;
}

namespace {
// The rectangle in columns and rows of the console's grid.
struct GridSpan {
    int FirstColumn, Columns, FirstRow, EndRow;
};
} // namespace

// Left of the text the left edge is set to the text's own screen offset
// rather than to column 0; that is how the console has always copied, and it
// stays. The rows are taken relative to the line shown at the bottom.
void TAVUConsole::CopySelection() {
    tagRECT s = Selection;
    if (s.left == s.right || s.top == s.bottom || !Lines) return;
    if (s.left > s.right) std::swap(s.left, s.right);
    if (s.top > s.bottom) std::swap(s.top, s.bottom);
    int charWidth = CharWidth(), lineHeight = LineHeight();
    if (charWidth <= 0) return;
    int textLeft = AbsolutePosition.x + int(Border) + kTextLeft;
    int textTop = AbsolutePosition.y + int(Border) + kTextTop;
    int left = s.left >= textLeft ? s.left - textLeft : textLeft;
    int top = s.top < textTop ? 0 : s.top - textTop;
    GridSpan span;
    span.FirstColumn = left / charWidth;
    span.Columns = (s.right - textLeft) / charWidth - span.FirstColumn;
    span.FirstRow = top / lineHeight;
    span.EndRow = (s.bottom - textTop + lineHeight - 1) / lineHeight;
    // The number of rows bounds the walk, also where the end slot wraps
    // below the first; no copy takes more than the ring.
    int rows = std::min(span.EndRow - span.FirstRow, BackBufferSize);
    if (rows <= 0 || span.Columns <= 0) return;
    int reference = ViewLine < 0 ? LastLine : ViewLine;
    int slot = WrapSlot(span.FirstRow - VisibleLines + reference + 1);
    if (slot < 0 || slot >= BackBufferSize) return;
    std::string text;
    text.reserve(size_t(rows) * size_t(span.Columns + 4) * 2);
    bool first = true;
    char plain[PrintfBufferSize];
    for (int row = 0; row < rows; ++row, slot = slot + 1 >= BackBufferSize ? 0 : slot + 1) {
        if (!Lines[slot]) continue;
        StripColor(Lines[slot], plain);
        if (!first) text += "\r\n";
        first = false;
        size_t length = strlen(plain);
        if (length > size_t(span.FirstColumn))
            text.append(plain + span.FirstColumn,
                        std::min(length - size_t(span.FirstColumn), size_t(span.Columns)));
    }
    TAVUControlHelpers::PutOnClipboard(text.c_str(), text.size());
}
