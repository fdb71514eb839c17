#include "XMLStream.h"

#include "Platform.h"
#include "XMLParser.h"
#include "XMLToken.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

// Token kinds of the units below 94 that stand on their own; 0 marks a unit
// that belongs to a word, -1 the zero unit that ends the input. Every unit from
// 94 up belongs to a word.
constexpr size_t kSpecialRange = 94;
constexpr int8_t kEndOfInput = -1;
const std::array<int8_t, kSpecialRange> kKinds = [] {
    std::array<int8_t, kSpecialRange> kinds{};
    kinds[0] = kEndOfInput;
    kinds['\t'] = kinds['\n'] = kinds['\r'] = XMLToken::LineSpace;
    kinds[' '] = XMLToken::Blank;
    kinds['!'] = XMLToken::Exclamation;
    kinds['"'] = XMLToken::DoubleQuote;
    kinds['#'] = XMLToken::Hash;
    kinds['&'] = XMLToken::Ampersand;
    kinds['\''] = XMLToken::SingleQuote;
    kinds['-'] = XMLToken::Hyphen;
    kinds['/'] = XMLToken::Slash;
    kinds[';'] = XMLToken::Semicolon;
    kinds['<'] = XMLToken::LessThan;
    kinds['='] = XMLToken::Equals;
    kinds['>'] = XMLToken::GreaterThan;
    kinds['?'] = XMLToken::Question;
    kinds['['] = XMLToken::LeftBracket;
    kinds[']'] = XMLToken::RightBracket;
    return kinds;
}();

inline bool IsWordUnit(char16_t unit) {
    return unit >= kSpecialRange || kKinds[unit] == 0;
}

// "<![CDATA[" and "]]>" together, plus one unit: the least that must be held
// before a "<" can be told apart from the start of a CDATA section.
constexpr size_t kCDATALookAhead = 13;
constexpr size_t kCDATAOpenerUnits = 9;
constexpr char16_t kCDATAOpener[] = u"<![CDATA[";

} // namespace

XMLStream::XMLStream(XMLParser* owner) : Owner(owner) {
    Start = static_cast<char16_t*>(malloc(InitialUnits * sizeof(char16_t)));
    End = Cursor = Start;
    Limit = Start ? Start + InitialUnits : nullptr;
}

XMLStream::~XMLStream() {
    free(Start);
}

size_t XMLStream::Decode(const char* bytes, size_t count, char16_t* destination, size_t capacity) {
    const unsigned char* in = reinterpret_cast<const unsigned char*>(bytes);
    size_t read = 0;
    size_t written = 0;
    while (read < count) {
        size_t ascii = count - read < capacity - written ? count - read : capacity - written;
        size_t taken = 0;
        while (taken < ascii && in[read + taken] < 0x80) {
            destination[written + taken] = in[read + taken];
            ++taken;
        }
        read += taken;
        written += taken;
        if (read == count) break;
        if (written == capacity) return 0;
        // An ASCII byte never belongs to a multi-byte sequence, so cutting the
        // input before one decodes exactly as the whole would.
        size_t runEnd = read;
        while (runEnd < count && in[runEnd] >= 0x80)
            ++runEnd;
        int units = MultiByteToWideChar(CP_UTF8, 0, bytes + read, int(runEnd - read),
                                        reinterpret_cast<LPWSTR>(destination + written),
                                        int(capacity - written));
        if (units <= 0) return 0;
        written += size_t(units);
        read = runEnd;
    }
    return written;
}

bool XMLStream::Grow(size_t units) {
    if (units > MaximumUnits) return false;
    size_t held = size_t(End - Start);
    char16_t* grown = static_cast<char16_t*>(realloc(Start, units * sizeof(char16_t)));
    if (!grown) return false;
    Start = Cursor = grown;
    End = grown + held;
    Limit = grown + units;
    return true;
}

// Moves the units not yet handed out to the front and reads more behind them.
// The buffer grows only when the units held are more than its free half: to
// twice its size when it is full, else to twice the units held.
XMLStream::FillResult XMLStream::Refill() {
    size_t held = size_t(End - Cursor);
    if (Cursor != Start) {
        memmove(Start, Cursor, held * sizeof(char16_t));
        Cursor = Start;
        End = Start + held;
    }
    size_t capacity = size_t(Limit - Start);
    size_t request = held == capacity ? capacity : held;
    if (held + request > capacity && !Grow(held + request)) {
        Fail("Memory allocation failed");
        return FillFailed;
    }
    size_t units = Read(End, size_t(Limit - End));
    End += units;
    return units ? FillDone : FillExhausted;
}

bool XMLStream::Next(XMLToken& token) {
    while (Cursor == End) {
        if (Refill() != FillDone) return false;
    }
    char16_t unit = *Cursor;
    if (IsWordUnit(unit)) return NextWord(token);
    int8_t kind = kKinds[unit];
    if (kind == kEndOfInput) return false;
    if (kind == XMLToken::LessThan) return NextLessThan(token);
    token.SetSingle(kind, char(unit));
    ++Cursor;
    return true;
}

bool XMLStream::Fail(const char* message) {
    HasFailed = true;
    if (Owner) Owner->SetErrorText("%s", message);
    return false;
}

bool XMLStream::MakeWord(XMLToken& token, size_t units) {
    if (!token.SetWord(Cursor, units)) return Fail("Memory allocation failed");
    Cursor += units;
    return true;
}

// A word runs to the next special unit; at the end of the input it is what was
// scanned so far.
bool XMLStream::NextWord(XMLToken& token) {
    size_t scanned = 1;
    for (;;) {
        const char16_t* scan = Cursor + scanned;
        while (scan < End && IsWordUnit(*scan))
            ++scan;
        scanned = size_t(scan - Cursor);
        if (scan < End) break;
        FillResult result = Refill();
        if (result == FillFailed) return false;
        if (result == FillExhausted) break;
    }
    return MakeWord(token, scanned);
}

bool XMLStream::NextLessThan(XMLToken& token) {
    while (size_t(End - Cursor) < kCDATALookAhead) {
        FillResult result = Refill();
        if (result == FillFailed) return false;
        if (result == FillExhausted) break;
    }
    if (size_t(End - Cursor) >= kCDATALookAhead &&
        memcmp(Cursor, kCDATAOpener, kCDATAOpenerUnits * sizeof(char16_t)) == 0)
        return ReadCDATA(token);
    token.SetSingle(XMLToken::LessThan, '<');
    ++Cursor;
    return true;
}

// The whole section is one word that keeps its "<![CDATA[" opener; "]]>" only
// counts as the end while at least one more unit follows it, and the search
// goes on by index so that a growing buffer does not lose its place.
bool XMLStream::ReadCDATA(XMLToken& token) {
    size_t at = kCDATAOpenerUnits;
    for (;;) {
        size_t held = size_t(End - Cursor);
        for (; at + 3 < held; ++at) {
            if (Cursor[at] == ']' && Cursor[at + 1] == ']' && Cursor[at + 2] == '>') {
                if (!MakeWord(token, at)) return false;
                Cursor += 3;
                return true;
            }
        }
        FillResult result = Refill();
        if (result == FillFailed) return false;
        if (result == FillExhausted) return Fail("No end to CDATA tag");
    }
}
