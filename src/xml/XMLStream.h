// The source of a document: decodes UTF-8 in pieces into one growing buffer
// and cuts the text at its head into tokens.
//
// The buffer is measured in UTF-16 units, as the system decodes text: a piece
// read asks for as many bytes as there are free units, the buffer grows by
// units, and no token may pass the unit limit. The text itself is kept as
// UTF-8 that has already been through that decoding (every invalid byte is a
// replacement character), so that tokens come out without converting back.
#pragma once

#include "XMLToken.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

class XMLParser;

class XMLStream {
public:
    // Units held at first (8192 bytes of UTF-16), and the most the buffer may
    // grow to, which is also the longest possible token.
    static constexpr size_t InitialUnits = 4096;
    static constexpr size_t MaximumUnits = 0x100000;
    // A unit never takes more than three bytes of UTF-8.
    static constexpr size_t BytesPerUnit = 3;

    explicit XMLStream(XMLParser* owner);
    XMLStream(const XMLStream&) = delete;
    XMLStream& operator=(const XMLStream&) = delete;
    virtual ~XMLStream();
    // Takes up to capacity bytes of the source, decoded, into destination
    // (room for capacity units, that is capacity * BytesPerUnit bytes) and
    // answers the bytes stored; 0 means that the source is exhausted.
    virtual size_t Read(char* destination, size_t capacity) = 0;

    // Produces the next token; false at the end of the input (a zero byte
    // counts as the end) or on a failure, whose text is then in the owner.
    // A one-character token other than "<" is made here, inline, as it is by
    // far the most frequent kind; everything else is left to NextToken.
    bool Next(XMLToken& token) {
        if (Cursor != End) {
            int8_t kind = Kinds[static_cast<unsigned char>(*Cursor)];
            if (kind > 0 && kind != XMLToken::LessThan) {
                token.SetSingle(kind, *Cursor++);
                return true;
            }
        }
        return NextToken(token);
    }
    // Appends to out the text of the tokens that follow up to the next "<",
    // "&" or zero byte, as reading them one by one would, and consumes them.
    // A word that runs to the end of what is held is left for Next.
    void TakePlainText(std::string& out);
    // The word at the head of the text when what is held shows all of it (a
    // byte that is not a word's follows before the end), else null; nothing
    // is consumed. The parser takes names from here without a token.
    const char* PeekWord(size_t& length) const;
    // Consumes bytes at the head of the text, as peeked.
    void Skip(size_t bytes) { Cursor += bytes; }
    static int8_t KindOfByte(char byte) { return Kinds[static_cast<unsigned char>(byte)]; }
    // Whether the last false of Next was a failure rather than the end.
    bool Failed() const { return HasFailed; }

    char* Start = nullptr; // the buffer
    char* End = nullptr;   // end of the text held
    char* Limit = nullptr; // end of the buffer (a few bytes of slack follow)
    size_t CapacityUnits = 0;
    XMLParser* Owner;

protected:
    // Decodes count bytes as the system decodes UTF-8 and writes the result
    // as UTF-8 to out (at most count * BytesPerUnit bytes); answers the bytes
    // written. Valid text is copied as it is.
    size_t Decode(const char* bytes, size_t count, char* out);

private:
    // Token kinds by byte: 0 for a byte of a word, -1 for the zero byte that
    // ends the input, else the kind of the one-character token.
    static const std::array<int8_t, 256> Kinds;

    enum FillResult { FillFailed = -1, FillExhausted = 0, FillDone = 1 };

    // Text already handed out as tokens stays in front of Cursor until the
    // next refill moves the rest to the front: one block move per refill
    // instead of one per token.
    char* Cursor = nullptr;
    bool HasFailed = false;
    std::u16string Wide; // decoding room for invalid text

    // Keeps zero bytes at End, where every scan stops.
    void MarkEnd();
    bool NextToken(XMLToken& token);
    FillResult Refill();
    bool Grow(size_t units);
    bool NextWord(XMLToken& token);
    bool NextLessThan(XMLToken& token);
    bool ReadCDATA(XMLToken& token);
    bool MakeWord(XMLToken& token, size_t bytes);
    bool Fail(const char* message);
    size_t DecodeInvalid(const char* bytes, size_t count, char* out);
};
