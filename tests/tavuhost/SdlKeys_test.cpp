// The window's keys reach the toolkit as Windows virtual key codes.
#if defined(TAVUHOST_SDL_WINDOW)
#include "SdlKeys.h"

#include <gtest/gtest.h>

TEST(SdlKeys, KeysBecomeVirtualKeyCodesWithTheirSide) {
    struct Case {
        SDL_Scancode Key;
        unsigned Code;
    } cases[] = {
        {SDL_SCANCODE_A, 'A'},       {SDL_SCANCODE_Z, 'Z'},          {SDL_SCANCODE_1, '1'},
        {SDL_SCANCODE_9, '9'},       {SDL_SCANCODE_0, '0'},          {SDL_SCANCODE_F1, 0x70},
        {SDL_SCANCODE_F12, 0x7B},    {SDL_SCANCODE_RETURN, 0x0D},    {SDL_SCANCODE_LSHIFT, 0xA0},
        {SDL_SCANCODE_RSHIFT, 0xA1}, {SDL_SCANCODE_LCTRL, 0xA2},     {SDL_SCANCODE_RALT, 0xA5},
        {SDL_SCANCODE_LEFT, 0x25},   {SDL_SCANCODE_DELETE, 0x2E},    {SDL_SCANCODE_KP_0, 0x60},
        {SDL_SCANCODE_KP_9, 0x69},   {SDL_SCANCODE_SEMICOLON, 0xBA}, {SDL_SCANCODE_SLASH, 0xBF},
        {SDL_SCANCODE_UNKNOWN, 0},   {SDL_SCANCODE_MUTE, 0},
    };
    for (const Case& c : cases)
        EXPECT_EQ(c.Code, SdlKeys::VirtualKeyOf(c.Key)) << "scan code " << int(c.Key);
}
#endif
