#include "HostText.h"

#include "EscapedText.h"

#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {
int Lower(unsigned char c) {
    return (c >= 'A' && c <= 'Z') ? c + ('a' - 'A') : c;
}
} // namespace

std::string FormatNumber(double value) {
    if (std::isnan(value)) return "NaN";
    if (std::isinf(value)) return value < 0 ? "-Infinity" : "Infinity";
    char buffer[64];
    if (value == std::floor(value) && std::fabs(value) < 9.2e18) {
        snprintf(buffer, sizeof(buffer), "%lld", static_cast<long long>(value));
        return buffer;
    }
    snprintf(buffer, sizeof(buffer), "%.6f", value);
    std::string text = buffer;
    while (!text.empty() && text.back() == '0')
        text.pop_back();
    if (!text.empty() && text.back() == '.') text.pop_back();
    if (text == "-0") text = "0";
    return text;
}

bool ParseNumber(const char* text, double& value) {
    if (!text) return false;
    while (*text == ' ' || *text == '\t')
        ++text;
    if (!*text) return false;
    // Only decimal forms count: strtod would also take hex, "inf" and "nan".
    const char* probe = text;
    if (*probe == '-' || *probe == '+') ++probe;
    if (!isdigit(static_cast<unsigned char>(*probe)) && *probe != '.') return false;
    if (probe[0] == '0' && (probe[1] == 'x' || probe[1] == 'X')) return false;
    char* end = nullptr;
    double parsed = strtod(text, &end);
    if (end == text) return false;
    while (*end == ' ' || *end == '\t')
        ++end;
    if (*end) return false;
    value = parsed;
    return true;
}

bool NarrowToFloat(double value, float& result) {
    if (std::isnan(value) || std::fabs(value) > 3.4028234663852886e38) return false;
    result = float(value);
    return true;
}

bool ParseTruth(const char* text, bool& truth) {
    if (!text) return false;
    if (SameName(text, "TRUE")) return truth = true, true;
    if (SameName(text, "FALSE") || SameName(text, "NULL")) return truth = false, true;
    double number = 0;
    if (!ParseNumber(text, number)) return false;
    truth = number != 0;
    return true;
}

std::string Unquote(const std::string& text) {
    if (text.size() >= 2 && text.front() == '"' && text.back() == '"')
        return text.substr(1, text.size() - 2);
    return text;
}

std::string QuoteForTrace(const char* text) {
    return QuotedText(text);
}

void CopyText(char* buffer, size_t size, const std::string& text) {
    if (!buffer || size == 0) return;
    size_t count = text.size() < size - 1 ? text.size() : size - 1;
    memcpy(buffer, text.data(), count);
    buffer[count] = 0;
}

bool SameName(const std::string& a, const std::string& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (Lower(a[i]) != Lower(b[i])) return false;
    return true;
}

bool NameLess::operator()(const std::string& a, const std::string& b) const {
    size_t common = a.size() < b.size() ? a.size() : b.size();
    for (size_t i = 0; i < common; ++i) {
        int difference = Lower(a[i]) - Lower(b[i]);
        if (difference) return difference < 0;
    }
    return a.size() < b.size();
}

std::u16string Utf8ToUtf16(const char* text) {
    std::u16string out;
    const unsigned char* c = reinterpret_cast<const unsigned char*>(text ? text : "");
    while (*c) {
        uint32_t code = 0xFFFD;
        int extra = 0;
        if (*c < 0x80)
            code = *c, extra = 0;
        else if ((*c & 0xE0) == 0xC0)
            code = *c & 0x1F, extra = 1;
        else if ((*c & 0xF0) == 0xE0)
            code = *c & 0x0F, extra = 2;
        else if ((*c & 0xF8) == 0xF0)
            code = *c & 0x07, extra = 3;
        else
            extra = -1;
        ++c;
        for (int i = 0; i < extra; ++i, ++c) {
            if ((*c & 0xC0) != 0x80) {
                code = 0xFFFD;
                break;
            }
            code = (code << 6) | (*c & 0x3F);
        }
        if (extra < 0 || code > 0x10FFFF) code = 0xFFFD;
        if (code >= 0x10000) {
            code -= 0x10000;
            out += char16_t(0xD800 + (code >> 10));
            out += char16_t(0xDC00 + (code & 0x3FF));
        } else {
            out += char16_t(code);
        }
    }
    return out;
}

std::string Utf16ToUtf8(const uint16_t* text) {
    std::string out;
    for (const uint16_t* unit = text; unit && *unit; ++unit) {
        uint32_t code = *unit;
        if (code >= 0xD800 && code < 0xDC00 && unit[1] >= 0xDC00 && unit[1] < 0xE000) {
            code = 0x10000 + ((code - 0xD800) << 10) + (unit[1] - 0xDC00);
            ++unit;
        } else if (code >= 0xD800 && code < 0xE000) {
            code = 0xFFFD;
        }
        if (code < 0x80) {
            out += char(code);
        } else if (code < 0x800) {
            out += char(0xC0 | (code >> 6));
            out += char(0x80 | (code & 0x3F));
        } else if (code < 0x10000) {
            out += char(0xE0 | (code >> 12));
            out += char(0x80 | ((code >> 6) & 0x3F));
            out += char(0x80 | (code & 0x3F));
        } else {
            out += char(0xF0 | (code >> 18));
            out += char(0x80 | ((code >> 12) & 0x3F));
            out += char(0x80 | ((code >> 6) & 0x3F));
            out += char(0x80 | (code & 0x3F));
        }
    }
    return out;
}

bool ReadWholeFile(const std::string& path, std::string& text) {
    FILE* file = fopen(path.c_str(), "rb");
    if (!file) return false;
    char buffer[4096];
    size_t count = 0;
    while ((count = fread(buffer, 1, sizeof(buffer), file)) > 0)
        text.append(buffer, count);
    fclose(file);
    return true;
}
