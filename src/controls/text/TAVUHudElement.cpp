#include "TAVUHudElement.h"

#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUFont.h"
#include "TAVUScriptTypes.h"

namespace {
const char kTypeWord[] = "hudelement";
// The width given to an element that names none; only hit testing sees it.
const int kDefaultWidth = 20;
} // namespace

TAVUFactory<TAVUHudElement> g_TAVUHudElementFactory(kTypeWord);

TAVUHudElement::TAVUHudElement(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

TAVUHudElement::~TAVUHudElement() {
    TAVUFont::Delete(Font);
    StrFree(CachedText);
    StrFree(Group);
}

// A missing font gives the element no height of its own rather than failing
// the load.
bool TAVUHudElement::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    const char* text = TAVUControlHelpers::ReadString(node, templateNode, "Text");
    Text.PreParse(text[0] ? text : nullptr);
    SetGroup(TAVUControlHelpers::ReadString(node, templateNode, "Group"));
    UpdateInterval = TAVUControlHelpers::ReadInt(node, templateNode, "UpdateInterval", 0);
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    if (Height == 0 && Font) Height = int(Font->Height);
    if (Width == 0) Width = kDefaultWidth;
    return true;
}

bool TAVUHudElement::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

RXTypeDefinition* TAVUHudElement::GetRXType() {
    return pTAVUHudElementType;
}

void TAVUHudElement::SetGroup(const char* group) {
    TAVUControlHelpers::ReplaceText(Group, group);
}

bool TAVUHudElement::UpdateText() {
    StrFree(CachedText);
    CachedText = nullptr;
    FramesSinceUpdate = 0;
    if (!Text.Text || !Text.Text[0]) return true;
    char buffer[BufferSize];
    buffer[0] = 0;
    TAVUElementWatch watch(this);
    Text.RetrieveProcessedText(buffer, sizeof(buffer));
    if (!watch.Alive()) return false;
    StrFree(CachedText); // a script run meanwhile may have set one
    CachedText = StrDuplicate(buffer);
    return true;
}

void TAVUHudElement::SetText(const char* text) {
    Text.Clear();
    if (text && text[0]) Text.PreParse(text);
    UpdateText();
}

// An interval of 0 or 1 resolves the text in every frame.
void TAVUHudElement::Render() {
    if (Text.Text && Text.Text[0]) {
        if (CachedText) ++FramesSinceUpdate;
        if ((!CachedText || FramesSinceUpdate >= UpdateInterval) && !UpdateText()) return;
        if (CachedText && CachedText[0] && StrCompareNoCase(CachedText, "NULL") != 0)
            DrawText(Font, CachedText, AbsolutePosition.x, AbsolutePosition.y);
    }
    TAVUElement::Render();
}

// Without Alt a press passes through to what lies below.
bool TAVUHudElement::OnLMouseDown(_Point2i& point) {
    if (!g_UIManager.Alt) return false;
    Dragging = true;
    DragAnchor = point;
    TAVUElement::OnLMouseDown(point);
    return true;
}

bool TAVUHudElement::OnMouseMove(_Point2i& point) {
    if (!Dragging) return false;
    X = WrapAdd(X, WrapSubtract(point.x, DragAnchor.x));
    Y = WrapAdd(Y, WrapSubtract(point.y, DragAnchor.y));
    DragAnchor = point;
    TAVUElement::OnMouseMove(point);
    return true;
}

bool TAVUHudElement::OnLMouseUp(_Point2i& point) {
    if (!Dragging) return false;
    Dragging = false;
    TAVUElement::OnLMouseUp(point);
    return true;
}
