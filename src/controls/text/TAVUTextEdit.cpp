#include "TAVUTextEdit.h"

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
#include "TAVUTextEntry.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace {
const char kTypeWord[] = "textedit";
const int kInset = 3;      // the text's distance from the border
const int kRowGap = 2;     // pixels between two rows
const int kWheelStep = 40; // a wheel notch of 120 moves three lines
// A row is drawn from a copy this long at most; longer visible parts are
// drawn from the line itself.
const size_t kDrawBuffer = 4096;

enum Key : unsigned {
    KeyA = 65,
    KeyC = 67,
};

size_t Smaller(size_t a, size_t b) {
    return a < b ? a : b;
}
} // namespace

TAVUFactory<TAVUTextEdit> g_TAVUTextEditFactory(kTypeWord);

TAVUTextEdit::TAVUTextEdit(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name) {}

// The bar is left alone: it goes with the children, and a change of its
// range now could run its script while the editor is being taken apart.
TAVUTextEdit::~TAVUTextEdit() {
    VerticalScrollBar = nullptr;
    Clear();
    TAVUFont::Delete(Font);
    TAVUTexture::Delete(CaretTexture);
    TAVUTexture::Delete(CaretOverwriteTexture);
}

bool TAVUTextEdit::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUFrame::FromXML(node, templateNode)) return false;
    CaretOuterColor = TAVUControlHelpers::ReadHex(node, templateNode, "CaretOuterColor", 0);
    CaretInnerColor = TAVUControlHelpers::ReadHex(node, templateNode, "CaretInnerColor", 0);
    SelectionColor = TAVUControlHelpers::ReadHex(node, templateNode, "SelectionColor", 0);
    TAVUFont::Delete(Font);
    Font = FixedFontFromXML(node, "Font", templateNode);
    if (!Font) return false;
    TAVUControlHelpers::ReplaceTexture(CaretTexture,
                                       TextureFromXML(node, "CaretTexture", templateNode));
    TAVUControlHelpers::ReplaceTexture(CaretOverwriteTexture,
                                       TextureFromXML(node, "CaretOverwriteTexture", templateNode));
    if (!LoadScrollBar(node, templateNode)) return false;
    SetText("");
    if (VerticalScrollBar) VerticalScrollBar->SetValue(1);
    return true;
}

// A "VerticalScrollBar" text names the template of a bar made here; otherwise
// a "VerticalScrollBar" child describes the bar, and an editor needs one.
bool TAVUTextEdit::LoadScrollBar(XMLNode* node, XMLNode* templateNode) {
    const char* templateName =
        TAVUControlHelpers::ReadString(node, templateNode, "VerticalScrollBar");
    if (templateName && templateName[0]) {
        VerticalScrollBar = TAVUControlHelpers::CreateVerticalBar(this, templateName, 1);
        // Laid out against the editor now: its size may never change again.
        VerticalScrollBar->RecalculateSize(true);
        return true;
    }
    XMLNode* child = XMLHelper::GetChild(node, "VerticalScrollBar");
    if (!child) child = XMLHelper::GetChild(templateNode, "VerticalScrollBar");
    VerticalScrollBar = static_cast<TAVUScrollBar*>(
        g_UIManager.LoadElement(this, "scrollbar", "vertical", child, nullptr));
    if (!VerticalScrollBar) return false;
    VerticalScrollBar->Vertical = true;
    VerticalScrollBar->RecalculateSize(true);
    return true;
}

bool TAVUTextEdit::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUFrame::IsTypeOf(type);
}

RXTypeDefinition* TAVUTextEdit::GetRXType() {
    return pTAVUTextEditType;
}

// ---- the scroll bar ----

bool TAVUTextEdit::SetBarRange() {
    if (!VerticalScrollBar) return true;
    TAVUElementWatch watch(this);
    VerticalScrollBar->SetRange(LineCount);
    return watch.Alive();
}

