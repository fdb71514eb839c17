#include "KeyNames.h"

#include "HostText.h"

#include <cstdlib>
#include <cstring>

namespace {

struct NamedKey {
    const char* Name;
    unsigned Code;
};

const NamedKey Keys[] = {
    {"Backspace", 0x08},  {"Tab", 0x09},         {"Enter", 0x0D},     {"Shift", 0x10},
    {"Control", 0x11},    {"Alt", 0x12},         {"Pause", 0x13},     {"CapsLock", 0x14},
    {"Escape", 0x1B},     {"Space", 0x20},       {"PageUp", 0x21},    {"PageDown", 0x22},
    {"End", 0x23},        {"Home", 0x24},        {"Left", 0x25},      {"Up", 0x26},
    {"Right", 0x27},      {"Down", 0x28},        {"Insert", 0x2D},    {"Delete", 0x2E},
    {"NumLock", 0x90},    {"ScrollLock", 0x91},  {"Semicolon", 0xBA}, {"Equals", 0xBB},
    {"Comma", 0xBC},      {"Minus", 0xBD},       {"Period", 0xBE},    {"Slash", 0xBF},
    {"Grave", 0xC0},      {"LeftBracket", 0xDB}, {"Backslash", 0xDC}, {"RightBracket", 0xDD},
    {"Apostrophe", 0xDE},
};

// Other spellings that scripts write; the first name above is the one given back.
const NamedKey Aliases[] = {{"Return", 0x0D}, {"Ctrl", 0x11}, {"Esc", 0x1B}, {"Del", 0x2E},
                            {"Ins", 0x2D},    {"PgUp", 0x21}, {"PgDn", 0x22}};

// Punctuation of a US keyboard: the unshifted and shifted character of a key.
struct PunctuationKey {
    char Plain;
    char Shifted;
    unsigned Code;
};
const PunctuationKey Punctuation[] = {
    {';', ':', 0xBA},  {'=', '+', 0xBB}, {',', '<', 0xBC},  {'-', '_', 0xBD},
    {'.', '>', 0xBE},  {'/', '?', 0xBF}, {'`', '~', 0xC0},  {'[', '{', 0xDB},
    {'\\', '|', 0xDC}, {']', '}', 0xDD}, {'\'', '"', 0xDE},
};
const char ShiftedDigits[] = ")!@#$%^&*(";

} // namespace

bool KeyNames::CodeOf(const std::string& word, unsigned& code) {
    if (word.size() == 1) {
        char c = word[0];
        if (c >= 'a' && c <= 'z') c = char(c - 'a' + 'A');
        if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) return code = unsigned(c), true;
    }
    if (word.size() >= 2 && word.find_first_not_of("0123456789") == std::string::npos) {
        long value = atol(word.c_str());
        if (value > 0xFFFF) return false;
        return code = unsigned(value), true;
    }
    if (word.size() >= 2 && (word[0] == 'F' || word[0] == 'f')) {
        int number = atoi(word.c_str() + 1);
        if (number >= 1 && number <= 24 && std::to_string(number) == word.substr(1))
            return code = 0x70 + unsigned(number) - 1, true;
    }
    for (const NamedKey& key : Keys)
        if (SameName(word, key.Name)) return code = key.Code, true;
    for (const NamedKey& key : Aliases)
        if (SameName(word, key.Name)) return code = key.Code, true;
    return false;
}

bool KeyNames::NameOf(unsigned code, std::string& name) {
    if ((code >= 'A' && code <= 'Z') || (code >= '0' && code <= '9'))
        return name = std::string(1, char(code)), true;
    if (code >= 0x70 && code < 0x70 + 24) return name = "F" + std::to_string(code - 0x70 + 1), true;
    for (const NamedKey& key : Keys)
        if (key.Code == code) return name = key.Name, true;
    return false;
}

bool KeyNames::KeyFor(char character, unsigned& code, bool& shift) {
    shift = false;
    if (character >= 'a' && character <= 'z') return code = unsigned(character - 'a' + 'A'), true;
    if (character >= 'A' && character <= 'Z') return shift = true, code = unsigned(character), true;
    if (character >= '0' && character <= '9') return code = unsigned(character), true;
    if (character == ' ') return code = 0x20, true;
    if (character == '\t') return code = 0x09, true;
    if (character == '\n') return code = 0x0D, true;
    if (const char* digit = character ? strchr(ShiftedDigits, character) : nullptr)
        return shift = true, code = unsigned('0' + (digit - ShiftedDigits)), true;
    for (const PunctuationKey& key : Punctuation) {
        if (character == key.Plain) return code = key.Code, true;
        if (character == key.Shifted) return shift = true, code = key.Code, true;
    }
    return false;
}
