// The colour drawing primitives of every element. Each builds its host call on
// the stack; nothing is queued, and the host draws at once.
#include "TAVUElement.h"

#include "CUIManager.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "TAVUColoredText.h"
#include "TAVUFont.h"
#include "TAVUScreen.h"
#include "TAVUTexture.h"
#include "TAVUTexturedRect.h"

#include <cstdint>
#include <new>

namespace {
// The alpha byte of a colour scaled by an element's alpha, capped at a byte.
uint8_t ScaledAlpha(unsigned color, float currentAlpha) {
    float scaled = (float(color >> 24) / 255.0f) * currentAlpha * 255.0f;
    if (scaled > 255.0f) return 255;
    return uint8_t(TruncateToInt(scaled));
}
} // namespace

unsigned TAVUElement::AdjustColorAlpha(unsigned color) {
    return (unsigned(ScaledAlpha(color, CurrentAlpha)) << 24) | (color & 0x00FFFFFFu);
}

// Wholly left of or above the screen, or starting beyond its size. A rectangle
// that starts exactly at the screen's width still goes to the host.
bool TAVUElement::IsOffScreen(const tagRECT& rect) {
    TAVUScreen* screen = g_UIManager.Screen;
    if (rect.right < 0 || rect.bottom < 0) return true;
    return screen && (rect.left > screen->Width || rect.top > screen->Height);
}

bool TAVUElement::FillRect(tagRECT& rect, unsigned color) {
    if (IsOffScreen(rect)) return true;
    return g_pHost->FillRect(&rect, AdjustColorAlpha(color));
}

// Top, left, right and bottom strips, in that order; the sides run between
// the top and bottom strips. Like all screen arithmetic the sums wrap: a
// border of any width, even one wider than the rectangle, gives four
// rectangles and no overflow.
bool TAVUElement::FillBorderStrips(const tagRECT& rect, unsigned width, unsigned color) {
    int w = int(width);
    tagRECT inside = InsetRect(rect, w);
    tagRECT strips[4] = {
        {rect.left, rect.top, rect.right, inside.top},
        {rect.left, inside.top, inside.left, inside.bottom},
        {inside.right, inside.top, rect.right, inside.bottom},
        {rect.left, inside.bottom, rect.right, rect.bottom},
    };
    bool result = true;
    for (tagRECT& strip : strips)
        result = g_pHost->FillRect(&strip, color);
    return result;
}

bool TAVUElement::FillRectBordered(tagRECT& rect, unsigned color, unsigned borderWidth,
                                   unsigned borderColor) {
    if (IsOffScreen(rect)) return true;
    if (borderWidth == 0) return g_pHost->FillRect(&rect, AdjustColorAlpha(color));
    FillBorderStrips(rect, borderWidth, AdjustColorAlpha(borderColor));
    tagRECT inside = InsetRect(rect, int(borderWidth));
    return g_pHost->FillRect(&inside, AdjustColorAlpha(color));
}

bool TAVUElement::DrawBorder(tagRECT& rect, unsigned width, unsigned color) {
    FillBorderStrips(rect, width, AdjustColorAlpha(color));
    return true;
}

// The record's Alpha comes from the scaled alpha byte times 255, cut to its
// low byte: full alpha gives 1. Hosts rely on that value as it stands.
bool TAVUElement::DrawLine(_Line& line, unsigned color, unsigned width) {
    TAVUDrawRecord record{};
    record.Flags = TAVUDrawRecord::HasAlpha | TAVUDrawRecord::HasColorMask;
    SetLineEnds(record, line);
    record.Texture = TAVUDrawRecord::NoTexture;
    record.Orientation = 0;
    record.ColorMask = color;
    float alpha = float(ScaledAlpha(color, CurrentAlpha)) * 255.0f;
    record.Alpha = uint8_t(TruncateToInt(alpha));
    return g_pHost->DrawLine(&record, width);
}

// One record for a batch: only the end points change from line to line.
void TAVUElement::DrawLineRecords(TAVUDrawRecord& record, _Line* lines, unsigned count,
                                  unsigned width) {
    for (unsigned i = 0; i < count; ++i) {
        SetLineEnds(record, lines[i]);
        g_pHost->DrawLine(&record, width);
    }
}

void TAVUElement::SetLineEnds(TAVUDrawRecord& record, const _Line& line) {
    record.Left = line.x1;
    record.Top = line.y1;
    record.Right = line.x2;
    record.Bottom = line.y2;
}

bool TAVUElement::DrawLines(_Line* lines, unsigned count, unsigned color, unsigned width) {
    if (count == 0) return true;
    if (!lines) return false;
    TAVUDrawRecord record{};
    record.Flags = TAVUDrawRecord::HasColorMask;
    record.Texture = TAVUDrawRecord::NoTexture;
    record.ColorMask = AdjustColorAlpha(color);
    DrawLineRecords(record, lines, count, width);
    return true;
}