bool TAVUTextEdit::SyncBar() {
    if (!VerticalScrollBar || !Caret.Line) return true;
    TAVUElementWatch watch(this);
    VerticalScrollBar->SetValue(LineCount - unsigned(Caret.Line->LineNumber));
    return watch.Alive();
}

// Dragging the bar moves the caret to the line it names, and the view with
// it. A bar that goes away is forgotten; nothing else is heard or passed on.
void TAVUTextEdit::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (!source || source != VerticalScrollBar) return;
    if (code == TAVU_NOTIFY_CHILD_REMOVED) {
        VerticalScrollBar = nullptr;
        return;
    }
    if (code != TAVU_NOTIFY_VALUE_CHANGED || LineCount == 0 || !Caret.Line) return;
    long long target = (long long)LineCount - (long long)value;
    long long current = (long long)Caret.Line->LineNumber;
    if (target > current)
        HandleDown(unsigned(target - current));
    else if (target < current)
        HandleUp(unsigned(current - target));
}

// ---- building text ----

void TAVUTextEdit::Clear() {
    for (CTextEditLine* line = FirstLine; line;) {
        CTextEditLine* next = line->Next;
        delete line;
        line = next;
    }
    FirstLine = LastLine = nullptr;
    SelectionStart = Caret = ViewStart = ViewEnd = TextEditPos();
    LineCount = 0;
    if (VerticalScrollBar) VerticalScrollBar->SetRange(1);
}

// The bar's script may run as its range changes, and may delete the editor.
void TAVUTextEdit::SetText(const char* text) {
    TAVUElementWatch watch(this);
    Clear();
    if (watch.Alive()) AddText(text);
    if (watch.Alive()) Caret.Line = ViewStart.Line = FirstLine;
}

// Each line feed ends a line, and a carriage return before it goes with it;
// what follows the last line feed is a line too, even when it is empty.
void TAVUTextEdit::AddText(const char* text) {
    std::string copy(text ? text : "");
    char* start = &copy[0];
    TAVUElementWatch watch(this);
    for (char* feed; (feed = strchr(start, '\n')) != nullptr; start = feed + 1) {
        *feed = 0;
        if (feed > start && feed[-1] == '\r') feed[-1] = 0;
        AddLine(start);
        if (!watch.Alive()) return;
    }
    AddLine(start);
}

void TAVUTextEdit::AddLine(const char* text) {
    auto* line = new CTextEditLine(text, LineCount);
    line->Prev = LastLine;
    if (LastLine)
        LastLine->Next = line;
    else
        FirstLine = ViewStart.Line = ViewEnd.Line = line;
    LastLine = line;
    ++LineCount;
    if (SetBarRange()) SyncBar();
}

// Pasting and inserting text at a place are not part of this editor.
void TAVUTextEdit::InsertText(TextEditPos&, const char*) {}

void TAVUTextEdit::PasteClipboard() {}

void TAVUTextEdit::Renumber(CTextEditLine* from, size_t first) {
    for (CTextEditLine* line = from; line; line = line->Next)
        line->LineNumber = first++;
}

CTextEditLine* TAVUTextEdit::InsertLineAfter(CTextEditLine* after, const char* text) {
    auto* line = new CTextEditLine(text, after ? after->LineNumber + 1 : 0);
    line->Prev = after;
    line->Next = after ? after->Next : FirstLine;
    if (line->Next)
        line->Next->Prev = line;
    else
        LastLine = line;
    if (after)
        after->Next = line;
    else
        FirstLine = line;
    ++LineCount;
    Renumber(line->Next, line->LineNumber + 1);
    TAVUElementWatch watch(this);
    if (SetBarRange()) SyncBar();
    return watch.Alive() ? line : nullptr;
}

// The caret, the view's two lines and the selection must not stay on a line
// that is going: they go where the caret goes.
void TAVUTextEdit::LeaveLine(CTextEditLine* line, bool moveUp) {
    CTextEditLine* before = line->Prev ? line->Prev : line->Next;
    CTextEditLine* after = line->Next ? line->Next : line->Prev;
    CTextEditLine* target = moveUp ? before : after;
    if (Caret.Line == line) {
        Caret.Line = target;
        Caret.Pos = Smaller(Caret.Pos, target ? target->Length : 0);
    }
    if (ViewStart.Line == line) ViewStart.Line = target;
    if (ViewEnd.Line == line) ViewEnd.Line = target;
    if (SelectionStart.Line == line || SelectionEnd.Line == line) ClearSelection();
}

