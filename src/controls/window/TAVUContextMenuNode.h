// The rows of a context menu: items (text with an optional check mark),
// submenu rows (text that opens another handler's menu when clicked) and
// separators. A row appends itself to its menu's chain when made and unlinks
// itself when deleted; rows die only with their menu.
#pragma once

#include "Platform.h"
#include "TavuExport.h"

class CContextMenuHandler;
class TAVUContextMenu;
class TAVUTexture;

class TAVU_API TAVUContextMenuNode {
public:
    enum : unsigned { ItemNode = 1, SubmenuNode = 2, SeparatorNode = 3 };

    // An ID of 0 takes the menu's next automatic ID.
    TAVUContextMenuNode(TAVUContextMenu* menu, unsigned nodeType, unsigned id);
    // The table of functions, in this order.
    virtual ~TAVUContextMenuNode();
    // Draws the row in Rect and answers the width of its content.
    virtual unsigned Render();
    virtual void OnClick();

    tagRECT Rect{0, 0, 0, 0}; // on the screen, set at each frame
    TAVUContextMenu* Menu;
    TAVUContextMenuNode* Previous = nullptr;
    TAVUContextMenuNode* Next = nullptr;
    unsigned NodeType;
    unsigned ID;

protected:
    // A row of text: its texture (or the highlight when hovered), then the
    // check mark at the right end when checked, then the text inside the
    // frame of the last texture drawn. Answers the text's width.
    unsigned DrawTextRow(const char* text, TAVUTexture* texture, TAVUTexture* highlight,
                         bool checked);

private:
    TAVUContextMenuNode(const TAVUContextMenuNode&) = delete;
    TAVUContextMenuNode& operator=(const TAVUContextMenuNode&) = delete;
};

class TAVU_API TAVUContextMenuItem : public TAVUContextMenuNode {
public:
    TAVUContextMenuItem(TAVUContextMenu* menu, const char* text, unsigned id);
    ~TAVUContextMenuItem() override;
    unsigned Render() override;
    // Tells the handler, then closes every menu of the chain.
    void OnClick() override;

    char* Text;
    bool Checked = false;
};

class TAVU_API TAVUContextMenuSubmenu : public TAVUContextMenuNode {
public:
    TAVUContextMenuSubmenu(TAVUContextMenu* menu, const char* text, CContextMenuHandler* submenu,
                           unsigned id);
    ~TAVUContextMenuSubmenu() override;
    unsigned Render() override;
    // Opens the submenu beside the row; this menu stays open.
    void OnClick() override;

    char* Text;
    CContextMenuHandler* Submenu; // not owned
};

class TAVU_API TAVUContextMenuSeparator : public TAVUContextMenuNode {
public:
    explicit TAVUContextMenuSeparator(TAVUContextMenu* menu);
    unsigned Render() override;
};
