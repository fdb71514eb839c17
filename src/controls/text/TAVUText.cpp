#include "TAVUText.h"

#include "CUIManager.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUScriptTypes.h"
#include "XMLHelper.h"

#include <cstring>

namespace {
const char kTypeWord[] = "text";
const size_t kScratchLimit = TAVUText::BufferSize - 1;
const size_t kNone = size_t(-1);

bool IsLive(const char* text) {
    return text && strstr(text, "${");
}

// The wrap writes into a scratch buffer that stops BufferSize - 1 bytes in,
// then copies the result back over the text. A line may run past the width
// by one character: the test stands before the character is added.
class LineBreaker {
public:
    explicit LineBreaker(char* text) : Text(text), In(text) {}

    // The character under the input, 0 at the end or once the output is full.
    char Next() const { return Full ? 0 : *In; }

    // Copies the character and steps over it; a blank is remembered as the
    // place where the line may break later.
    void Copy() {
        if (*In == ' ') {
            SpaceOut = Out;
            SpaceIn = In;
        }
        Put(*In++);
    }
    void CopyLineFeed() {
        Put(*In++);
        ++Lines;
        SpaceOut = kNone;
    }
    // A full line: a blank is dropped; else the line breaks at its last blank
    // and the word behind it moves down; else the word itself is broken.
    void Break() {
        if (*In == ' ') {
            ++In;
        } else if (SpaceOut != kNone) {
            Out = SpaceOut;
            In = SpaceIn + 1;
        }
        Put('\n');
        ++Lines;
        SpaceOut = kNone;
    }
    size_t Finish() {
        Scratch[Out] = 0;
        memcpy(Text, Scratch, Out + 1);
        return Lines;
    }

private:
    void Put(char c) {
        Scratch[Out++] = c;
        if (Out >= kScratchLimit) Full = true;
    }

    char* Text;
    const char* In;
    char Scratch[TAVUText::BufferSize];
    size_t Out = 0;
    size_t SpaceOut = kNone;
    const char* SpaceIn = nullptr;
    size_t Lines = 1;
    bool Full = false;
};

size_t CharWidth(TAVUFont* font, char c) {
    char one[2] = {c, 0};
    return font->GetTextWidth(one);
}

// The pixel width of one blank; a font that claims none counts as one pixel
// wide, so that a column count never divides by zero.
size_t BlankWidth(TAVUFont* font) {
    size_t width = font->GetTextWidth(" ");
    return width ? width : 1;
}

void Widen(size_t& widest, size_t width) {
    if (width >= widest) widest = width;
}

size_t SplitProportional(char* text, size_t limit, TAVUFont* font, size_t& maxWidth) {
    LineBreaker lines(text);
    size_t width = 0;
    for (char c = lines.Next(); c; c = lines.Next()) {
        if (c == '\n') {
            Widen(maxWidth, width);
            lines.CopyLineFeed();
            width = 0;
        } else if (width < limit) {
            width += CharWidth(font, c);
            lines.Copy();
        } else {
            lines.Break();
            maxWidth = width;
            width = 0;
        }
    }
    Widen(maxWidth, width);
    return lines.Finish();
}
} // namespace

TAVUFactory<TAVUText> g_TAVUTextFactory(kTypeWord);

TAVUText::TAVUText(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

TAVUText::~TAVUText() {
    TAVUFont::Delete(Font);
    StrFree(Text);
    StrFree(SplitText);
}

bool TAVUText::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    Wrap = TAVUControlHelpers::ReadToggle(node, templateNode, "Wrap", false);
    const char* alignment = TAVUControlHelpers::ReadString(node, templateNode, "Alignment");
    if (StrCompareNoCase(alignment, "center") == 0)
        HorizontalAlignment = TAVU_ALIGN_CENTER;
    else if (StrCompareNoCase(alignment, "right") == 0)
        HorizontalAlignment = TAVU_ALIGN_RIGHT;
    const char* vertical = TAVUControlHelpers::ReadString(node, templateNode, "VerticalAlignment");
    if (StrCompareNoCase(vertical, "center") == 0)
        VerticalAlignment = TAVU_ALIGN_VCENTER;
    else if (StrCompareNoCase(vertical, "bottom") == 0)
        VerticalAlignment = TAVU_ALIGN_BOTTOM;
    SetText(TAVUControlHelpers::ReadString(node, templateNode, "Text"));
    return true;
}

bool TAVUText::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUText::Create(_CreateText& create, XMLNode* node) {
    TAVUApplyCreateHead(this, create);
    if (!node) node = g_UIManager.FindTemplate(kTypeWord);
    HorizontalAlignment = create.HorizontalAlignment;
    VerticalAlignment =
        create.VerticalAlignment == TAVU_ALIGN_LEFT ? TAVU_ALIGN_TOP : create.VerticalAlignment;
    Wrap = create.Wrap;
    TAVUFont::Delete(Font);
    Font = TAVUFont::New(this, create.Font, node);
    if (create.Text && create.Text[0]) SetText(create.Text);
}

void TAVUText::SetText(const char* text) {
    StrFree(Text);
    StrFree(SplitText);
    SplitText = nullptr;
    Text = StrDuplicate(text);
    BuildSplitText();
}

// The breaks are made whether or not Wrap is set: Wrap only decides at each
// frame whether they are used.
void TAVUText::BuildSplitText() {
    if (!Text || !Text[0] || IsLive(Text)) return;
    char buffer[BufferSize];
    StrCopyBounded(buffer, Text, sizeof(buffer));
    LineCount = Split(buffer);
    StrFree(SplitText);
    SplitText = StrDuplicate(buffer);
}

void TAVUText::SetWrap(bool wrap) {
    Wrap = wrap;
    RecalculateSize(false);
}

