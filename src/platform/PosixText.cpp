// Code-page conversions where there is no KERNEL32: UTF-8 (65001) and the
// system code page, which is Windows-1252 here, on 16-bit UTF-16 units.
#include "Platform.h"

#if !defined(_WIN32)
#include <string.h>

namespace {

const char16_t kReplacement = 0xFFFD;

// Windows-1252 bytes 0x80 to 0x9F; the five unassigned ones map to themselves, as Windows does.
const char16_t kCp1252High[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                  0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// Collects output units and counts them; writes only while there is room.
template <typename Unit> struct Sink {
    Unit* out;
    int capacity; // 0: only count
    int count = 0;
    bool overflow = false;
    void Put(Unit unit) {
        if (capacity > 0) {
            if (count >= capacity) {
                overflow = true;
                return;
            }
            out[count] = unit;
        }
        ++count;
    }
};

// Decodes one UTF-8 sequence at text[i]; answers the code point (U+FFFD when
// malformed) and moves i past the bytes used.
char32_t DecodeUtf8(const unsigned char* text, int length, int& i) {
    unsigned char lead = text[i++];
    if (lead < 0x80) return lead;
    int extra;
    char32_t cp;
    char32_t minimum;
    if ((lead & 0xE0) == 0xC0) {
        extra = 1, cp = lead & 0x1F, minimum = 0x80;
    } else if ((lead & 0xF0) == 0xE0) {
        extra = 2, cp = lead & 0x0F, minimum = 0x800;
    } else if ((lead & 0xF8) == 0xF0) {
        extra = 3, cp = lead & 0x07, minimum = 0x10000;
    } else {
        return kReplacement;
    }
    for (int k = 0; k < extra; ++k) {
        if (i >= length || (text[i] & 0xC0) != 0x80) return kReplacement;
        cp = (cp << 6) | (text[i++] & 0x3F);
    }
    if (cp < minimum || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return kReplacement;
    return cp;
}

void PutUtf16(Sink<WCHAR>& sink, char32_t cp) {
    if (cp >= 0x10000) {
        cp -= 0x10000;
        sink.Put(WCHAR(0xD800 + (cp >> 10)));
        sink.Put(WCHAR(0xDC00 + (cp & 0x3FF)));
    } else {
        sink.Put(WCHAR(cp));
    }
}

void PutUtf8(Sink<char>& sink, char32_t cp) {
    if (cp < 0x80) {
        sink.Put(char(cp));
    } else if (cp < 0x800) {
        sink.Put(char(0xC0 | (cp >> 6)));
        sink.Put(char(0x80 | (cp & 0x3F)));
    } else if (cp < 0x10000) {
        sink.Put(char(0xE0 | (cp >> 12)));
        sink.Put(char(0x80 | ((cp >> 6) & 0x3F)));
        sink.Put(char(0x80 | (cp & 0x3F)));
    } else {
        sink.Put(char(0xF0 | (cp >> 18)));
        sink.Put(char(0x80 | ((cp >> 12) & 0x3F)));
        sink.Put(char(0x80 | ((cp >> 6) & 0x3F)));
        sink.Put(char(0x80 | (cp & 0x3F)));
    }
}

// Reads one code point from UTF-16, pairing surrogates; a lone one is U+FFFD.
char32_t DecodeUtf16(const WCHAR* text, int length, int& i) {
    char32_t unit = text[i++];
    if (unit >= 0xD800 && unit <= 0xDBFF && i < length && text[i] >= 0xDC00 && text[i] <= 0xDFFF)
        return 0x10000 + ((unit - 0xD800) << 10) + (text[i++] - 0xDC00);
    if (unit >= 0xD800 && unit <= 0xDFFF) return kReplacement;
    return unit;
}

int Cp1252FromCodePoint(char32_t cp) {
    if (cp < 0x80 || (cp >= 0xA0 && cp <= 0xFF)) return int(cp);
    for (int k = 0; k < 32; ++k)
        if (kCp1252High[k] == cp) return 0x80 + k;
    return -1;
}

bool SupportedCodePage(UINT codePage) {
    return codePage == CP_UTF8 || codePage == CP_ACP;
}

} // namespace

extern "C" {

int MultiByteToWideChar(UINT codePage, DWORD, LPCSTR multiByte, int byteCount, LPWSTR wide,
                        int wideCount) {
    if (!multiByte || byteCount == 0 || byteCount < -1 || wideCount < 0) return 0;
    if (!SupportedCodePage(codePage)) return 0;
    int length = byteCount == -1 ? int(strlen(multiByte)) + 1 : byteCount;
    const unsigned char* text = reinterpret_cast<const unsigned char*>(multiByte);
    Sink<WCHAR> sink{wide, wideCount};
    for (int i = 0; i < length && !sink.overflow;) {
        if (codePage == CP_UTF8) {
            PutUtf16(sink, DecodeUtf8(text, length, i));
        } else {
            unsigned char byte = text[i++];
            sink.Put(byte >= 0x80 && byte < 0xA0 ? kCp1252High[byte - 0x80] : WCHAR(byte));
        }
    }
    return sink.overflow ? 0 : sink.count;
}

int WideCharToMultiByte(UINT codePage, DWORD, LPCWSTR wide, int wideCount, LPSTR multiByte,
                        int byteCount, LPCSTR defaultChar, LPBOOL usedDefaultChar) {
    if (usedDefaultChar) *usedDefaultChar = FALSE;
    if (!wide || wideCount == 0 || wideCount < -1 || byteCount < 0) return 0;
    if (!SupportedCodePage(codePage)) return 0;
    int length = wideCount;
    if (wideCount == -1) {
        length = 0;
        while (wide[length])
            ++length;
        ++length;
    }
    Sink<char> sink{multiByte, byteCount};
    for (int i = 0; i < length && !sink.overflow;) {
        char32_t cp = DecodeUtf16(wide, length, i);
        if (codePage == CP_UTF8) {
            PutUtf8(sink, cp);
            continue;
        }
        int byte = Cp1252FromCodePoint(cp);
        if (byte < 0) {
            byte = defaultChar ? (unsigned char)defaultChar[0] : '?';
            if (usedDefaultChar) *usedDefaultChar = TRUE;
        }
        sink.Put(char(byte));
    }
    return sink.overflow ? 0 : sink.count;
}
}
#endif
