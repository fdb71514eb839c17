// What a window hands to the host as the user works in it: the pointer, the
// buttons, the wheel, keys as Windows virtual key codes, and the window's size.
#pragma once

class HostInput {
public:
    virtual void PointerMoved(int x, int y) = 0;
    virtual void ButtonChanged(bool left, bool down) = 0;
    // In the units of the Windows wheel: 120 a notch, positive away from the user.
    virtual void WheelTurned(int offset) = 0;
    virtual void KeyChanged(unsigned code, bool down) = 0;
    virtual void Resized(int width, int height) = 0;

protected:
    ~HostInput() = default;
};
