// Input routing: the manager finds the element an event is for, offers it the
// event, and walks on towards the back of the screen while nobody takes it.
// Everything runs inside the host's call, script events included, so an element
// may vanish during any offer: presses re-find their element by ID afterwards.
#include "CUIManager.h"

#include "TAVUElement.h"
#include "TAVUScreen.h"

// The fields of one mouse button, so that both buttons share one routine.
struct CUIManager::ButtonFields {
    uint8_t& State;
    unsigned& PressedElementID;
    unsigned& ClickTime;
    unsigned& ClickElementID;
    bool TAVUElement::*ClickThru;
    bool (TAVUElement::*DoubleClick)(_Point2i&);
    bool (TAVUElement::*Down)(_Point2i&);
    bool (TAVUElement::*Up)(_Point2i&);
    bool IsLeft;
};

namespace {
const float kDoubleClickDistanceSquared = 125.0f;

bool IsShiftKey(unsigned key) {
    return key == 16 || key == 160 || key == 161;
}
bool IsAltKey(unsigned key) {
    return key == 18 || key == 164 || key == 165;
}
bool IsControlKey(unsigned key) {
    return key == 17 || key == 162 || key == 163;
}
} // namespace

bool CUIManager::OnMouseMove(_Point2i& point) {
    if (point.x == MousePosition.x && point.y == MousePosition.y) return false;
    LastInputTime = GetTickCount();
    MousePosition = point;
    TAVUElement* element =
        (LeftButtonState || RightButtonState) ? GetMouseOverElement() : SetMouseOverElement();
    while (element) {
        unsigned id = element->ID;
        if (element->OnMouseMove(point)) return true;
        if (!FindElementByID(id) || !element->Parent) return false;
        element = element->Parent->FindMouseOver(MousePosition, element);
    }
    return false;
}

bool CUIManager::OnMouseWheel(int offset) {
    LastInputTime = GetTickCount();
    TAVUElement* element = GetMouseOverElement();
    while (element) {
        unsigned id = element->ID;
        if (element->OnMouseWheel(offset)) return true;
        if (!FindElementByID(id) || !element->Parent) return false;
        element = element->Parent->FindMouseOver(MousePosition, element);
    }
    return false;
}

CUIManager::ButtonFields CUIManager::LeftButton() {
    return {LeftButtonState,
            LeftPressedElementID,
            LeftClickTime,
            LeftClickElementID,
            &TAVUElement::LeftClickThru,
            &TAVUElement::OnLMouseDoubleClick,
            &TAVUElement::OnLMouseDown,
            &TAVUElement::OnLMouseUp,
            true};
}

CUIManager::ButtonFields CUIManager::RightButton() {
    return {
        RightButtonState,           RightPressedElementID,        RightClickTime,
        RightClickElementID,        &TAVUElement::RightClickThru, &TAVUElement::OnRMouseDoubleClick,
        &TAVUElement::OnRMouseDown, &TAVUElement::OnRMouseUp,     false};
}

bool CUIManager::OnLMouseDown() {
    ButtonFields left = LeftButton();
    return PressButton(left);
}

bool CUIManager::OnRMouseDown() {
    ButtonFields right = RightButton();
    return PressButton(right);
}

bool CUIManager::OnLMouseUp() {
    ButtonFields left = LeftButton();
    return ReleaseButton(left);
}

bool CUIManager::OnRMouseUp() {
    ButtonFields right = RightButton();
    return ReleaseButton(right);
}

