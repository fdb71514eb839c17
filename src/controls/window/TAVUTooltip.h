// "tooltip": a frame that shows lines of colour-coded text and sizes itself
// to them. It is a passive display: its users (the auto tooltip of every
// element, map blips, scripts) decide what it prints, where and when.
//
// The width follows the text one frame late: a frame is drawn with the width
// that the lines measured during the frame before. Nothing here keeps time
// or keeps the box on the screen.
#pragma once

#include "CIndex.h"
#include "TAVUFrame.h"

class TAVUFont;

// One printed line. A line with data sequences is resolved anew at each frame.
class TAVU_API TAVUTooltipLine {
public:
    explicit TAVUTooltipLine(const char* text);
    ~TAVUTooltipLine();
    TAVUTooltipLine(const TAVUTooltipLine&) = delete;
    TAVUTooltipLine& operator=(const TAVUTooltipLine&) = delete;

    void Set(const char* text);
    // The text to draw: the line itself, or its data sequences resolved into
    // one buffer that all lines share, valid until the next Parse.
    const char* Parse();

    char* Text;
    bool HasDataSequence;
};

class TAVU_API TAVUTooltip : public TAVUFrame {
public:
    enum : unsigned { MinimumWidth = 30, PrintfBufferSize = 4096 };

    TAVUTooltip(const char* type, TAVUElement* parent, const char* name);

    ~TAVUTooltip() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    bool OnMouseMove(_Point2i& point) override;
    RXTypeDefinition* GetRXType() override;

    // Adds one line for each piece of text between line feeds: "a\n" gives
    // two lines, the second one empty. Null adds nothing.
    void Print(const char* text);
    // Formats into 4096 bytes (cut there) and prints the result.
    void Printf(const char* format, ...);
    // Deletes every line and leaves its slot empty; the width stays.
    void Reset();

    // The line printed n-th since the last Reset, from 1; null when there is none.
    TAVUTooltipLine* GetLine(unsigned n);

    // The auto tooltip of an element, once per frame: the shared tooltip
    // "Auto Tooltip" shows the element's AutoTooltip text when the pointer
    // has rested on it long enough, and hides when the pointer has left.
    static void UpdateAutoTooltip(TAVUElement* element);

    TAVUFont* Font = nullptr;
    CIndex<TAVUTooltipLine*> Lines;
    unsigned LineCount = 0;

protected:
    void AddLine(const char* text);

private:
    // Draws the lines and answers the width they need; false in gone means
    // that a data sequence deleted the tooltip.
    unsigned DrawLines(bool& gone);
};
