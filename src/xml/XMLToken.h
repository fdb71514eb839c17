// One lexical unit of an XML document, as the tokeniser hands it to the parser.
#pragma once

#include "TavuExport.h"

#include <array>
#include <cstddef>
#include <cstdint>

class TAVU_API XMLToken {
public:
    enum : int32_t {
        None = 0,
        Word = 1, // any run of other characters, or a whole CDATA section
        LessThan = 2,
        GreaterThan = 3,
        Equals = 4,
        DoubleQuote = 5,
        SingleQuote = 6,
        Ampersand = 7,
        Slash = 8,
        Hash = 9,
        Semicolon = 10,
        Exclamation = 11,
        Hyphen = 12,
        Question = 13,
        LeftBracket = 14,
        RightBracket = 15,
        LineSpace = 16, // tab, line feed or carriage return
        Blank = 17,
    };

    XMLToken() = default;
    XMLToken(const XMLToken&) = delete;
    XMLToken& operator=(const XMLToken&) = delete;
    virtual ~XMLToken();
    // Gives back the text of a word; a one-character token has nothing to free.
    virtual void Clear();

    bool IsSpace() const { return Kind == LineSpace || Kind == Blank; }

    // Makes this a one-character token of the given kind for the given character.
    void SetSingle(int32_t kind, char character) {
        Kind = kind;
        Text = SingleTexts[static_cast<unsigned char>(character) & 0x7F].data();
        Length = 1;
    }
    // Makes this a word of the given UTF-8 bytes.
    // Answers false when no memory could be had for the text.
    bool SetWord(const char* bytes, size_t count);

    const char* Text = ""; // UTF-8, zero-terminated
    size_t Length = 0;     // bytes in Text
    int32_t Kind = None;

private:
    using SingleTextTable = std::array<std::array<char, 2>, 128>;
    static const SingleTextTable SingleTexts;

    // Word text lives here; the storage is kept from word to word so that
    // reading a document does not allocate once per word.
    char* Storage = nullptr;
    size_t StorageSize = 0;
};
