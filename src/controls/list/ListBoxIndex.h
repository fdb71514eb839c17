// A list box's index of items: places with a null in every free one. A new
// item takes the lowest free place, and a full index grows by 10 places, so
// removed IDs come back lowest first. Unlike a plain scan from the start, it
// remembers where the lowest free place can be, so that adding a hundred
// thousand items in a row costs in proportion to their number.
#pragma once

#include <vector>

class ListBoxItem;

class ListBoxIndex {
public:
    enum : unsigned { GrowthStep = 10 };

    unsigned Capacity() const { return unsigned(Places.size()); }
    ListBoxItem* Get(unsigned place) const {
        return place < Places.size() ? Places[place] : nullptr;
    }

    // The lowest free place, after growing a full index.
    unsigned FreePlace() {
        while (FirstFree < Places.size() && Places[FirstFree])
            ++FirstFree;
        if (FirstFree == Places.size()) Grow(Capacity() + GrowthStep);
        return FirstFree;
    }

    void Set(unsigned place, ListBoxItem* item) {
        if (place >= Places.size()) return;
        Places[place] = item;
        if (!item && place < FirstFree) FirstFree = place;
    }

    void Grow(unsigned capacity) {
        if (capacity > Places.size()) Places.resize(capacity, nullptr);
    }

    void Clear() {
        for (ListBoxItem*& item : Places)
            item = nullptr;
        FirstFree = 0;
    }

    // The places themselves, for sorting a run of them.
    ListBoxItem** Data() { return Places.data(); }

private:
    std::vector<ListBoxItem*> Places;
    unsigned FirstFree = 0; // no free place lies below it
};
