#include "XMLToken.h"

#include "Platform.h"

#include <cstdlib>

namespace {

// The text of each one-character token, indexed by the character itself.
struct SingleTexts {
    char Texts[128][2] = {};
    SingleTexts() {
        for (int c = 0; c < 128; ++c)
            Texts[c][0] = char(c);
    }
};
const SingleTexts kSingleTexts;

bool IsAscii(char16_t unit) {
    return unit < 0x80;
}

} // namespace

XMLToken::~XMLToken() {
    free(Storage);
}

void XMLToken::Clear() {
    if (Kind != Word) return;
    free(Storage);
    Storage = nullptr;
    StorageSize = 0;
    Text = "";
}

void XMLToken::SetSingle(int32_t kind, char character) {
    Kind = kind;
    Text = kSingleTexts.Texts[static_cast<unsigned char>(character) & 0x7F];
    Length = 1;
}

bool XMLToken::SetWord(const char16_t* units, size_t count) {
    // A BMP unit takes at most three UTF-8 bytes, a surrogate pair four for two.
    size_t needed = count * 3 + 1;
    if (needed > StorageSize) {
        size_t size = needed < 64 ? 64 : needed + needed / 2;
        char* grown = static_cast<char*>(realloc(Storage, size));
        if (!grown) return false;
        Storage = grown;
        StorageSize = size;
    }
    char* out = Storage;
    const char16_t* end = units + count;
    const char16_t* unit = units;
    while (unit < end) {
        if (*unit == 0) break;
        if (IsAscii(*unit)) {
            *out++ = char(*unit++);
            continue;
        }
        const char16_t* runEnd = unit;
        while (runEnd < end && !IsAscii(*runEnd))
            ++runEnd;
        int written =
            WideCharToMultiByte(CP_UTF8, 0, reinterpret_cast<LPCWSTR>(unit), int(runEnd - unit),
                                out, int(StorageSize - (out - Storage) - 1), nullptr, nullptr);
        out += written > 0 ? written : 0;
        unit = runEnd;
    }
    *out = 0;
    Kind = Word;
    Text = Storage;
    Length = size_t(out - Storage);
    return true;
}
