// SDL's keys as Windows virtual key codes, by their place on the keyboard
// (scan codes), since the toolkit turns keys into characters by the US layout.
// The modifiers keep their side: left and right Shift, Control and Alt have
// codes of their own, which the toolkit folds into one state each.
#pragma once

#include <SDL_scancode.h>

class SdlKeys {
public:
    // 0 for a key that has no code.
    static unsigned VirtualKeyOf(SDL_Scancode key);
};
