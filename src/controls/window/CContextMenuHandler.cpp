#include "CContextMenuHandler.h"

#include "CUIManager.h"
#include "TAVUContextMenu.h"
#include "TAVUContextMenuNode.h"
#include "TAVUScreen.h"

#include <cstdio>

namespace {
// Constant-initialised, so that handlers of static objects may link in at
// any point of the module's start.
CContextMenuHandler* g_FirstLiveHandler = nullptr;
} // namespace

CContextMenuHandler::CContextMenuHandler() : NextLive(g_FirstLiveHandler) {
    if (NextLive) NextLive->PreviousLive = this;
    g_FirstLiveHandler = this;
}

CContextMenuHandler::~CContextMenuHandler() {
    DestroyMenu(false);
    ForgetAsParent();
    if (PreviousLive)
        PreviousLive->NextLive = NextLive;
    else
        g_FirstLiveHandler = NextLive;
    if (NextLive) NextLive->PreviousLive = PreviousLive;
}

// A closed submenu keeps naming the handler that last opened it; once that
// handler is gone, the name must go too.
void CContextMenuHandler::ForgetAsParent() {
    for (CContextMenuHandler* handler = g_FirstLiveHandler; handler; handler = handler->NextLive)
        if (handler->ParentHandler == this) handler->ParentHandler = nullptr;
}

void CContextMenuHandler::OnCreate(unsigned) {}

void CContextMenuHandler::OnMenuDestroyed() {
    Menu = nullptr;
}

bool CContextMenuHandler::Create(int x, int y) {
    return !Menu && OpenMenu(x, y, 0);
}

// A handler that is already among the parent's parents does not open: the
// chain would lead back to itself, and closing it would never end.
bool CContextMenuHandler::CreateSubMenu(CContextMenuHandler* parent, unsigned itemId, int x,
                                        int y) {
    if (Menu || !parent) return false;
    for (CContextMenuHandler* above = parent; above; above = above->ParentHandler)
        if (above == this) return false;
    ParentHandler = parent;
    // Replacing an open submenu closes the parent's menu as well: only the
    // new submenu stays on the screen. Interfaces rely on this.
    if (parent->ChildHandler) parent->DestroyMenu(false);
    parent->ChildHandler = this;
    return OpenMenu(x, y, itemId);
}

// The menu element, named uniquely for the run after the ID it is about to
// take, with the template's looks, at x, y; then the owner fills it, and it
// takes the keyboard focus.
bool CContextMenuHandler::OpenMenu(int x, int y, unsigned parentItemId) {
    TAVUScreen* screen = g_UIManager.Screen;
    if (!screen) return false;
    char name[512];
    snprintf(name, sizeof(name), "Context Menu 0x%X", g_UIManager.NextElementID);
    Menu = new TAVUContextMenu(TAVUContextMenu::TypeWord, screen, name);
    Menu->SetUp(this, Template);
    Menu->X = x;
    Menu->Y = y;
    OnCreate(parentItemId);
    if (Menu) g_UIManager.SetFocusElement(Menu);
    return true;
}

unsigned CContextMenuHandler::AddItem(const char* text, unsigned id) {
    if (!Menu) return 0;
    Menu->NodeCount++;
    return (new TAVUContextMenuItem(Menu, text, id))->ID;
}

unsigned CContextMenuHandler::AddSeparator() {
    if (!Menu) return 0;
    Menu->NodeCount++;
    return (new TAVUContextMenuSeparator(Menu))->ID;
}

unsigned CContextMenuHandler::AddSubMenu(const char* text, CContextMenuHandler* handler,
                                         unsigned id) {
    if (!Menu) return 0;
    Menu->NodeCount++;
    return (new TAVUContextMenuSubmenu(Menu, text, handler, id))->ID;
}

void CContextMenuHandler::DestroyMenu(bool all) {
    for (CContextMenuHandler* handler = this; handler; handler = handler->ParentHandler) {
        if (handler->ParentHandler) handler->ParentHandler->ChildHandler = nullptr;
        if (handler->ChildHandler) handler->ChildHandler->DestroyMenu(false);
        if (TAVUContextMenu* menu = handler->Menu) {
            if (menu->Parent)
                menu->Parent->DeleteChild(menu);
            else
                menu->Delete();
        }
        if (!all) return;
    }
}

bool CContextMenuHandler::GetItemCheck(unsigned id, bool& checked) {
    if (!Menu) return false;
    TAVUContextMenuNode* node = Menu->FindNode(id);
    if (!node || node->NodeType != TAVUContextMenuNode::ItemNode) return false;
    checked = static_cast<TAVUContextMenuItem*>(node)->Checked;
    return true;
}

void CContextMenuHandler::SetItemCheck(unsigned id, bool checked) {
    if (!Menu) return;
    for (TAVUContextMenuNode* node = Menu->FirstNode; node; node = node->Next)
        if (node->ID == id && node->NodeType == TAVUContextMenuNode::ItemNode)
            static_cast<TAVUContextMenuItem*>(node)->Checked = checked;
}
