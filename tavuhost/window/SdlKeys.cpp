#include "SdlKeys.h"

namespace {

struct KeyCode {
    SDL_Scancode Key;
    unsigned Code;
};

const KeyCode Keys[] = {
    {SDL_SCANCODE_RETURN, 0x0D},       {SDL_SCANCODE_ESCAPE, 0x1B},
    {SDL_SCANCODE_BACKSPACE, 0x08},    {SDL_SCANCODE_TAB, 0x09},
    {SDL_SCANCODE_SPACE, 0x20},        {SDL_SCANCODE_CAPSLOCK, 0x14},
    {SDL_SCANCODE_PAGEUP, 0x21},       {SDL_SCANCODE_PAGEDOWN, 0x22},
    {SDL_SCANCODE_END, 0x23},          {SDL_SCANCODE_HOME, 0x24},
    {SDL_SCANCODE_LEFT, 0x25},         {SDL_SCANCODE_UP, 0x26},
    {SDL_SCANCODE_RIGHT, 0x27},        {SDL_SCANCODE_DOWN, 0x28},
    {SDL_SCANCODE_INSERT, 0x2D},       {SDL_SCANCODE_DELETE, 0x2E},
    {SDL_SCANCODE_PAUSE, 0x13},        {SDL_SCANCODE_PRINTSCREEN, 0x2C},
    {SDL_SCANCODE_LGUI, 0x5B},         {SDL_SCANCODE_RGUI, 0x5C},
    {SDL_SCANCODE_APPLICATION, 0x5D},  {SDL_SCANCODE_NUMLOCKCLEAR, 0x90},
    {SDL_SCANCODE_SCROLLLOCK, 0x91},   {SDL_SCANCODE_LSHIFT, 0xA0},
    {SDL_SCANCODE_RSHIFT, 0xA1},       {SDL_SCANCODE_LCTRL, 0xA2},
    {SDL_SCANCODE_RCTRL, 0xA3},        {SDL_SCANCODE_LALT, 0xA4},
    {SDL_SCANCODE_RALT, 0xA5},         {SDL_SCANCODE_SEMICOLON, 0xBA},
    {SDL_SCANCODE_EQUALS, 0xBB},       {SDL_SCANCODE_COMMA, 0xBC},
    {SDL_SCANCODE_MINUS, 0xBD},        {SDL_SCANCODE_PERIOD, 0xBE},
    {SDL_SCANCODE_SLASH, 0xBF},        {SDL_SCANCODE_GRAVE, 0xC0},
    {SDL_SCANCODE_LEFTBRACKET, 0xDB},  {SDL_SCANCODE_BACKSLASH, 0xDC},
    {SDL_SCANCODE_RIGHTBRACKET, 0xDD}, {SDL_SCANCODE_APOSTROPHE, 0xDE},
    {SDL_SCANCODE_KP_MULTIPLY, 0x6A},  {SDL_SCANCODE_KP_PLUS, 0x6B},
    {SDL_SCANCODE_KP_MINUS, 0x6D},     {SDL_SCANCODE_KP_PERIOD, 0x6E},
    {SDL_SCANCODE_KP_DIVIDE, 0x6F},    {SDL_SCANCODE_KP_ENTER, 0x0D},
};

} // namespace

unsigned SdlKeys::VirtualKeyOf(SDL_Scancode key) {
    if (key >= SDL_SCANCODE_A && key <= SDL_SCANCODE_Z) return 'A' + unsigned(key - SDL_SCANCODE_A);
    // SDL counts 1 to 9, then 0; the codes run 0 to 9.
    if (key >= SDL_SCANCODE_1 && key <= SDL_SCANCODE_9) return '1' + unsigned(key - SDL_SCANCODE_1);
    if (key == SDL_SCANCODE_0) return '0';
    if (key >= SDL_SCANCODE_F1 && key <= SDL_SCANCODE_F12)
        return 0x70 + unsigned(key - SDL_SCANCODE_F1);
    if (key >= SDL_SCANCODE_KP_1 && key <= SDL_SCANCODE_KP_9)
        return 0x61 + unsigned(key - SDL_SCANCODE_KP_1);
    if (key == SDL_SCANCODE_KP_0) return 0x60;
    for (const KeyCode& entry : Keys)
        if (entry.Key == key) return entry.Code;
    return 0;
}