void TAVUTextEdit::RemoveLine(CTextEditLine* line, bool moveUp) {
    if (!line) return;
    if (LineCount <= 1) {
        line->Truncate(0);
        Caret.Pos = 0;
        return;
    }
    Renumber(line->Next, line->LineNumber);
    --LineCount;
    if (!SetBarRange()) return;
    if (line->Prev)
        line->Prev->Next = line->Next;
    else
        FirstLine = line->Next;
    if (line->Next)
        line->Next->Prev = line->Prev;
    else
        LastLine = line->Prev;
    LeaveLine(line, moveUp);
    delete line;
    SyncBar();
}

// ---- editing ----

void TAVUTextEdit::InsertCharacter(char c) {
    if (Caret.Line && Caret.Line->InsertCharacter(Caret.Pos, c)) ++Caret.Pos;
}

void TAVUTextEdit::HandleBackspace() {
    CTextEditLine* line = Caret.Line;
    if (!line) return;
    if (Caret.Pos > line->Length) Caret.Pos = line->Length;
    if (Caret.Pos != 0) {
        line->Erase(--Caret.Pos, 1);
    } else if (CTextEditLine* previous = line->Prev) {
        size_t join = previous->Length;
        previous->InsertText(join, line->Text, line->Length);
        TAVUElementWatch watch(this);
        RemoveLine(line, true);
        if (!watch.Alive()) return;
        Caret = TextEditPos{previous, join};
    }
    ClearSelection();
}

// An empty last line has no next line to take the caret; it stays put.
void TAVUTextEdit::HandleDelete() {
    CTextEditLine* line = Caret.Line;
    if (!line) return;
    TAVUElementWatch watch(this);
    if (line->Length == 0) {
        if (line->Next) {
            CTextEditLine* next = line->Next;
            RemoveLine(line, false);
            if (!watch.Alive()) return;
            Caret.Line = next;
        }
    } else if (Caret.Pos >= line->Length) {
        if (line != LastLine && line->Next) {
            CTextEditLine* next = line->Next;
            line->InsertText(line->Length, next->Text, next->Length);
            RemoveLine(next, false);
            if (!watch.Alive()) return;
        }
    } else {
        line->Erase(Caret.Pos, 1);
    }
    ClearSelection();
}

void TAVUTextEdit::HandleEnter() {
    CTextEditLine* line = Caret.Line;
    if (!line) return;
    size_t split = Smaller(Caret.Pos, line->Length);
    if (!InsertLineAfter(line, line->Text + split)) return;
    line->Truncate(split);
    Caret.Pos = 0;
    HandleDown(1);
}

// ---- moving ----

void TAVUTextEdit::ClearSelection() {
    SelectionStart = SelectionEnd = TextEditPos();
}

void TAVUTextEdit::BeginMove() {
    if (g_UIManager.Shift && !SelectionStart.Line) SelectionStart = Caret;
}

// A drag in progress goes on from where the pointer is; Shift extends the
// selection to the caret, and a move without it drops the selection.
void TAVUTextEdit::EndMove() {
    if (Dragging) {
        _Point2i pointer = g_UIManager.MousePosition;
        OnMouseMove(pointer);
    } else if (!g_UIManager.Shift) {
        ClearSelection();
    } else {
        SelectionEnd = Caret;
        if (!SelectionStart.Line) SelectionStart = Caret;
    }
}

void TAVUTextEdit::HandleLeft() {
    if (!Caret.Line || Caret.Pos == 0) return;
    BeginMove();
    --Caret.Pos;
    if (Caret.Pos <= ViewStart.Pos) ViewStart.Pos = Caret.Pos;
    EndMove();
}

