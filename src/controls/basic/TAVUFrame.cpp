#include "TAVUFrame.h"

#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"

#include <cstdint>

namespace {
const char kTypeWord[] = "frame";
} // namespace

TAVUFactory<TAVUFrame> g_TAVUFrameFactory(kTypeWord);

TAVUFrame::TAVUFrame(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

TAVUFrame::~TAVUFrame() {
    TAVUTexture::Delete(Texture);
}

bool TAVUFrame::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    Border = TAVUControlHelpers::ReadInt(node, templateNode, "Border", 0);
    BackgroundColor = TAVUControlHelpers::ReadHex(node, templateNode, "BackgroundColor", 0);
    BorderColor = TAVUControlHelpers::ReadHex(node, templateNode, "BorderColor", 0);
    TAVUTexture::Delete(Texture);
    Texture = TextureFromXML(node, "Texture", templateNode);
    return true;
}

bool TAVUFrame::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUFrame::Create(_CreateFrame& create) {
    TAVUApplyCreateHead(this, create);
    BackgroundColor = create.BackgroundColor;
    Border = create.Border;
    BorderColor = create.BorderColor;
}

void TAVUFrame::Render() {
    tagRECT rect = TAVUControlHelpers::ScreenRect(this);
    if (Texture)
        TAVUControlHelpers::DrawTexture(this, rect, Texture, Border, BorderColor);
    else
        FillRectBordered(rect, BackgroundColor, Border, BorderColor);
    TAVUElement::Render();
}

// Which click-through flags let an event pass a frame that is not transparent.
bool TAVUFrame::Passes(PassRule rule) const {
    if (IsTransparent()) return true;
    switch (rule) {
    case PassLeftThru:
        return LeftClickThru;
    case PassRightThru:
        return RightClickThru;
    case PassBothThru:
        return LeftClickThru && RightClickThru;
    case PassTransparentOnly:
        return false;
    }
    return false;
}

// After the element's own handler: its script may have deleted this frame,
// and then the event counts as taken and nobody is told. An event the handler
// did not take passes when the rule lets it; any other goes to the parent.
// Static, so that nothing is called on a frame that may be gone.
bool TAVUFrame::TakeOrPass(TAVUFrame* frame, const TAVUElementWatch& watch, bool taken,
                           PassRule rule, unsigned code, size_t value) {
    if (!watch.Alive()) return true;
    if (!taken && frame->Passes(rule)) return false;
    if (frame->Parent) frame->Parent->OnNotify(frame, code, value);
    return true;
}

bool TAVUFrame::OnLMouseUp(_Point2i& point) {
    TAVUElementWatch watch(this);
    bool taken = TAVUElement::OnLMouseUp(point);
    return TakeOrPass(this, watch, taken, PassLeftThru, TAVU_NOTIFY_LEFT_UP, 0);
}

bool TAVUFrame::OnLMouseDown(_Point2i& point) {
    TAVUElementWatch watch(this);
    bool taken = TAVUElement::OnLMouseDown(point);
    return TakeOrPass(this, watch, taken, PassLeftThru, TAVU_NOTIFY_LEFT_DOWN, 0);
}

bool TAVUFrame::OnRMouseUp(_Point2i& point) {
    TAVUElementWatch watch(this);
    bool taken = TAVUElement::OnRMouseUp(point);
    return TakeOrPass(this, watch, taken, PassRightThru, TAVU_NOTIFY_RIGHT_UP, 0);
}

bool TAVUFrame::OnRMouseDown(_Point2i& point) {
    TAVUElementWatch watch(this);
    bool taken = TAVUElement::OnRMouseDown(point);
    return TakeOrPass(this, watch, taken, PassRightThru, TAVU_NOTIFY_RIGHT_DOWN, 0);
}

bool TAVUFrame::OnLMouseDoubleClick(_Point2i& point) {
    TAVUElementWatch watch(this);
    bool taken = TAVUElement::OnLMouseDoubleClick(point);
    return TakeOrPass(this, watch, taken, PassLeftThru, TAVU_NOTIFY_LEFT_DOUBLE_CLICK, 0);
}

// Unlike its left twin, the right double click honours no click-through flag:
// interfaces rely on a right-click-through frame still taking it.
bool TAVUFrame::OnRMouseDoubleClick(_Point2i& point) {
    TAVUElementWatch watch(this);
    bool taken = TAVUElement::OnRMouseDoubleClick(point);
    return TakeOrPass(this, watch, taken, PassTransparentOnly, TAVU_NOTIFY_RIGHT_DOUBLE_CLICK, 0);
}

bool TAVUFrame::OnMouseMove(_Point2i& point) {
    TAVUElementWatch watch(this);
    bool taken = TAVUElement::OnMouseMove(point);
    return TakeOrPass(this, watch, taken, PassBothThru, TAVU_NOTIFY_MOUSE_MOVED, 0);
}

// The offset travels sign-extended in the notification's value.
bool TAVUFrame::OnMouseWheel(int offset) {
    TAVUElementWatch watch(this);
    bool taken = TAVUElement::OnMouseWheel(offset);
    return TakeOrPass(this, watch, taken, PassBothThru, TAVU_NOTIFY_WHEEL,
                      size_t(intptr_t(offset)));
}

RXTypeDefinition* TAVUFrame::GetRXType() {
    return pTAVUFrameType;
}
