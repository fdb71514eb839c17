#include "TAVUContextMenuNode.h"

#include "CContextMenuHandler.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUContextMenu.h"
#include "TAVUElementWatch.h"

namespace {
// A submenu opens this far right of its row and this far up.
const int kSubmenuGap = 2;
} // namespace

TAVUContextMenuNode::TAVUContextMenuNode(TAVUContextMenu* menu, unsigned nodeType, unsigned id)
    : Menu(menu), NodeType(nodeType), ID(id ? id : menu->NextItemID++) {
    TAVUContextMenuNode** link = &menu->FirstNode;
    while (*link) {
        Previous = *link;
        link = &(*link)->Next;
    }
    *link = this;
}

TAVUContextMenuNode::~TAVUContextMenuNode() {
    if (Menu->HoverNode == this) Menu->HoverNode = nullptr;
    if (Previous)
        Previous->Next = Next;
    else
        Menu->FirstNode = Next;
    if (Next) Next->Previous = Previous;
}

unsigned TAVUContextMenuNode::Render() {
    return 0;
}

void TAVUContextMenuNode::OnClick() {}

// An unhovered row without its texture shows its bare text and no check mark.
unsigned TAVUContextMenuNode::DrawTextRow(const char* text, TAVUTexture* texture,
                                          TAVUTexture* highlight, bool checked) {
    unsigned border = 0;
    if (Menu->HoverNode != this) {
        if (!texture) return unsigned(Menu->DrawText(Menu->Font, text, Rect.left, Rect.top));
        border = Menu->DrawRowTexture(Rect, texture);
    } else if (highlight) {
        border = Menu->DrawRowTexture(Rect, highlight);
    } else {
        Menu->FillRect(Rect, Menu->HighlightColor);
    }
    if (checked && Menu->ItemCheckTexture) {
        tagRECT box;
        box.top = WrapAdd(Rect.top, int(border));
        box.bottom = WrapSubtract(Rect.bottom, int(border));
        box.right = WrapSubtract(Rect.right, int(border));
        box.left = WrapSubtract(box.right, WrapSubtract(box.bottom, box.top));
        border = Menu->DrawRowTexture(box, Menu->ItemCheckTexture);
    }
    return unsigned(Menu->DrawText(Menu->Font, text, WrapAdd(Rect.left, int(border)),
                                   WrapAdd(Rect.top, int(border))));
}

TAVUContextMenuItem::TAVUContextMenuItem(TAVUContextMenu* menu, const char* text, unsigned id)
    : TAVUContextMenuNode(menu, ItemNode, id), Text(StrDuplicate(text ? text : "")) {}

TAVUContextMenuItem::~TAVUContextMenuItem() {
    StrFree(Text);
}

unsigned TAVUContextMenuItem::Render() {
    return DrawTextRow(Text, Menu->ItemTexture, Menu->HighlightItemTexture, Checked);
}

// The handler's click may delete its owner, and with it the handler and this
// menu: the chain is closed only when the menu outlived the click.
void TAVUContextMenuItem::OnClick() {
    CContextMenuHandler* handler = Menu->Handler;
    if (!handler) return;
    TAVUElementWatch watch(Menu);
    handler->OnClick(ID);
    if (watch.Alive()) handler->DestroyMenu(true);
}

TAVUContextMenuSubmenu::TAVUContextMenuSubmenu(TAVUContextMenu* menu, const char* text,
                                               CContextMenuHandler* submenu, unsigned id)
    : TAVUContextMenuNode(menu, SubmenuNode, id), Text(StrDuplicate(text ? text : "")),
      Submenu(submenu) {}

TAVUContextMenuSubmenu::~TAVUContextMenuSubmenu() {
    StrFree(Text);
}

unsigned TAVUContextMenuSubmenu::Render() {
    return DrawTextRow(Text, Menu->SubmenuTexture, Menu->HighlightSubmenuTexture, false);
}

// Opening may close this row's own menu (when another submenu was open), so
// everything it needs is taken before the call.
void TAVUContextMenuSubmenu::OnClick() {
    if (!Submenu) return;
    Submenu->CreateSubMenu(Menu->Handler, ID, WrapAdd(Rect.right, kSubmenuGap),
                           WrapSubtract(Rect.top, kSubmenuGap));
}

TAVUContextMenuSeparator::TAVUContextMenuSeparator(TAVUContextMenu* menu)
    : TAVUContextMenuNode(menu, SeparatorNode, 0) {}

// A separator takes a full row, drawn only when there is a texture for it.
unsigned TAVUContextMenuSeparator::Render() {
    Menu->DrawRowTexture(Rect, Menu->SeparatorTexture);
    return 0;
}
