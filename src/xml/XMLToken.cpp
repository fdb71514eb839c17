#include "XMLToken.h"

#include <cstdlib>
#include <cstring>

// The text of each one-character token, indexed by the character itself.
const XMLToken::SingleTextTable XMLToken::SingleTexts = [] {
    SingleTextTable texts{};
    for (int c = 0; c < 128; ++c)
        texts[c][0] = char(c);
    return texts;
}();

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

bool XMLToken::SetWord(const char* bytes, size_t count) {
    if (count + 1 > StorageSize) {
        size_t size = count < 64 ? 64 : count + count / 2 + 1;
        char* grown = static_cast<char*>(realloc(Storage, size));
        if (!grown) return false;
        Storage = grown;
        StorageSize = size;
    }
    memcpy(Storage, bytes, count);
    Storage[count] = 0;
    Kind = Word;
    Text = Storage;
    Length = count;
    return true;
}
