// The source of a document: decodes UTF-8 in pieces into one growing buffer of
// UTF-16 units and cuts the units at its head into tokens.
#pragma once

#include <cstddef>

class XMLParser;
class XMLToken;

class XMLStream {
public:
    // Units held at first (8192 bytes), and the most the buffer may grow to,
    // which is also the longest possible token.
    static constexpr size_t InitialUnits = 4096;
    static constexpr size_t MaximumUnits = 0x100000;

    explicit XMLStream(XMLParser* owner);
    XMLStream(const XMLStream&) = delete;
    XMLStream& operator=(const XMLStream&) = delete;
    virtual ~XMLStream();
    // Decodes up to capacity units of the source into destination and answers
    // the number of units stored; 0 means that the source is exhausted.
    virtual size_t Read(char16_t* destination, size_t capacity) = 0;

    // Produces the next token; false at the end of the input (a zero unit
    // counts as the end) or on a failure, whose text is then in the owner.
    bool Next(XMLToken& token);
    // Whether the last false of Next was a failure rather than the end.
    bool Failed() const { return HasFailed; }

    char16_t* Start = nullptr; // the buffer
    char16_t* End = nullptr;   // end of the units held
    char16_t* Limit = nullptr; // end of the buffer
    XMLParser* Owner;

protected:
    // Decodes UTF-8 into at most capacity units as the system does (invalid
    // bytes become replacement characters); answers 0 when it does not fit.
    static size_t Decode(const char* bytes, size_t count, char16_t* destination, size_t capacity);

private:
    enum FillResult { FillFailed = -1, FillExhausted = 0, FillDone = 1 };

    // Units already handed out as tokens stay in front of Cursor until the
    // next refill moves the rest to the front, which is one block move per
    // refill instead of one per token.
    char16_t* Cursor = nullptr;
    bool HasFailed = false;

    FillResult Refill();
    bool Grow(size_t units);
    bool NextWord(XMLToken& token);
    bool NextLessThan(XMLToken& token);
    bool ReadCDATA(XMLToken& token);
    bool MakeWord(XMLToken& token, size_t units);
    bool Fail(const char* message);
};
