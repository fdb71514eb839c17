// One row of a list box. An item has two identities: its ID, the 1-based
// place in the list's ID index, fixed for its life, and its Order, the
// 0-based place where it shows now. Sorting and dragging change only Order.
#pragma once

#include "TavuExport.h"

class TAVUListBox;

class TAVU_API ListBoxItem {
public:
    ListBoxItem(TAVUListBox* owner, const char* text, unsigned color, const char* value,
                unsigned id);
    // Leaves the word "Error" in Text, so that a stale reader sees it.
    ~ListBoxItem();
    ListBoxItem(const ListBoxItem&) = delete;
    ListBoxItem& operator=(const ListBoxItem&) = delete;

    void SetText(const char* text);
    void SetValue(const char* value);

    unsigned ID;
    char* Text = nullptr; // may be null
    unsigned Color;
    char* Value = nullptr; // never null: an absent value is ""
    unsigned Order = 0;
    TAVUListBox* Owner;
};
