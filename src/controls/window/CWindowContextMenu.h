// The right-click menu of a window's title bar: lock or unlock, reset the
// position, close. The lock entry's label is chosen as the menu opens; the
// lock is not otherwise shown. No entry deletes the window.
#pragma once

#include "CContextMenuHandler.h"

class TAVUWindow;

class TAVU_API CWindowContextMenu : public CContextMenuHandler {
public:
    enum : unsigned { ItemLock = 1, ItemResetPosition = 2, ItemClose = 3 };

    explicit CWindowContextMenu(TAVUWindow* owner);
    ~CWindowContextMenu() override;
    void OnCreate(unsigned parentItemId) override;
    void OnClick(unsigned itemId) override;

    TAVUWindow* Owner;
};
