// "textedit": the multi-line editor. A doubly linked list of lines on a fixed
// font, with a caret, a selection, a vertical scroll bar (a child) and
// horizontal scrolling by columns. No wrap: one line of text is one row.
//
// The scroll bar runs upside down: its value for a line is LineCount minus
// the line's number, so the top of the text has the highest value, and a
// change of the bar's value moves the caret to the line it names.
//
// Editing keeps to the caret: typing, Backspace and Delete never remove a
// selected range, and the editor sends no change event. Pasting does nothing.
// A frame walks from the top line shown and draws only the rows that fit;
// typing touches the caret's line alone.
#pragma once

#include "CTextEditLine.h"
#include "TAVUFrame.h"

class TAVUFixedFont;
class TAVUScrollBar;

class TAVU_API TAVUTextEdit : public TAVUFrame {
public:
    TAVUTextEdit(const char* type, TAVUElement* parent, const char* name);

    ~TAVUTextEdit() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    bool OnKeyDown(unsigned key) override;
    bool OnKeyUp(unsigned key) override;
    void OnKeyboardExit(TAVUElement* next) override;
    bool OnLMouseDown(_Point2i& point) override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnMouseMove(_Point2i& point) override;
    bool OnMouseWheel(int offset) override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    void Render() override;
    RXTypeDefinition* GetRXType() override;

    // Added to the table of functions, in this order.
    virtual void SetText(const char* text);
    virtual void AddText(const char* text);
    virtual void AddLine(const char* text);
    virtual void InsertText(TextEditPos& position, const char* text); // does nothing
    virtual CTextEditLine* InsertLineAfter(CTextEditLine* after, const char* text);
    virtual void RemoveLine(CTextEditLine* line, bool moveUp);
    virtual void InsertCharacter(char c);
    virtual void HandleBackspace();
    virtual void HandleDelete();
    virtual void HandleEnter();
    virtual void HandleUp(unsigned int count);
    virtual void HandleDown(unsigned int count);
    virtual void HandleLeft();
    virtual void HandleRight();
    virtual void HandlePageUp();
    virtual void HandlePageDown();
    virtual void HandleHome();
    virtual void HandleEnd();
    virtual void HandleCtrlHome();
    virtual void HandleCtrlEnd();
    virtual void PasteClipboard(); // does nothing
    virtual void CopySelection();
    virtual void GetPositionFromPoint(_Point2i& point, TextEditPos& position);
    virtual void Clear();

    // The selected bytes of one line, from <= to; false when none are.
    bool SelectedSpan(const CTextEditLine* line, size_t& from, size_t& to) const;
    // The whole text, lines joined by line feeds: for hosts and tests that
    // read an editor back, since scripts have no member that gives it.
    size_t CopyText(char* buffer, size_t size) const;
    // The bytes CopyText needs, the terminator included.
    size_t TextSize() const;

    TAVUFixedFont* Font = nullptr;
    unsigned SelectionColor = 0;
    unsigned CaretOuterColor = 0;
    unsigned CaretInnerColor = 0;
    TAVUTexture* CaretTexture = nullptr;          // owned; read and kept, not drawn
    TAVUTexture* CaretOverwriteTexture = nullptr; // owned; read and kept, not drawn
    CTextEditLine* FirstLine = nullptr;
    CTextEditLine* LastLine = nullptr;
    bool InsertMode = true; // only swaps the caret's two colours
    size_t VisibleRows = 0;
    size_t VisibleColumns = 0;
    TextEditPos SelectionStart; // a null line: no selection
    TextEditPos SelectionEnd;
    TextEditPos Caret;
    TextEditPos ViewStart; // the top line shown, and the first column shown
    TextEditPos ViewEnd;   // the last line shown
    unsigned RepeatKey = 0;
    unsigned NextRepeat = 0;
    unsigned DrawnLines = 0;
    TAVUScrollBar* VerticalScrollBar = nullptr;
    unsigned LineCount = 0;
    bool Dragging = false;

private:
    bool LoadScrollBar(XMLNode* node, XMLNode* templateNode);
    // Each false when a script run by the bar's change deleted the editor.
    bool SetBarRange();
    bool SyncBar();
    void BeginMove();
    void EndMove();
    void ClearSelection();
    // Up (or down) count lines while there are any, the view following.
    void MoveLines(unsigned count, bool down);
    void Renumber(CTextEditLine* from, size_t first);
    // Points the caret, view and selection that stand on a line about to go
    // somewhere else; the selection is dropped.
    void LeaveLine(CTextEditLine* line, bool moveUp);
    CTextEditLine* LineNumbered(CTextEditLine* from, size_t number) const;
    bool TypeKey(unsigned key);
    int BarWidth() const;
    size_t ColumnWidth() const;
    // The width of count bytes of text from start, measured no further than
    // the columns that can show.
    int TextWidth(const CTextEditLine* line, size_t start, size_t end);
    void DrawLine(CTextEditLine* line, int x0, int y, int right, int rowHeight);
};
