// The owner's side of a context menu: an owner embeds or derives a handler,
// fills the rows in OnCreate and hears the clicks in OnClick. The menu itself
// (TAVUContextMenu) exists only while it is open, as a child of the screen.
//
// A handler must outlive its open menu: destroying it closes the menu. A
// submenu is another handler, opened from a submenu row of this one's menu;
// the two are chained through ParentHandler and ChildHandler.
#pragma once

#include "TavuExport.h"

class TAVUContextMenu;
class XMLNode;

class TAVU_API CContextMenuHandler {
public:
    CContextMenuHandler();
    // The table of functions, in this order.
    virtual ~CContextMenuHandler();
    // The menu is open and empty: add its rows here. A submenu learns the ID
    // of the row that opened it; the top menu gets 0.
    virtual void OnCreate(unsigned parentItemId);
    // An item was clicked; the whole chain of menus closes after this returns.
    virtual void OnClick(unsigned itemId) = 0;
    // The menu element is going. Derived handlers call this base, which
    // forgets the menu.
    virtual void OnMenuDestroyed();

    // Opens the menu with its top left corner at x, y, as it is: a menu is
    // never moved to fit the screen. False when this handler's menu is open.
    bool Create(int x, int y);
    // Opens this handler's menu as the submenu of parent's row itemId. When
    // parent already has a submenu open, parent's whole menu closes first and
    // only the new submenu stays. False when this menu is open, or when this
    // handler already leads to parent.
    bool CreateSubMenu(CContextMenuHandler* parent, unsigned itemId, int x, int y);

    // Rows go into the open menu only (0 when none is open), so add them from
    // OnCreate. An ID of 0 takes the menu's next automatic ID, counted from 0.
    // Each answers the row's ID.
    unsigned AddItem(const char* text, unsigned id);
    unsigned AddSeparator();
    unsigned AddSubMenu(const char* text, CContextMenuHandler* handler, unsigned id);

    // Closes this menu and its open submenus; with all, also every menu that
    // leads to this one.
    void DestroyMenu(bool all);
    // The check mark of the first row with this ID; false when no menu is
    // open or that row is not an item. A mark lives only as long as its menu.
    bool GetItemCheck(unsigned id, bool& checked);
    // Sets the mark on every item with this ID in the open menu.
    void SetItemCheck(unsigned id, bool checked);

    XMLNode* Template = nullptr; // null: the template "contextmenu"
    TAVUContextMenu* Menu = nullptr;
    CContextMenuHandler* ChildHandler = nullptr;
    CContextMenuHandler* ParentHandler = nullptr;

private:
    CContextMenuHandler(const CContextMenuHandler&) = delete;
    CContextMenuHandler& operator=(const CContextMenuHandler&) = delete;

    bool OpenMenu(int x, int y, unsigned parentItemId);
    void ForgetAsParent();

    // Every live handler, so that a handler that dies is forgotten by the
    // submenu handlers that still name it as their parent.
    CContextMenuHandler* NextLive = nullptr;
    CContextMenuHandler* PreviousLive = nullptr;
};