// Offers a press to the element under the pointer and then to those behind it.
// A second press on the same element, soon and near enough, is a double click;
// that test comes before the click-through flag.
bool CUIManager::PressButton(ButtonFields& button) {
    LastInputTime = GetTickCount();
    TAVUElement* element = GetMouseOverElement();
    button.State = 1;
    if (!element) return false;
    if (button.IsLeft) ZOrderChanged = false;
    unsigned id = 0;
    bool mayDoubleClick = true;
    for (;;) {
        id = element->ID;
        // In floats: points at opposite ends of the int range are far apart,
        // not an overflow (nor, wrapped, next to each other).
        float dx = float(MousePosition.x) - float(LastClickPosition.x);
        float dy = float(MousePosition.y) - float(LastClickPosition.y);
        bool doubleClick = id == button.ClickElementID &&
                           button.ClickTime + DoubleClickTime > LastInputTime &&
                           dx * dx + dy * dy < kDoubleClickDistanceSquared;
        if (doubleClick) {
            if ((element->*button.DoubleClick)(MousePosition)) {
                button.PressedElementID = id;
                button.State = 2;
                button.ClickElementID = 0;
                return true;
            }
            if ((element->*button.Down)(MousePosition)) {
                mayDoubleClick = false;
                break;
            }
        } else if (!(element->*button.ClickThru) && (element->*button.Down)(MousePosition)) {
            break;
        }
        // A handler that refused may still have run a script that deleted it.
        if (!FindElementByID(id) || !element->Parent) return false;
        element = element->Parent->FindMouseOver(MousePosition, element);
        if (!element) return false;
    }
    if (button.IsLeft) {
        // The press's own script may have deleted the element that took it:
        // the focus then hears of a press on nothing it can reach.
        element = FindElementByID(id);
        TAVUElement* focus = GetFocusElement();
        if (focus && focus != element) focus->OnLMouseDownOther(element);
    }
    LastClickPosition = MousePosition;
    button.ClickTime = LastInputTime;
    button.State = 2;
    button.PressedElementID = id;
    button.ClickElementID = mayDoubleClick ? id : 0;
    if (ZOrderChanged) return true;
    if (TAVUElement* pressed = FindElementByID(id)) RaiseTopLevelAncestor(pressed);
    return true;
}

// The pressed element hears the release first, wherever the pointer is; then
// whatever lies under the pointer behind it. The host sees the release as
// taken exactly when the press was.
bool CUIManager::ReleaseButton(ButtonFields& button) {
    if (button.State == 0) return false;
    LastInputTime = GetTickCount();
    TAVUElement* element = GetMouseOverElement();
    uint8_t state = button.State;
    button.PressedElementID = 0;
    button.State = 0;
    if (!element) return state != 1;
    while (element) {
        unsigned id = element->ID;
        if (!(element->*button.ClickThru) && (element->*button.Up)(MousePosition))
            return state != 1;
        if (!FindElementByID(id) || !element->Parent) break;
        element = element->Parent->FindMouseOver(MousePosition, element);
    }
    return state == 2;
}

void CUIManager::RaiseTopLevelAncestor(TAVUElement* element) {
    while (element->Parent && element->Parent != Screen)
        element = element->Parent;
    if (element->Parent == Screen) element->MoveZTop(false);
}

// Left and right keys share one modifier state: either release clears it.
void CUIManager::SetModifier(unsigned key, bool down) {
    unsigned modifier = 0;
    if (IsShiftKey(key)) {
        modifier = 16;
        Shift = down;
    } else if (IsAltKey(key)) {
        modifier = 18;
        Alt = down;
    } else if (IsControlKey(key)) {
        modifier = 17;
        Control = down;
    }
    if (!modifier) return;
    KeyState[modifier] = down ? 0x80 : 0;
    KeyStates[modifier] = down ? 0x80 : 0;
}

bool CUIManager::OnKeyDown(unsigned key) {
    LastInputTime = GetTickCount();
    SetModifier(key, true);
    if (key < 256) KeyState[key] |= 0x80;
    KeyStates[key] |= 0x80;
    // Whole bytes: the toggles alone, as ToAscii reads them.
    KeyState[20] = uint8_t(GetKeyState(20) & 1);
    KeyState[144] = uint8_t(GetKeyState(144) & 1);
    bool taken = false;
    for (TAVUElement* element = GetFocusElement(); element && !taken;) {
        unsigned id = element->ID;
        taken = element->OnKeyDown(key);
        // A handler that refused may still have run a script that deleted it.
        element = FindElementByID(id) ? element->Parent : nullptr;
    }
    if (!taken) return false;
    if (key < 256) KeyState[key] |= 0x02;
    KeyStates[key] |= 0x02;
    return true;
}

// A release is taken exactly when its press was, whatever the elements say now.
bool CUIManager::OnKeyUp(unsigned key) {
    LastInputTime = GetTickCount();
    SetModifier(key, false);
    if (key < 256) KeyState[key] &= uint8_t(~0x82);
    uint16_t& state = KeyStates[key];
    state &= uint16_t(~0x80);
    uint16_t remembered = state;
    state &= uint16_t(~0x02);
    for (TAVUElement* element = GetFocusElement(); element;) {
        unsigned id = element->ID;
        if (element->OnKeyUp(key) || !FindElementByID(id)) break;
        element = element->Parent;
    }
    return (remembered & 0x02) != 0;
}
