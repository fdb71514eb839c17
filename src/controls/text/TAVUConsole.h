// "console": a scroll-back window of text on a fixed-pitch font. Lines go
// into a ring of BackBufferSize slots, wrapped at the console's columns, and
// the newest overwrites the oldest once the ring is full. A vertical scroll
// bar (a child) tells how many lines the view lies behind the live end; a drag
// selects a rectangle of characters that is copied on release.
//
// What is easy to get wrong: the view is a slot of the ring, not a distance,
// so new lines do not move a scrolled-back view; they only overwrite it in
// time. And a frame looks at the visible slots only, never at the whole ring.
#pragma once

#include "TAVUElement.h"

class TAVUScrollBar;

class TAVU_API TAVUConsole : public TAVUElement {
public:
    // The longest line a console keeps: longer text is cut there.
    enum : unsigned { LineBufferSize = 2048, PrintfBufferSize = 4096, MinimumBackBuffer = 100 };

    TAVUConsole(const char* type, TAVUElement* parent, const char* name);

    ~TAVUConsole() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    bool OnLMouseDown(_Point2i& point) override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnMouseMove(_Point2i& point) override;
    bool OnMouseWheel(int offset) override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    void Render() override;
    void SizeRecalculated(bool changed) override;
    RXTypeDefinition* GetRXType() override;

    // Moves on the scroll bar, for a command entry's paging keys.
    virtual void HandlePageUp();
    // With Control held: straight back to the live end.
    virtual void HandlePageDown();
    virtual void HandleUp();
    virtual void HandleDown();
    // Stores one finished line in the next slot of the ring.
    virtual void AddLineInternal(char* line);

    // Wraps text at the console's columns and adds its lines.
    void Print(const char* text);
    void Printf(const char* format, ...);
    void Clear();
    // Clamped to 8..96.
    void SetFontSize(unsigned size);
    // Adds the lines of text broken at columns, preferring to break at a blank.
    void SplitFixed(char* text, size_t columns);
    // Moves a screen point onto the character grid.
    void SnapToGrid(_Point2i& point);
    // Puts the selected characters, without colour codes, on the clipboard.
    void CopySelection();

    TAVUFixedFont* Font = nullptr;
    unsigned Border = 0;
    unsigned BorderColor = 0;
    unsigned ScrollbackColor = 0;
    unsigned BackgroundColor = 0;
    unsigned SelectionColor = 0;
    TAVUTexture* Texture = nullptr;
    TAVUTexture* ScrollbackTexture = nullptr;
    int BackBufferSize = 500;
    char** Lines = nullptr;
    int LastLine = -1;
    TAVUScrollBar* ScrollBar = nullptr;
    int ViewLine = -1;
    int VisibleLines = 15;
    bool Selecting = false;
    tagRECT Selection{0, 0, 0, 0};

private:
    bool LoadScrollBar(XMLNode* node, XMLNode* templateNode);
    void AllocateLines();
    void FreeLines();
    // A slot index brought back into the ring by one turn either way.
    int WrapSlot(int slot) const;
    int ScrollBarWidth() const;
    int LineHeight() const;
    int CharWidth() const;
    void DrawBackground(tagRECT& rect, bool live);
    // Draws the visible lines that end at the slot, top to bottom.
    void DrawLines(int lastSlot, tagRECT& rect);
    void ExtendSelection(_Point2i& point);
    void FocusInput();
};