// The texture's part of a record: its flags with alpha on, its source
// rectangle, handle, alpha, orientation and colour mask.
void TAVUElement::FillTextureRecord(TAVUDrawRecord& record, TAVUTexture* texture) {
    record.Flags = texture->Flags | TAVUDrawRecord::HasAlpha;
    record.TextureLeft = texture->Left;
    record.TextureTop = texture->Top;
    record.TextureRight = texture->Right;
    record.TextureBottom = texture->Bottom;
    record.Texture = texture->Texture;
    // No cap here, unlike colours: the low byte of the product.
    record.Alpha = uint8_t(TruncateToInt(CurrentAlpha * texture->Alpha * 255.0f));
    record.Orientation = texture->Orientation;
    record.ColorMask = texture->ColorMask;
}

bool TAVUElement::DrawLine(_Line& line, TAVUTexture* texture, unsigned width) {
    if (!texture || !texture->Prepare()) return false;
    TAVUDrawRecord record{};
    FillTextureRecord(record, texture);
    SetLineEnds(record, line);
    return g_pHost->DrawLine(&record, width);
}

bool TAVUElement::DrawLines(_Line* lines, unsigned count, TAVUTexture* texture, unsigned width) {
    if (!texture || !texture->Prepare()) return false;
    if (count == 0) return true;
    if (!lines) return false;
    TAVUDrawRecord record{};
    FillTextureRecord(record, texture);
    DrawLineRecords(record, lines, count, width);
    return true;
}

// The source rectangle is passed as it stands: a texture that never had its
// size taken passes zeros, with the rectangle flag clear.
bool TAVUElement::TexturedRect(tagRECT& rect, TAVUTexture* texture) {
    if (!texture || !texture->Prepare()) return false;
    TAVUDrawRecord record{};
    FillTextureRecord(record, texture);
    record.Left = rect.left;
    record.Top = rect.top;
    record.Right = rect.right;
    record.Bottom = rect.bottom;
    return g_pHost->TexturedRect(&record);
}

namespace {
// The three spans of one side cut at `edge` from both ends.
void SplitSpan(LONG from, LONG to, LONG edge, LONG cuts[4]) {
    cuts[0] = from;
    cuts[1] = WrapAdd(from, edge);
    cuts[2] = WrapSubtract(to, edge);
    cuts[3] = to;
}

// The cuts of a nine-cell draw: the destination's and the texture's.
struct CellCuts {
    LONG Columns[4], Rows[4], SourceColumns[4], SourceRows[4];
};

// For each destination cell (row * 3 + column), the source cell that shows
// there, so that the nine cells, each turned by the host, assemble the texture
// turned as a whole: 1 a quarter turn clockwise, 2 a half turn, 3 three
// quarters. Any other orientation draws the cells in place.
constexpr uint8_t kSourceCells[4][9] = {
    {0, 1, 2, 3, 4, 5, 6, 7, 8},
    {6, 3, 0, 7, 4, 1, 8, 5, 2},
    {8, 7, 6, 5, 4, 3, 2, 1, 0},
    {2, 5, 8, 1, 4, 7, 0, 3, 6},
};

// One turn per instance, so that every cell's source is known when compiling
// and the nine records are written straight, field by field. (Building one
// record and copying it nine times read back, in wide loads, the narrow
// stores that had just built it: the processor stalled on every cell.)
template <int Turn>
void FillCells(TAVUDrawRecord (&cells)[9], const TAVUDrawRecord& shared, const CellCuts& cuts) {
    for (int cell = 0; cell < 9; ++cell) {
        int column = cell % 3, row = cell / 3;
        int sourceColumn = kSourceCells[Turn][cell] % 3, sourceRow = kSourceCells[Turn][cell] / 3;
        TAVUDrawRecord& out = cells[cell];
        out.Flags = shared.Flags;
        out.Left = cuts.Columns[column];
        out.Top = cuts.Rows[row];
        out.Right = cuts.Columns[column + 1];
        out.Bottom = cuts.Rows[row + 1];
        out.TextureLeft = cuts.SourceColumns[sourceColumn];
        out.TextureTop = cuts.SourceRows[sourceRow];
        out.TextureRight = cuts.SourceColumns[sourceColumn + 1];
        out.TextureBottom = cuts.SourceRows[sourceRow + 1];
        out.Texture = shared.Texture;
        out.Alpha = shared.Alpha;
        out.Orientation = shared.Orientation;
        out.Reserved[0] = 0;
        out.Reserved[1] = 0;
        out.ColorMask = shared.ColorMask;
    }
}
} // namespace

