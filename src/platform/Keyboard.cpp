// Key state and character translation. On Windows GetKeyState and ToAscii are
// USER32's; elsewhere the state comes from the host (TavuSetKeyState) and the
// translation uses a US keyboard layout.
#include "Platform.h"

#if !defined(_WIN32)
namespace {

SHORT g_KeyStates[256];

const char kShiftedDigits[] = ")!@#$%^&*(";

struct OemKey {
    UINT VirtualKey;
    char Plain;
    char Shifted;
    char Controlled; // 0: nothing with Control
};

const OemKey kOemKeys[] = {
    {0xBA, ';', ':', 0},     {0xBB, '=', '+', 0},    {0xBC, ',', '<', 0},  {0xBD, '-', '_', 0x1F},
    {0xBE, '.', '>', 0},     {0xBF, '/', '?', 0},    {0xC0, '`', '~', 0},  {0xDB, '[', '{', 0x1B},
    {0xDC, '\\', '|', 0x1C}, {0xDD, ']', '}', 0x1D}, {0xDE, '\'', '"', 0},
};

bool Down(const BYTE* keyState, UINT key) {
    return (keyState[key] & 0x80) != 0;
}

// The character of a key on a US layout, or 0 when the key gives none.
int TranslateUs(UINT key, const BYTE* keyState) {
    bool shift = Down(keyState, 0x10) || Down(keyState, 0xA0) || Down(keyState, 0xA1);
    bool control = Down(keyState, 0x11) || Down(keyState, 0xA2) || Down(keyState, 0xA3);
    bool alt = Down(keyState, 0x12) || Down(keyState, 0xA4) || Down(keyState, 0xA5);
    bool capsLock = (keyState[0x14] & 1) != 0;
    if (control && alt) return 0; // AltGr: the US layout has no third level
    if (key >= 'A' && key <= 'Z') {
        if (control) return int(key - 'A' + 1);
        return (shift != capsLock) ? int(key) : int(key - 'A' + 'a');
    }
    if (key >= '0' && key <= '9') {
        if (control) return 0;
        return shift ? kShiftedDigits[key - '0'] : int(key);
    }
    if (key >= 0x60 && key <= 0x69) return int('0' + key - 0x60);
    switch (key) {
    case 0x20:
        return ' ';
    case 0x0D:
        return control ? '\n' : '\r';
    case 0x08:
        return control ? 0x7F : 0x08;
    case 0x09:
        return control ? 0 : '\t';
    case 0x1B:
        return 0x1B;
    case 0x6A:
        return '*';
    case 0x6B:
        return '+';
    case 0x6D:
        return '-';
    case 0x6E:
        return '.';
    case 0x6F:
        return '/';
    }
    for (const OemKey& oem : kOemKeys)
        if (oem.VirtualKey == key)
            return control ? oem.Controlled : (shift ? oem.Shifted : oem.Plain);
    return 0;
}

} // namespace

extern "C" {

SHORT GetKeyState(int virtualKey) {
    if (virtualKey < 0 || virtualKey > 255) return 0;
    return g_KeyStates[virtualKey];
}

int ToAscii(UINT virtualKey, UINT, const BYTE* keyState, LPWORD character, UINT) {
    if (!keyState || !character || virtualKey > 255) return 0;
    int translated = TranslateUs(virtualKey, keyState);
    if (translated == 0) return 0;
    *character = WORD(translated);
    return 1;
}

void TavuSetKeyState(int virtualKey, SHORT state) {
    if (virtualKey >= 0 && virtualKey <= 255) g_KeyStates[virtualKey] = state;
}
}
#else
extern "C" void TavuSetKeyState(int, SHORT) {}
#endif
