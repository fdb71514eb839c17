#include "CWindowContextMenu.h"

#include "TAVUWindow.h"

CWindowContextMenu::CWindowContextMenu(TAVUWindow* owner) : Owner(owner) {}

CWindowContextMenu::~CWindowContextMenu() {
    DestroyMenu(false);
}

void CWindowContextMenu::OnCreate(unsigned) {
    AddItem(Owner->Locked ? "Unlock" : "Lock", ItemLock);
    AddItem("Reset Position", ItemResetPosition);
    AddSeparator();
    AddItem("Close", ItemClose);
}

void CWindowContextMenu::OnClick(unsigned itemId) {
    switch (itemId) {
    case ItemLock:
        Owner->Locked = !Owner->Locked;
        break;
    case ItemResetPosition:
        Owner->ResetWindowPosition();
        break;
    case ItemClose:
        Owner->Show(false);
        break;
    }
}
