#include "XMLStream.h"

#include "Platform.h"
#include "XMLParser.h"
#include "XMLToken.h"

#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int8_t kEndOfInput = -1;

// Behind the buffer: room for the zero bytes kept at End. The first stops
// every scan there without a test of its own; with the others, a word read
// at End holds no byte that was never written.
constexpr size_t kSlackBytes = 8;

static_assert(std::endian::native == std::endian::little, "scans read words low byte first");

// A word with 0x80 in every byte of the word that is zero: exact for the
// lowest such byte (a higher one may be marked falsely), which is all that
// the scans below use.
inline uint64_t ZeroBytes(uint64_t word) {
    return (word - 0x0101010101010101ull) & ~word & 0x8080808080808080ull;
}

// The first "<", "&" or zero byte at or behind text, eight bytes at a time;
// the zero kept at End stops it there at the latest.
const char* FindMarkupOrZero(const char* text) {
    for (;; text += 8) {
        uint64_t word;
        memcpy(&word, text, 8);
        uint64_t found = ZeroBytes(word) | ZeroBytes(word ^ 0x3C3C3C3C3C3C3C3Cull) |
                         ZeroBytes(word ^ 0x2626262626262626ull);
        if (found) return text + std::countr_zero(found) / 8;
    }
}

} // namespace

// Every byte from 94 up, and so all of non-ASCII text, belongs to a word.
const std::array<int8_t, 256> XMLStream::Kinds = [] {
    std::array<int8_t, 256> kinds{};
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

namespace {

inline int8_t KindOf(char byte) {
    return XMLStream::KindOfByte(byte);
}

// "<![CDATA[" and "]]>" together, plus one unit: the least that must be held
// before a "<" can be told apart from the start of a CDATA section.
constexpr size_t kCDATALookAhead = 13;
constexpr char kCDATAOpener[] = "<![CDATA[";
constexpr size_t kCDATAOpenerBytes = 9;

// Units of decoded UTF-8: one per character, two for one beyond the BMP.
size_t CountUnits(const char* text, size_t bytes) {
    size_t units = 0;
    for (size_t i = 0; i < bytes; ++i) {
        unsigned char byte = static_cast<unsigned char>(text[i]);
        units += (byte & 0xC0) != 0x80;
        units += byte >= 0xF0;
    }
    return units;
}

// Whether at least `units` units are held, counting no further than needed.
bool HoldsUnits(const char* text, size_t bytes, size_t units) {
    if (bytes >= units * 3) return true;
    if (bytes < units) return false;
    return CountUnits(text, bytes) >= units;
}

// Length of a strictly valid UTF-8 sequence at text, or 0.
size_t ValidSequence(const unsigned char* text, size_t left) {
    unsigned char lead = text[0];
    size_t length;
    uint32_t minimum;
    uint32_t cp;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2, minimum = 0x80, cp = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3, minimum = 0x800, cp = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, minimum = 0x10000, cp = lead & 0x07;
    } else {
        return 0;
    }
    if (left < length) return 0;
    for (size_t i = 1; i < length; ++i) {
        if ((text[i] & 0xC0) != 0x80) return 0;
        cp = (cp << 6) | (text[i] & 0x3F);
    }
    if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
    return length;
}

bool IsValidRun(const char* bytes, size_t count) {
    const unsigned char* text = reinterpret_cast<const unsigned char*>(bytes);
    for (size_t i = 0; i < count;) {
        size_t length = ValidSequence(text + i, count - i);
        if (length == 0) return false;
        i += length;
    }
    return true;
}

size_t AsciiPrefix(const char* bytes, size_t count) {
    size_t i = 0;
    for (; i + 32 <= count; i += 32) {
        uint64_t words[4];
        memcpy(words, bytes + i, 32);
        if ((words[0] | words[1] | words[2] | words[3]) & 0x8080808080808080ull) break;
    }
    for (; i + 8 <= count; i += 8) {
        uint64_t word;
        memcpy(&word, bytes + i, 8);
        if (word & 0x8080808080808080ull) break;
    }
    while (i < count && static_cast<unsigned char>(bytes[i]) < 0x80)
        ++i;
    return i;
}

} // namespace

XMLStream::XMLStream(XMLParser* owner) : Owner(owner) {
    Start = static_cast<char*>(malloc(InitialUnits * BytesPerUnit + kSlackBytes));
    End = Cursor = Start;
    Limit = Start ? Start + InitialUnits * BytesPerUnit : nullptr;
    CapacityUnits = Start ? InitialUnits : 0;
    MarkEnd();
}

XMLStream::~XMLStream() {
    free(Start);
}

// Invalid text goes through the system's own conversion, so that it becomes
// exactly the replacement characters that the system makes of it.
size_t XMLStream::DecodeInvalid(const char* bytes, size_t count, char* out) {
    if (Wide.size() < count) Wide.resize(count);
    int units = MultiByteToWideChar(CP_UTF8, 0, bytes, int(count),
                                    reinterpret_cast<LPWSTR>(Wide.data()), int(count));
    if (units <= 0) return 0;
    int written = WideCharToMultiByte(CP_UTF8, 0, reinterpret_cast<LPCWSTR>(Wide.data()), units,
                                      out, int(count * BytesPerUnit), nullptr, nullptr);
    return written > 0 ? size_t(written) : 0;
}

