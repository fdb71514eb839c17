#include "TAVUSlider.h"

#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

#include <algorithm>
#include <cstdint>

namespace {
const char kTypeWord[] = "slider";
const unsigned kHandleLength = 5;

// trunc(part / whole * scale) in 32-bit floats, as the handle arithmetic is
// done, but never beyond scale: a scale above 2^24 rounds up as a float.
unsigned ScaleTruncated(unsigned part, unsigned whole, unsigned scale) {
    float scaled = float(part) / float(whole) * float(scale);
    return scaled >= float(scale) ? scale : TruncateToUnsigned(scaled);
}

} // namespace

TAVUFactory<TAVUSlider> g_TAVUSliderFactory(kTypeWord);

TAVUSlider::TAVUSlider(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {
    Height = 16;
}

TAVUSlider::~TAVUSlider() {
    TAVUTexture::Delete(Texture);
    TAVUTexture::Delete(HandleTexture);
    if (OnChange) OnChange->Delete();
}

// "Range" reads 0 when neither the node nor the template has it, whatever
// the constructor put there.
bool TAVUSlider::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    Vertical = TAVUControlHelpers::ReadToggle(node, templateNode, "Vertical", false);
    Range = TAVUControlHelpers::ReadInt(node, templateNode, "Range", 0);
    Border = TAVUControlHelpers::ReadInt(node, templateNode, "Border", 0);
    TAVUControlHelpers::ReplaceTexture(Texture, TextureFromXML(node, "Texture", templateNode));
    TAVUControlHelpers::ReplaceTexture(HandleTexture,
                                       TextureFromXML(node, "HandleTexture", templateNode));
    if (TAVUEmbeddedScript* script = EmbeddedScriptFromXML(node, "OnChange", templateNode, "")) {
        if (OnChange) OnChange->Delete();
        OnChange = script;
    }
    TAVUTexture* textures[] = {Texture, HandleTexture};
    TAVUControlHelpers::ApplyColorMask(node, templateNode, textures, 2);
    return true;
}

bool TAVUSlider::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUSlider::Create(_CreateSlider& create, XMLNode* templateNode) {
    TAVUApplyCreateHead(this, create);
    if (!templateNode) templateNode = g_UIManager.FindTemplate(kTypeWord);
    Range = create.Range ? create.Range : XMLHelper::GetIntValue(templateNode, "Range", 0);
    Border = create.Border ? create.Border : XMLHelper::GetIntValue(templateNode, "Border", 0);
    Vertical = create.Vertical;
    if (!create.UseTemplateTextures) return;
    TAVUControlHelpers::ReplaceTexture(Texture, TextureFromXML(templateNode, "Texture", nullptr));
    TAVUControlHelpers::ReplaceTexture(HandleTexture,
                                       TextureFromXML(templateNode, "HandleTexture", nullptr));
}

bool TAVUSlider::Travel(unsigned& track) {
    unsigned need = (Vertical ? HandleHeight : HandleWidth) + 2 * Border;
    int length = Vertical ? Height : Width;
    if (int64_t(need) > length) {
        HandlePosition = 0;
        return false;
    }
    track = unsigned(length) - need;
    return true;
}

void TAVUSlider::SetValue(unsigned value) {
    unsigned old = Value;
    Value = std::min(Range, value);
    unsigned track = 0;
    if (!Travel(track)) return;
    if (Range == 0)
        HandlePosition = 0;
    else if (Vertical)
        HandlePosition = track - ScaleTruncated(Value, Range, track);
    else
        HandlePosition = ScaleTruncated(Value, Range, track);
    if (Value == old) return;
    TAVUElementWatch watch(this);
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_VALUE_CHANGED, Value);
    if (watch.Alive() && OnChange) OnChange->Execute(0, nullptr);
}

void TAVUSlider::SetPosition(unsigned position) {
    unsigned track = 0;
    if (!Travel(track) || track == 0) return;
    unsigned scaled = ScaleTruncated(std::min(position, track), track, Range);
    SetValue(Vertical ? Range - scaled : scaled);
}

// The pointer holds the handle by its middle. The arithmetic wraps as 32-bit
// numbers do, and a result that reads as negative is the start of the travel.
unsigned TAVUSlider::PositionUnder(const _Point2i& point) const {
    unsigned along = unsigned(Vertical ? point.y : point.x);
    unsigned start = unsigned(Vertical ? AbsolutePosition.y : AbsolutePosition.x);
    unsigned half = (Vertical ? HandleHeight : HandleWidth) >> 1;
    unsigned position = along - half - Border - start;
    return int32_t(position) < 0 ? 0 : position;
}

bool TAVUSlider::OnLMouseDown(_Point2i& point) {
    TAVUElementWatch watch(this);
    SetPosition(PositionUnder(point));
    if (!watch.Alive()) return true;
    Dragging = true;
    TAVUElement::OnLMouseDown(point);
    return true;
}

bool TAVUSlider::OnMouseMove(_Point2i& point) {
    TAVUElementWatch watch(this);
    if (Dragging) SetPosition(PositionUnder(point));
    if (watch.Alive()) TAVUElement::OnMouseMove(point);
    return true;
}

bool TAVUSlider::OnLMouseUp(_Point2i& point) {
    Dragging = false;
    TAVUElement::OnLMouseUp(point);
    return true;
}

// Horizontal sliders take their handle's height from the width here; Render
// sets it from the height before it is drawn, and only a slider turned
// vertical afterwards would see the difference.
void TAVUSlider::RecalculateSize(bool recurse) {
    TAVUElement::RecalculateSize(recurse);
    unsigned across = unsigned(Width) - 2 * Border;
    HandleWidth = Vertical ? across : kHandleLength;
    HandleHeight = Vertical ? kHandleLength : across;
    SetValue(Value);
}

void TAVUSlider::Render() {
    tagRECT rect = TAVUControlHelpers::ScreenRect(this);
    if (Border != 0)
        TexturedRectBordered(rect, Texture, Border);
    else
        TexturedRect(rect, Texture);
    int left = WrapAdd(AbsolutePosition.x, int(Border));
    int top = WrapAdd(AbsolutePosition.y, int(Border));
    if (Vertical) {
        HandleHeight = kHandleLength;
        HandleWidth = unsigned(Width) - 2 * Border;
        top = WrapAdd(top, int(HandlePosition));
    } else {
        HandleWidth = kHandleLength;
        HandleHeight = unsigned(Height) - 2 * Border;
        left = WrapAdd(left, int(HandlePosition));
    }
    tagRECT handle{left, top, WrapAdd(left, int(HandleWidth)), WrapAdd(top, int(HandleHeight))};
    TexturedRect(handle, HandleTexture);
    TAVUElement::Render();
}

RXTypeDefinition* TAVUSlider::GetRXType() {
    return pTAVUSliderType;
}