void TAVUTextEdit::HandleRight() {
    if (!Caret.Line || Caret.Pos >= Caret.Line->Length) return;
    BeginMove();
    ++Caret.Pos;
    if (Caret.Pos <= ViewStart.Pos) ViewStart.Pos = Caret.Pos;
    if (Caret.Pos >= ViewStart.Pos + VisibleColumns) ViewStart.Pos = Caret.Pos - VisibleColumns + 1;
    EndMove();
}

void TAVUTextEdit::HandleHome() {
    BeginMove();
    Caret.Pos = ViewStart.Pos = 0;
    EndMove();
}

void TAVUTextEdit::HandleEnd() {
    if (!Caret.Line) return;
    BeginMove();
    size_t length = Caret.Line->Length;
    Caret.Pos = length;
    if (ViewStart.Pos + VisibleColumns <= length) ViewStart.Pos = length - VisibleColumns + 1;
    EndMove();
}

void TAVUTextEdit::HandleUp(unsigned int count) {
    MoveLines(count, false);
}

void TAVUTextEdit::HandleDown(unsigned int count) {
    MoveLines(count, true);
}

// The caret leaving the view's edge takes both ends of the view along.
void TAVUTextEdit::MoveLines(unsigned count, bool down) {
    if (!Caret.Line) return;
    BeginMove();
    auto step = [down](CTextEditLine* line) { return down ? line->Next : line->Prev; };
    TextEditPos& edge = down ? ViewEnd : ViewStart;
    TextEditPos& other = down ? ViewStart : ViewEnd;
    for (unsigned moved = 0; moved < count && step(Caret.Line); ++moved) {
        if (Caret.Line == edge.Line) {
            edge.Line = step(edge.Line);
            if (other.Line && step(other.Line)) other.Line = step(other.Line);
        }
        Caret.Line = step(Caret.Line);
        Caret.Pos = Smaller(Caret.Pos, Caret.Line->Length);
    }
    if (SyncBar()) EndMove();
}

void TAVUTextEdit::HandlePageUp() {
    HandleUp(DrawnLines);
}

void TAVUTextEdit::HandlePageDown() {
    HandleDown(DrawnLines);
}

// From a line, count lines on (or back) to the one with the number; the
// nearest end when there is no such line.
CTextEditLine* TAVUTextEdit::LineNumbered(CTextEditLine* from, size_t number) const {
    CTextEditLine* line = from;
    while (line && line->LineNumber < number && line->Next)
        line = line->Next;
    while (line && line->LineNumber > number && line->Prev)
        line = line->Prev;
    return line;
}

void TAVUTextEdit::HandleCtrlHome() {
    if (!FirstLine) return;
    BeginMove();
    Caret = ViewStart = TextEditPos{FirstLine, 0};
    ViewEnd = TextEditPos{LineNumbered(FirstLine, VisibleRows), 0};
    if (SyncBar()) EndMove();
}

void TAVUTextEdit::HandleCtrlEnd() {
    if (!LastLine) return;
    BeginMove();
    size_t length = LastLine->Length;
    Caret = TextEditPos{LastLine, length};
    if (ViewStart.Pos + VisibleColumns <= length) ViewStart.Pos = length - VisibleColumns + 1;
    ViewEnd = TextEditPos{LastLine, ViewStart.Pos};
    ViewStart.Line =
        VisibleRows >= LineCount ? FirstLine : LineNumbered(LastLine, LineCount - VisibleRows);
    if (SyncBar()) EndMove();
}

// ---- keyboard ----