// Rebuilt at every call, since the width may have changed.
void TAVUText::RecalculateSize(bool recurse) {
    TAVUElement::RecalculateSize(recurse);
    if (SplitText) BuildSplitText();
}

size_t TAVUText::Split(char* text) {
    if (!text || !Font) return 1;
    size_t width = size_t(unsigned(Width));
    size_t widest = 0;
    if (Font->IsFixedFont()) return SplitFixed(text, width / BlankWidth(Font), widest);
    return SplitProportional(text, width, Font, widest);
}

size_t TAVUText::Split(char* text, size_t width, TAVUFont* font, size_t& maxWidth) {
    if (!text || !font) return 0;
    if (!font->IsFixedFont()) return SplitProportional(text, width, font, maxWidth);
    size_t blank = BlankWidth(font);
    size_t lines = SplitFixed(text, width / blank, maxWidth);
    maxWidth *= blank;
    return lines;
}

// The same rule as the proportional wrap, with its tests in another order:
// the break comes when the count reaches the columns, before the character.
size_t TAVUText::SplitFixed(char* text, size_t columns, size_t& maxColumns) {
    if (columns == 0 || !text) return 0;
    LineBreaker lines(text);
    size_t count = 0;
    for (char c = lines.Next(); c; c = lines.Next()) {
        if (c == '\n') {
            Widen(maxColumns, count);
            lines.CopyLineFeed();
            count = 0;
        } else if (count == columns) {
            lines.Break();
            maxColumns = columns;
            count = 0;
        } else {
            lines.Copy();
            ++count;
        }
    }
    Widen(maxColumns, count);
    return lines.Finish();
}

void TAVUText::Render() {
    if (RenderCustom()) TAVUElement::Render();
}

// A live text runs the host's data sequences, and any script they run may
// delete this very element: it is watched, and gone means hands off.
bool TAVUText::RenderCustom() {
    if (!Text || !Text[0]) return true;
    char buffer[BufferSize];
    char* text = SplitText;
    if (!text) {
        TAVUElementWatch watch(this);
        buffer[0] = 0;
        g_pHost->ParseDataSequences(Text, buffer, sizeof(buffer));
        if (!watch.Alive()) return false;
        buffer[sizeof(buffer) - 1] = 0;
        if (!buffer[0]) return true;
        text = buffer;
    }
    switch (HorizontalAlignment) {
    case TAVU_ALIGN_LEFT:
        RenderLeft(text);
        break;
    case TAVU_ALIGN_CENTER:
        RenderCenter(text);
        break;
    case TAVU_ALIGN_RIGHT:
        RenderRight(text);
        break;
    default:
        break; // a vertical value set as horizontal draws nothing
    }
    return true;
}

void TAVUText::RenderLeft(char* text) {
    RenderAligned(text, static_cast<DrawCall>(&TAVUElement::DrawTextClipped));
}

void TAVUText::RenderCenter(char* text) {
    RenderAligned(text, static_cast<DrawCall>(&TAVUElement::DrawTextCenter));
}

void TAVUText::RenderRight(char* text) {
    RenderAligned(text, static_cast<DrawCall>(&TAVUElement::DrawTextRight));
}

// An element less than two lines high shows its text as one line, breaks
// and all; so does a text that wraps to a single line.
void TAVUText::RenderAligned(char* text, DrawCall draw) {
    int fontHeight = Font ? int(Font->Height) : 0;
    int lineHeight = fontHeight + 1;
    int top = AbsolutePosition.y;
    if (Wrap && Height / lineHeight >= 2) {
        size_t maxLines = size_t(Height / lineHeight);
        if (!SplitText) LineCount = Split(text);
        if (LineCount >= 2) {
            size_t shown = LineCount < maxLines ? LineCount : maxLines;
            int block = int(unsigned(lineHeight) * unsigned(shown));
            if (VerticalAlignment == TAVU_ALIGN_TOP)
                RenderLines(text, draw, top, shown);
            else if (VerticalAlignment == TAVU_ALIGN_VCENTER)
                RenderLines(text, draw, WrapAdd(top, WrapSubtract(Height, block) >> 1), shown);
            else if (VerticalAlignment == TAVU_ALIGN_BOTTOM)
                RenderLines(text, draw, WrapAdd(top, WrapSubtract(Height, block)), shown);
            return;
        }
    }
    int right = WrapAdd(AbsolutePosition.x, Width);
    int y;
    if (VerticalAlignment == TAVU_ALIGN_TOP)
        y = top;
    else if (VerticalAlignment == TAVU_ALIGN_VCENTER)
        y = WrapAdd(top, WrapSubtract(Height, fontHeight) >> 1);
    else if (VerticalAlignment == TAVU_ALIGN_BOTTOM)
        y = WrapAdd(top, WrapSubtract(Height, fontHeight));
    else
        return;
    (this->*draw)(Font, text, AbsolutePosition.x, y, right);
}

// Each line is cut off at its line feed for the drawing call and the byte is
// put back at once: the text may be the cached SplitText. Empty lines keep
// their row.
void TAVUText::RenderLines(char* text, DrawCall draw, int y, size_t shown) {
    int right = WrapAdd(AbsolutePosition.x, Width);
    int lineHeight = (Font ? int(Font->Height) : 0) + 1;
    char* line = text;
    for (size_t drawn = 0; line && drawn < shown; ++drawn) {
        char* end = strchr(line, '\n');
        if (end) *end = 0;
        (this->*draw)(Font, line, AbsolutePosition.x, y, right);
        if (end) *end = '\n';
        line = end ? end + 1 : nullptr;
        y = WrapAdd(y, lineHeight);
    }
}

RXTypeDefinition* TAVUText::GetRXType() {
    return pTAVUTextType;
}
