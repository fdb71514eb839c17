// What the list box and combo box tests share: what reached the parent as
// one line of text, and a click that stops when the press deleted the control.
#pragma once

#include "ControlTest.h"
#include "TAVUElementWatch.h"
#include "Words.h"

#include <string>

class ListControlTest : public ControlTest {
protected:
    // "code value;" for each notification since the last call.
    std::string Notes() {
        std::string heard;
        for (const auto& note : Parent->Notes)
            heard += Words(note.first, note.second) + ";";
        Parent->Notes.clear();
        return heard;
    }
    void Click(TAVUElement* element, int x, int y) {
        Point = {x, y};
        TAVUElementWatch watch(element);
        element->OnLMouseDown(Point);
        if (watch.Alive()) element->OnLMouseUp(Point);
    }
};