size_t XMLStream::Decode(const char* bytes, size_t count, char* out) {
    size_t read = 0;
    size_t written = 0;
    while (read < count) {
        size_t ascii = AsciiPrefix(bytes + read, count - read);
        memcpy(out + written, bytes + read, ascii);
        read += ascii;
        written += ascii;
        if (read == count) break;
        // An ASCII byte never belongs to a multi-byte sequence, so the text
        // between two of them decodes exactly as it would within the whole.
        size_t runEnd = read;
        while (runEnd < count && static_cast<unsigned char>(bytes[runEnd]) >= 0x80)
            ++runEnd;
        size_t run = runEnd - read;
        if (IsValidRun(bytes + read, run)) {
            memcpy(out + written, bytes + read, run);
            written += run;
        } else {
            written += DecodeInvalid(bytes + read, run, out + written);
        }
        read = runEnd;
    }
    return written;
}

void XMLStream::MarkEnd() {
    if (End) memset(End, 0, kSlackBytes);
}

bool XMLStream::Grow(size_t units) {
    if (units > MaximumUnits) return false;
    size_t held = size_t(End - Start);
    char* grown = static_cast<char*>(realloc(Start, units * BytesPerUnit + kSlackBytes));
    if (!grown) return false;
    Start = Cursor = grown;
    End = grown + held;
    Limit = grown + units * BytesPerUnit;
    CapacityUnits = units;
    MarkEnd();
    return true;
}

// Moves the text not yet handed out to the front and reads more behind it.
// The buffer grows only when the units held are more than its free half: to
// twice its size when it is full, else to twice the units held.
XMLStream::FillResult XMLStream::Refill() {
    size_t held = size_t(End - Cursor);
    if (Cursor != Start) {
        memmove(Start, Cursor, held);
        Cursor = Start;
        End = Start + held;
        MarkEnd();
    }
    size_t heldUnits = CountUnits(Start, held);
    size_t request = heldUnits == CapacityUnits ? CapacityUnits : heldUnits;
    if (heldUnits + request > CapacityUnits && !Grow(heldUnits + request)) {
        Fail("Memory allocation failed");
        return FillFailed;
    }
    size_t bytes = Read(End, CapacityUnits - heldUnits);
    End += bytes;
    MarkEnd();
    return bytes ? FillDone : FillExhausted;
}

bool XMLStream::NextToken(XMLToken& token) {
    while (Cursor == End) {
        if (Refill() != FillDone) return false;
    }
    int8_t kind = KindOf(*Cursor);
    if (kind == 0) return NextWord(token);
    if (kind == kEndOfInput) return false;
    if (kind == XMLToken::LessThan) return NextLessThan(token);
    token.SetSingle(kind, *Cursor);
    ++Cursor;
    return true;
}

void XMLStream::TakePlainText(std::string& out) {
    char* stop = const_cast<char*>(FindMarkupOrZero(Cursor));
    // Text that runs to the end of what is held stops behind its last token
    // that is not a word.
    if (stop == End) {
        while (stop > Cursor && KindOf(stop[-1]) == 0)
            --stop;
    }
    out.append(Cursor, size_t(stop - Cursor));
    Cursor = stop;
}

// A word that reaches the end of what is held may go on after a refill, so
// it is left to Next.
const char* XMLStream::PeekWord(size_t& length) const {
    const char* at = Cursor;
    // The zero kept at End stops the scan there at the latest.
    while (KindOf(*at) == 0)
        ++at;
    if (at == Cursor || at == End) return nullptr;
    length = size_t(at - Cursor);
    return Cursor;
}

bool XMLStream::Fail(const char* message) {
    HasFailed = true;
    if (Owner) Owner->SetErrorText("%s", message);
    return false;
}

bool XMLStream::MakeWord(XMLToken& token, size_t bytes) {
    if (!token.SetWord(Cursor, bytes)) return Fail("Memory allocation failed");
    Cursor += bytes;
    return true;
}

// A word runs to the next special byte; at the end of the input it is what
// was scanned so far.
bool XMLStream::NextWord(XMLToken& token) {
    size_t scanned = 1;
    for (;;) {
        // The zero kept at End ends the word there at the latest.
        const char* scan = Cursor + scanned;
        while (KindOf(*scan) == 0)
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
    while (!HoldsUnits(Cursor, size_t(End - Cursor), kCDATALookAhead)) {
        FillResult result = Refill();
        if (result == FillFailed) return false;
        if (result == FillExhausted) break;
    }
    if (HoldsUnits(Cursor, size_t(End - Cursor), kCDATALookAhead) &&
        memcmp(Cursor, kCDATAOpener, kCDATAOpenerBytes) == 0)
        return ReadCDATA(token);
    token.SetSingle(XMLToken::LessThan, '<');
    ++Cursor;
    return true;
}

// The whole section is one word that keeps its "<![CDATA[" opener; "]]>" only
// counts as the end while at least one more unit follows it, and the search
// goes on by index so that a growing buffer does not lose its place.
bool XMLStream::ReadCDATA(XMLToken& token) {
    size_t at = kCDATAOpenerBytes;
    for (;;) {
        size_t held = size_t(End - Cursor);
        for (; at + 3 < held; ++at) {
            if (Cursor[at] == ']' && Cursor[at + 1] == ']' && Cursor[at + 2] == '>') {
                // A zero byte inside the section ends its text, as it ends
                // any text of the document.
                const void* zero = memchr(Cursor, 0, at);
                size_t text = zero ? size_t(static_cast<const char*>(zero) - Cursor) : at;
                if (!token.SetWord(Cursor, text)) return Fail("Memory allocation failed");
                Cursor += at + 3;
                return true;
            }
        }
        FillResult result = Refill();
        if (result == FillFailed) return false;
        if (result == FillExhausted) return Fail("No end to CDATA tag");
    }
}
