// "text": a read-only string, with optional word wrap, three horizontal and
// three vertical alignments, and data sequences resolved at every frame.
//
// A literal text is wrapped once, when it is set or the element's size
// changes, and the result is kept in SplitText; a text holding "${" has no
// cache and is resolved, wrapped and drawn afresh at each frame. The text is
// drawn plainly: colour codes are not interpreted here.
#pragma once

#include "TAVUCreateHead.h"
#include "TAVUElement.h"
#include "TAVUFont.h"
#include "eTextAlign.h"

#include <cstddef>

struct _CreateText : _CreateHead {
    const char* Text = nullptr;
    _CreateFont Font{};
    bool Wrap = false;
    eTextAlign HorizontalAlignment = TAVU_ALIGN_LEFT;
    eTextAlign VerticalAlignment = TAVU_ALIGN_LEFT; // 0 stands for top
};

class TAVU_API TAVUText : public TAVUElement {
public:
    // The buffer a text is wrapped and resolved in; longer text is cut to it.
    enum : size_t { BufferSize = 2048 };

    TAVUText(const char* type, TAVUElement* parent, const char* name);

    ~TAVUText() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void RecalculateSize(bool recurse) override;
    void Render() override;
    RXTypeDefinition* GetRXType() override;

    // A text made by code; a null node stands for the template "text".
    void Create(_CreateText& create, XMLNode* node);

    void SetText(const char* text);
    // Stores the flag and wraps the text again.
    void SetWrap(bool wrap);
    // These only store: the next frame draws with the new value.
    void SetHorizontalAlignment(eTextAlign alignment) { HorizontalAlignment = alignment; }
    void SetVerticalAlignment(eTextAlign alignment) { VerticalAlignment = alignment; }

    // Wraps text to this element's width, in place, and answers the number
    // of lines. text must have room for BufferSize bytes.
    size_t Split(char* text);
    // The word wrap of the toolkit, for any width and font: it also reports
    // the widest line in maxWidth, which the caller gives its start value.
    // A null text or font gives 0.
    static size_t Split(char* text, size_t width, TAVUFont* font, size_t& maxWidth);
    // The same by character count, for fixed fonts; 0 columns gives 0.
    static size_t SplitFixed(char* text, size_t columns, size_t& maxColumns);

    // Draws the text; false when the element was deleted while its data
    // sequences were resolved, and must not be touched again.
    bool RenderCustom();
    void RenderLeft(char* text);
    void RenderCenter(char* text);
    void RenderRight(char* text);

    char* Text = nullptr;
    TAVUFont* Font = nullptr;
    bool Wrap = false;
    eTextAlign HorizontalAlignment = TAVU_ALIGN_LEFT;
    eTextAlign VerticalAlignment = TAVU_ALIGN_TOP;
    char* SplitText = nullptr;
    size_t LineCount = 1;

private:
    typedef size_t (TAVUElement::*DrawCall)(TAVUFont*, const char*, int, int, int);
    void RenderAligned(char* text, DrawCall draw);
    void RenderLines(char* text, DrawCall draw, int y, size_t shown);
    // Builds SplitText from Text, unless the text is empty or live.
    void BuildSplitText();
};
