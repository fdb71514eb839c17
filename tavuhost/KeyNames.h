// Key names of the host: the words that "key" takes and that GetKeyName gives
// for key events, with the virtual key codes of a US keyboard.
#pragma once

#include <cstddef>
#include <string>

class KeyNames {
public:
    // A name ("Enter", "a", "F1") or a code of two or more digits; false when
    // the word is neither.
    static bool CodeOf(const std::string& word, unsigned& code);
    // The name of a code; false when the key has none.
    static bool NameOf(unsigned code, std::string& name);
    // The key that types a character, and whether Shift is needed for it.
    static bool KeyFor(char character, unsigned& code, bool& shift);
};
