#include "TAVUGaugeFiller.h"

#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUFactory.h"
#include "TAVUGauge.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

#include <algorithm>
#include <cstdint>

namespace {
const char kTypeWord[] = "gaugefiller";

// One fraction-of-the-parent value, measured inside the gauge's border: the
// span is the parent's size less the border (as unsigned sums, like every
// size here), and the result is moved by offset. The product is truncated
// through TruncateToInt: a huge or undefined product gives its one fixed
// integer, never undefined behaviour.
bool ResolveInside(int& value, const ElementPosition& position, unsigned span, unsigned offset) {
    if (position.Type != ElementPosition::Fraction) return false;
    int resolved = WrapAdd(TruncateToInt(float(span) * position.Value.Factor), int(offset));
    bool changed = resolved != value;
    value = resolved;
    return changed;
}

// The source rectangle of a texture as the fill found it; the fill crops it
// for one frame and puts it back, so that no frame allocates a copy.
struct SourceRect {
    explicit SourceRect(TAVUTexture& texture)
        : Texture(texture), Left(texture.Left), Top(texture.Top), Right(texture.Right),
          Bottom(texture.Bottom), Flags(texture.Flags) {}
    ~SourceRect() {
        Texture.Left = Left;
        Texture.Top = Top;
        Texture.Right = Right;
        Texture.Bottom = Bottom;
        Texture.Flags = Flags;
    }
    TAVUTexture& Texture;
    int Left, Top, Right, Bottom;
    unsigned Flags;
};

// Keeps the share of the source's width that ratio says, from its left edge.
void CropRight(TAVUTexture& texture, float ratio) {
    float width = float(WrapSubtract(texture.Right, texture.Left));
    texture.Right = WrapAdd(texture.Left, TruncateToInt(width * ratio));
}

// Moves a bar's edge along its direction of growth: right, or up for a
// vertical bar.
int Grow(int edge, int by, bool vertical) {
    return vertical ? WrapSubtract(edge, by) : WrapAdd(edge, by);
}
} // namespace

TAVUFactory<TAVUGaugeFiller> g_TAVUGaugeFillerFactory(kTypeWord);

TAVUGaugeFiller::TAVUGaugeFiller(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {
    Visible = true;
    if (!parent || !parent->IsTypeOf("gauge")) return;
    Gauge = static_cast<TAVUGauge*>(parent);
    Vertical = Gauge->Vertical;
    Range = Gauge->Range;
    SetValue(Gauge->Value);
}

TAVUGaugeFiller::~TAVUGaugeFiller() {
    if (Gauge && Gauge->Filler == this) Gauge->Filler = nullptr;
    TAVUTexture::Delete(Texture);
}

bool TAVUGaugeFiller::FromXML(XMLNode*, XMLNode*) {
    return false;
}

bool TAVUGaugeFiller::LoadFiller(XMLNode* node) {
    XMLNode* templateNode = TAVUControlHelpers::ResolveTemplate(node, nullptr, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    unsigned border = Gauge ? Gauge->Border : 0;
    if (XPosition.Type == ElementPosition::Absolute) X = WrapAdd(X, int(border));
    if (YPosition.Type == ElementPosition::Absolute) Y = WrapAdd(Y, int(border));
    Repeat = TAVUControlHelpers::ReadInt(node, templateNode, "Repeat", 0);
    if (Repeat == 0) Repeat = 1;
    TAVUTexture::Delete(Texture);
    Texture = TextureFromXML(node, "Texture", templateNode);
    TAVUControlHelpers::ApplyColorMask(node, templateNode, &Texture, 1);
    return true;
}

bool TAVUGaugeFiller::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

// Gauges nested in the filler follow the same number, each wrapped by its
// own range.
void TAVUGaugeFiller::SetValue(float value) {
    Value = value;
    for (TAVUElement* child = FirstChild; child; child = child->Next)
        if (child->IsTypeOf("gauge")) static_cast<TAVUGauge*>(child)->SetValue(Value);
}

// Only fractions of the gauge are resolved, and they are fractions of the
// space inside its border. Pixel positions stay as read.
void TAVUGaugeFiller::RecalculateSize(bool) {
    if (!Gauge || !Gauge->IsTypeOf("gauge")) return;
    unsigned border = Gauge->Border;
    unsigned width = unsigned(Gauge->Width);
    unsigned height = unsigned(Gauge->Height);
    bool changed = ResolveInside(X, XPosition, width - border, border);
    changed |= ResolveInside(Width, WidthPosition, width - 2 * border, 0);
    changed |= ResolveInside(Y, YPosition, height - border, border);
    changed |= ResolveInside(Height, HeightPosition, height - 2 * border, 0);
    if (changed) RecalculateChildrenSize();
}

void TAVUGaugeFiller::Render() {
    if (Texture) DrawFill();
    TAVUElement::Render();
}

// A Range of 0 shows full; a share below a thousandth shows nothing.
//
// The share may be any float at all: not a number after fmodf by a Range of
// 0 or text such as "nan", infinite after huge text. Converting such a float
// to int is undefined in C++, so every product goes through TruncateToInt,
// which checks the range before it truncates and otherwise gives one fixed
// integer; the sums after it wrap.
//
// The texture is measured (and so first prepared) for the crop, which acts on
// its own source rectangle for this frame only: SourceRect puts it back.
void TAVUGaugeFiller::DrawFill() {
    SourceRect saved(*Texture);
    if (!Texture->Prepare() || !Texture->GetSize()) return;
    float fill = Range == 0.0f ? 1.0f : Value / Range;
    if (fill < 0.001f) return;
    tagRECT rect = TAVUControlHelpers::ScreenRect(this);
    if (Repeat > 1) {
        DrawSegments(rect, fill);
    } else {
        CropRight(*Texture, fill); // the width, also for a vertical bar: deliberate
        if (Vertical)
            rect.top = Grow(rect.bottom, TruncateToInt(float(Height) * fill), true);
        else
            rect.right = Grow(rect.left, TruncateToInt(float(Width) * fill), false);
    }
    TexturedRect(rect, Texture);
}

// Full pieces from the start (left, or bottom for a vertical bar) and a last
// piece cut to what remains. The caller then draws the rectangle once more as
// it stands: the last piece again, or the empty rectangle past a full bar.
void TAVUGaugeFiller::DrawSegments(tagRECT& rect, float fill) {
    LONG& start = Vertical ? rect.bottom : rect.left;
    LONG& end = Vertical ? rect.top : rect.right;
    int length = Vertical ? Height : Width;
    int piece = int(int64_t(length) / int64_t(Repeat));
    float segment = 1.0f / float(Repeat);
    float remaining = fill;
    unsigned count = std::min(Repeat, unsigned(MaxDrawnSegments));
    for (unsigned i = 0; i < count; ++i) {
        if (segment >= remaining) {
            float ratio = remaining / segment;
            end = Grow(start, TruncateToInt(float(piece) * ratio), Vertical);
            CropRight(*Texture, ratio);
            TexturedRect(rect, Texture);
            return;
        }
        end = Grow(start, piece, Vertical);
        TexturedRect(rect, Texture);
        remaining -= segment;
        start = Grow(start, piece, Vertical);
    }
}