bool TAVUTextEdit::OnKeyDown(unsigned key) {
    TAVUElementWatch watch(this);
    bool control = g_UIManager.Control;
    switch (key) {
    case TAVUTextEntry::KeyBackspace:
        HandleBackspace();
        break;
    case TAVUTextEntry::KeyTab:
        TAVUTextEntry::MoveFocus(this);
        return true;
    case TAVUTextEntry::KeyEnter:
    case TAVUTextEntry::KeySeparator:
        HandleEnter();
        break;
    case TAVUTextEntry::KeyEscape:
        break;
    case TAVUTextEntry::KeyPageUp:
        HandlePageUp();
        break;
    case TAVUTextEntry::KeyPageDown:
        HandlePageDown();
        break;
    case TAVUTextEntry::KeyEnd:
        control ? HandleCtrlEnd() : HandleEnd();
        break;
    case TAVUTextEntry::KeyHome:
        control ? HandleCtrlHome() : HandleHome();
        break;
    case TAVUTextEntry::KeyLeft:
        HandleLeft();
        break;
    case TAVUTextEntry::KeyUp:
        HandleUp(1);
        break;
    case TAVUTextEntry::KeyRight:
        HandleRight();
        break;
    case TAVUTextEntry::KeyDown:
        HandleDown(1);
        break;
    case TAVUTextEntry::KeyInsert:
        if (g_UIManager.Shift)
            PasteClipboard();
        else
            InsertMode = !InsertMode;
        break;
    case TAVUTextEntry::KeyDelete:
        HandleDelete();
        break;
    default:
        if (control && key == KeyA) {
            HandleCtrlEnd();
            if (!watch.Alive()) return true;
            SelectionStart = TextEditPos{FirstLine, 0};
            SelectionEnd = Caret;
        } else if (control && key == KeyC) {
            CopySelection();
        } else if (control && key == TAVUTextEntry::KeyV) {
            PasteClipboard();
        } else if (key < 256 && !TypeKey(key)) {
            return false;
        }
    }
    if (!watch.Alive()) return true;
    RepeatKey = key;
    NextRepeat = GetTickCount() + g_UIManager.KeyRepeatDelay;
    TAVUElement::OnKeyDown(key);
    return true;
}

bool TAVUTextEdit::TypeKey(unsigned key) {
    std::string typed;
    if (!TAVUTextEntry::KeyCharacters(key, typed)) return false;
    for (char c : typed)
        InsertCharacter(c);
    return true;
}

bool TAVUTextEdit::OnKeyUp(unsigned key) {
    if (key == RepeatKey) RepeatKey = 0;
    TAVUElement::OnKeyUp(key);
    return true;
}

void TAVUTextEdit::OnKeyboardExit(TAVUElement* next) {
    RepeatKey = 0;
    TAVUElement::OnKeyboardExit(next);
}

// ---- mouse ----

// Rows for hit testing are the height shared out among the visible rows,
// which is not quite the drawing's row step; a point above the first row
// lands on the top line shown. Columns count from the line's first byte,
// whatever the view has scrolled to.
void TAVUTextEdit::GetPositionFromPoint(_Point2i& point, TextEditPos& position) {
    position = TextEditPos{ViewStart.Line, 0};
    if (!ViewStart.Line || LineCount == 0) return;
    int border = int(Border);
    int rowHeight = VisibleRows ? (Height - border - kInset) / int(VisibleRows) : 0;
    if (rowHeight > 0) {
        long long distance = (long long)point.y - (AbsolutePosition.y + border + kInset);
        long long row = distance < 0 ? 0 : distance / rowHeight;
        row += (long long)ViewStart.Line->LineNumber;
        row = std::min(row, (long long)LineCount - 1);
        position.Line = LineNumbered(ViewStart.Line, size_t(row));
    }
    long long pixels = (long long)point.x - (AbsolutePosition.x + border + kInset);
    if (Font && position.Line && position.Line->Text)
        position.Pos = Font->GetCharByOffset(position.Line->Text, size_t(std::max(pixels, 0LL)));
}

bool TAVUTextEdit::OnLMouseDown(_Point2i& point) {
    TAVUElementWatch watch(this);
    g_UIManager.SetFocusElement(this);
    if (!watch.Alive()) return true;
    TextEditPos position;
    GetPositionFromPoint(point, position);
    if (VerticalScrollBar && position.Line)
        VerticalScrollBar->SetValue(LineCount - unsigned(position.Line->LineNumber));
    if (!watch.Alive()) return true;
    Caret.Pos = position.Pos;
    SelectionStart = SelectionEnd = Caret;
    TAVUFrame::OnLMouseDown(point);
    if (watch.Alive()) Dragging = true;
    return true;
}

