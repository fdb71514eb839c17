#include "TAVUContextMenu.h"

#include "CContextMenuHandler.h"
#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUContextMenuNode.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUFont.h"
#include "TAVUTexture.h"

#include <utility>

const char TAVUContextMenu::TypeWord[] = "contextmenu";

TAVUFactory<TAVUContextMenu> g_TAVUContextMenuFactory(TAVUContextMenu::TypeWord);

TAVUContextMenu::TAVUContextMenu(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name) {}

// The handler hears first, so that it never names a menu that is going.
TAVUContextMenu::~TAVUContextMenu() {
    if (Handler) Handler->OnMenuDestroyed();
    TAVUFont::Delete(Font);
    TAVUTexture* textures[] = {ItemTexture,          SubmenuTexture,          SeparatorTexture,
                               HighlightItemTexture, HighlightSubmenuTexture, ItemCheckTexture};
    for (TAVUTexture* texture : textures)
        TAVUTexture::Delete(texture);
    while (FirstNode)
        delete FirstNode;
}

// A menu exists only while its handler has it open.
bool TAVUContextMenu::FromXML(XMLNode*, XMLNode*) {
    return false;
}

bool TAVUContextMenu::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, TypeWord) == 0 || TAVUFrame::IsTypeOf(type);
}

void TAVUContextMenu::SetUp(CContextMenuHandler* handler, XMLNode* templateNode) {
    Handler = handler;
    if (!templateNode) templateNode = g_UIManager.FindTemplate(TypeWord);
    if (!templateNode || !TAVUFrame::FromXML(templateNode, nullptr)) return;
    ReadLooks(templateNode);
    HoverNode = nullptr;
    NextItemID = 0;
}

void TAVUContextMenu::ReadLooks(XMLNode* templateNode) {
    Font = FontFromXML(templateNode, "Font", templateNode);
    HighlightColor = TAVUControlHelpers::ReadHex(templateNode, nullptr, "HighlightColor", 0);
    const std::pair<TAVUTexture**, const char*> textures[] = {
        {&ItemTexture, "ItemTexture"},
        {&ItemCheckTexture, "ItemCheckTexture"},
        {&HighlightItemTexture, "HighlightItemTexture"},
        {&SeparatorTexture, "SeparatorTexture"},
        {&SubmenuTexture, "SubmenuTexture"},
        {&HighlightSubmenuTexture, "HighlightSubmenuTexture"},
    };
    for (const auto& [field, key] : textures)
        *field = TextureFromXML(templateNode, key, nullptr);
}

// A font of no height still gives rows of 2 pixels, so that no sum divides by 0.
unsigned TAVUContextMenu::RowHeight() const {
    unsigned height = (Font ? Font->Height : 0) + 2;
    return height ? height : 2;
}

TAVUContextMenuNode* TAVUContextMenu::FindNode(unsigned id) const {
    TAVUContextMenuNode* node = FirstNode;
    while (node && node->ID != id)
        node = node->Next;
    return node;
}

TAVUContextMenuNode* TAVUContextMenu::NodeAt(unsigned place) const {
    TAVUContextMenuNode* node = FirstNode;
    for (; node && place > 0; --place)
        node = node->Next;
    return node;
}

unsigned TAVUContextMenu::DrawRowTexture(tagRECT& rect, TAVUTexture* texture) {
    if (!texture) return 0;
    if (texture->Border)
        TexturedRectBordered(rect, texture, texture->Border);
    else
        TexturedRect(rect, texture);
    return texture->Border;
}

// The height always fits the rows; the width is at least the minimum.
void TAVUContextMenu::SizeToRows() {
    Height = int(NodeCount * RowHeight() + 2 * Border);
    if (Width < int(MinimumWidth)) Width = MinimumWidth;
}

// Each row is given its rectangle and drawn, and answers how wide its content
// was; the widest with a margin becomes the width that the next frame draws.
void TAVUContextMenu::Render() {
    SizeToRows();
    TAVUElementWatch watch(this);
    TAVUFrame::Render();
    if (!watch.Alive()) return;
    unsigned rowHeight = RowHeight();
    tagRECT rect;
    rect.left = WrapAdd(AbsolutePosition.x, int(Border));
    rect.top = WrapAdd(AbsolutePosition.y, int(Border));
    rect.right = WrapSubtract(WrapAdd(AbsolutePosition.x, Width), int(Border));
    rect.bottom = WrapAdd(rect.top, int(rowHeight));
    unsigned width = MinimumWidth;
    for (TAVUContextMenuNode* node = FirstNode; node; node = node->Next) {
        node->Rect = rect;
        unsigned used = node->Render() + RightMargin;
        if (used > width) width = used;
        rect.top = WrapAdd(rect.top, int(rowHeight));
        rect.bottom = WrapAdd(rect.bottom, int(rowHeight));
    }
    Width = int(width);
}

// The hovered row counts from two borders below the top, one more than the
// rows are drawn at: the hover is off by the border, deliberately.
bool TAVUContextMenu::OnMouseMove(_Point2i& point) {
    if (!IsMouseOver()) return false;
    if (!FirstNode) {
        HoverNode = nullptr;
        return true;
    }
    SizeToRows();
    int offset = WrapSubtract(WrapSubtract(point.y, AbsolutePosition.y), int(2 * Border));
    HoverNode = offset < 0 ? nullptr : NodeAt(unsigned(offset) / RowHeight());
    return true;
}

bool TAVUContextMenu::OnLMouseDown(_Point2i&) {
    return IsMouseOver();
}

// The row's click may close this menu, or delete its owner and with it the
// handler: nothing here is touched after it.
bool TAVUContextMenu::OnLMouseUp(_Point2i&) {
    if (!IsMouseOver()) return false;
    if (HoverNode) HoverNode->OnClick();
    return true;
}

void TAVUContextMenu::OnKeyboardExit(TAVUElement* next) {
    CloseUnlessMenu(next);
}

void TAVUContextMenu::OnLMouseDownOther(TAVUElement* other) {
    CloseUnlessMenu(other);
}

// Going from a menu to its submenu, or back, keeps both open.
void TAVUContextMenu::CloseUnlessMenu(TAVUElement* other) {
    if (other && other->IsTypeOf(TypeWord)) return;
    if (Handler) Handler->DestroyMenu(false);
}