bool TAVUElement::TexturedRectBordered(tagRECT& rect, TAVUTexture* texture, unsigned width) {
    if (!texture || !texture->PrepareWithSize()) return false;
    if (width == 0 || texture->Border == 0) return TexturedRect(rect, texture);
    TAVUDrawRecord shared;
    FillTextureRecord(shared, texture);
    CellCuts cuts;
    SplitSpan(rect.left, rect.right, LONG(width), cuts.Columns);
    SplitSpan(rect.top, rect.bottom, LONG(width), cuts.Rows);
    SplitSpan(texture->Left, texture->Right, LONG(texture->Border), cuts.SourceColumns);
    SplitSpan(texture->Top, texture->Bottom, LONG(texture->Border), cuts.SourceRows);
    TAVUDrawRecord cells[9];
    switch (shared.Orientation) {
    case 1:
        FillCells<1>(cells, shared, cuts);
        break;
    case 2:
        FillCells<2>(cells, shared, cuts);
        break;
    case 3:
        FillCells<3>(cells, shared, cuts);
        break;
    default:
        FillCells<0>(cells, shared, cuts);
        break;
    }
    return g_pHost->TexturedRects(9, cells);
}

namespace {
// A batch up to this size goes to the host from the stack; only a larger one
// is allocated, and freed after the call.
constexpr unsigned kStackBatch = 16;
} // namespace

bool TAVUElement::TexturedRects(unsigned count, TAVUTexturedRect* rects) {
    if (!rects) return false;
    if (count == 0) return true;
    for (unsigned i = 0; i < count; ++i)
        if (!rects[i].Texture || !rects[i].Texture->Prepare()) return false;
    TAVUDrawRecord onStack[kStackBatch];
    TAVUDrawRecord* records =
        count <= kStackBatch ? onStack : new (std::nothrow) TAVUDrawRecord[count];
    if (!records) return false;
    for (unsigned i = 0; i < count; ++i) {
        const TAVUTexturedRect& entry = rects[i];
        TAVUDrawRecord& record = records[i];
        record = TAVUDrawRecord{};
        record.Flags = entry.Flags;
        record.Left = entry.Rect.left;
        record.Top = entry.Rect.top;
        record.Right = entry.Rect.right;
        record.Bottom = entry.Rect.bottom;
        record.TextureLeft = entry.TextureRect.left;
        record.TextureTop = entry.TextureRect.top;
        record.TextureRight = entry.TextureRect.right;
        record.TextureBottom = entry.TextureRect.bottom;
        record.Texture = entry.Texture->Texture;
        record.Alpha = entry.Alpha;
        record.ColorMask = entry.ColorMask;
        record.Orientation = entry.Orientation;
    }
    bool result = g_pHost->TexturedRects(count, records);
    if (records != onStack) delete[] records;
    return result;
}

int TAVUElement::RightEdge() const {
    return int(unsigned(AbsolutePosition.x) + unsigned(Width));
}

size_t TAVUElement::DrawText(TAVUFont* font, const char* text, int x, int y) {
    return font ? font->Draw(text, x, y, 0) : 0;
}

// The unclipped-width form: the first (left) form does not refuse an empty text.
size_t TAVUElement::DrawTextClipped(TAVUFont* font, const char* text, int x, int y) {
    int right = RightEdge();
    if (!font || x >= right) return 0;
    return font->Draw(text, x, y, size_t(int64_t(right) - int64_t(x)));
}

size_t TAVUElement::DrawTextClipped(TAVUFont* font, const char* text, int x, int y, int right) {
    return font ? font->DrawClipped(text, x, y, right) : 0;
}

size_t TAVUElement::DrawTextCenter(TAVUFont* font, const char* text, int x, int y) {
    return DrawTextCenter(font, text, x, y, RightEdge());
}

size_t TAVUElement::DrawTextCenter(TAVUFont* font, const char* text, int x, int y, int right) {
    return font ? font->DrawCenterClipped(text, x, y, right) : 0;
}

size_t TAVUElement::DrawTextRight(TAVUFont* font, const char* text, int x, int y) {
    return DrawTextRight(font, text, x, y, RightEdge());
}

size_t TAVUElement::DrawTextRight(TAVUFont* font, const char* text, int x, int y, int right) {
    return font ? font->DrawRightClipped(text, x, y, right) : 0;
}

size_t TAVUElement::DrawColoredText(TAVUFont* font, const char* text, int x, int y) {
    return TAVUColoredText::Draw(font, text, x, y);
}

size_t TAVUElement::DrawColoredTextClipped(TAVUFont* font, const char* text, int x, int y,
                                           int right) {
    return TAVUColoredText::DrawClipped(font, text, x, y, right);
}