bool TAVUTextEdit::OnMouseMove(_Point2i& point) {
    if (Dragging) {
        GetPositionFromPoint(point, Caret);
        SelectionEnd = Caret;
    }
    TAVUFrame::OnMouseMove(point);
    return true;
}

bool TAVUTextEdit::OnLMouseUp(_Point2i& point) {
    Dragging = false;
    if (SelectionEnd == SelectionStart) ClearSelection();
    TAVUFrame::OnLMouseUp(point);
    return true;
}

bool TAVUTextEdit::OnMouseWheel(int offset) {
    TAVUElementWatch watch(this);
    long long delta = offset;
    if (VerticalScrollBar) {
        if (delta > 0)
            VerticalScrollBar->RaiseValue(unsigned(delta / kWheelStep));
        else
            VerticalScrollBar->LowerValue(unsigned(-delta / kWheelStep));
    }
    if (watch.Alive()) TAVUFrame::OnMouseWheel(offset);
    return true;
}

// ---- selection and copying ----

bool TAVUTextEdit::SelectedSpan(const CTextEditLine* line, size_t& from, size_t& to) const {
    if (!line || !SelectionStart.Line || !SelectionEnd.Line || SelectionStart == SelectionEnd)
        return false;
    TextEditPos first = SelectionStart, last = SelectionEnd;
    bool swap = first.Line == last.Line ? first.Pos > last.Pos
                                        : first.Line->LineNumber > last.Line->LineNumber;
    if (swap) std::swap(first, last);
    if (line->LineNumber < first.Line->LineNumber || line->LineNumber > last.Line->LineNumber)
        return false;
    from = line == first.Line ? Smaller(first.Pos, line->Length) : 0;
    to = line == last.Line ? Smaller(last.Pos, line->Length) : line->Length;
    if (from > to) from = to;
    return true;
}

// Lines are joined with carriage return and line feed, as the system's
// plain text wants them. An empty selection still opens and empties the
// clipboard, and leaves it open.
void TAVUTextEdit::CopySelection() {
    bool any = SelectionStart.Line && SelectionEnd.Line && !(SelectionStart == SelectionEnd);
    if (!any) {
        if (g_pHost && g_pHost->OpenClipboard()) EmptyClipboard();
        return;
    }
    bool startFirst = SelectionStart.Line->LineNumber <= SelectionEnd.Line->LineNumber;
    CTextEditLine* line = startFirst ? SelectionStart.Line : SelectionEnd.Line;
    std::string text;
    bool firstRow = true;
    for (size_t from = 0, to = 0; line && SelectedSpan(line, from, to); line = line->Next) {
        if (!firstRow) text += "\r\n";
        firstRow = false;
        text.append(line->Text + from, to - from);
    }
    TAVUControlHelpers::PutOnClipboard(text.c_str(), text.size());
}

size_t TAVUTextEdit::TextSize() const {
    size_t size = 1;
    for (CTextEditLine* line = FirstLine; line; line = line->Next)
        size += line->Length + (line->Next ? 1 : 0);
    return size;
}

size_t TAVUTextEdit::CopyText(char* buffer, size_t size) const {
    if (!buffer || size == 0) return 0;
    size_t used = 0;
    for (CTextEditLine* line = FirstLine; line && used + 1 < size; line = line->Next) {
        size_t count = Smaller(line->Length, size - 1 - used);
        memcpy(buffer + used, line->Text, count);
        used += count;
        if (line->Next && used + 1 < size) buffer[used++] = '\n';
    }
    buffer[used] = 0;
    return used;
}

// ---- drawing ----

int TAVUTextEdit::BarWidth() const {
    return VerticalScrollBar ? VerticalScrollBar->Width : 0;
}

size_t TAVUTextEdit::ColumnWidth() const {
    return Font ? Font->GetCharWidth() : 0;
}

// No further than one column past what can show: anything beyond lies past
// the right limit, and measuring it would cost the length of the line.
int TAVUTextEdit::TextWidth(const CTextEditLine* line, size_t start, size_t end) {
    if (!Font || end <= start || start >= line->Length) return 0;
    size_t count = Smaller(Smaller(end, line->Length) - start, VisibleColumns + 1);
    return int(Font->GetTextWidth(line->Text + start, count));
}

void TAVUTextEdit::Render() {
    if (!TAVUTextEntry::RepeatHeldKey(this, RepeatKey, NextRepeat)) return;
    TAVUElementWatch watch(this);
    TAVUFrame::Render();
    if (!watch.Alive() || !Font) return;
    int border = int(Border);
    int fontHeight = int(Font->Height);
    int width = Width - BarWidth();
    int x0 = WrapAdd(AbsolutePosition.x, border + kInset);
    int y = WrapAdd(AbsolutePosition.y, border + kInset);
    int right = WrapAdd(AbsolutePosition.x, width - border);
    int bottom = WrapAdd(AbsolutePosition.y, Height - kInset - border);
    int step = fontHeight + kRowGap;
    int rows = (Height - 2 * border) / step;
    int columnWidth = int(ColumnWidth());
    int columns = columnWidth > 0 ? (width - border - (border + kInset)) / columnWidth : 0;
    VisibleRows = size_t(std::max(rows, 0));
    VisibleColumns = size_t(std::max(columns, 0));
    DrawnLines = 0;
    CTextEditLine* line = ViewStart.Line;
    for (; line && (long long)y + step < bottom; line = line->Next) {
        if (!line->Next) ViewEnd.Line = line;
        ++DrawnLines;
        DrawLine(line, x0, y, right, fontHeight);
        y += step;
    }
    if (line && line->Prev) ViewEnd.Line = line->Prev;
}

// The selection, then the caret's box, then the text over both. The text
// is drawn from the first column shown, cut to what the row can hold.
void TAVUTextEdit::DrawLine(CTextEditLine* line, int x0, int y, int right, int rowHeight) {
    int columnWidth = int(ColumnWidth());
    bool caretHere = line == Caret.Line && IsFocus();
    size_t from = 0, to = 0;
    bool selected = SelectedSpan(line, from, to);
    tagRECT box{x0, y, WrapAdd(x0, columnWidth), WrapAdd(y, rowHeight)};
    unsigned fill = InsertMode ? CaretInnerColor : CaretOuterColor;
    unsigned edge = InsertMode ? CaretOuterColor : CaretInnerColor;
    if (line->Length == 0) {
        if (selected) FillRect(box, SelectionColor);
        if (caretHere) FillRectBordered(box, fill, 1, edge);
        return;
    }
    size_t view = ViewStart.Pos;
    if (selected && to > view) {
        tagRECT span{WrapAdd(x0, TextWidth(line, view, from)), y,
                     std::min(WrapAdd(x0, TextWidth(line, view, to)), right), box.bottom};
        if (span.right > span.left) FillRect(span, SelectionColor);
    }
    if (caretHere) {
        if (Caret.Pos > line->Length) Caret.Pos = line->Length;
        box.left = WrapAdd(x0, TextWidth(line, view, Caret.Pos));
        int under =
            Caret.Pos < line->Length ? TextWidth(line, Caret.Pos, Caret.Pos + 1) : columnWidth;
        box.right = WrapAdd(box.left, under);
        FillRectBordered(box, fill, 1, edge);
    }
    if (line->Length < view) return;
    size_t shown = Smaller(line->Length - view, VisibleColumns + 1);
    if (shown >= kDrawBuffer) {
        DrawTextClipped(Font, line->Text + view, x0, y, right);
        return;
    }
    char part[kDrawBuffer];
    memcpy(part, line->Text + view, shown);
    part[shown] = 0;
    DrawTextClipped(Font, part, x0, y, right);
}
