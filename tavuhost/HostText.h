// Small text helpers of the host: number forms, quoting, escaping, whole files.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// A number as scripts see it: whole numbers without a point, others with up to
// six decimals and no trailing zeros ("3", "2.5", "0.333333").
std::string FormatNumber(double value);

// Whether the whole text reads as a number (blanks around it allowed).
bool ParseNumber(const char* text, double& value);

// A double narrowed to float; false when it is beyond what a float holds.
bool NarrowToFloat(double value, float& result);

// TRUE, FALSE, or a number (non-zero is true); false when the text is neither.
bool ParseTruth(const char* text, bool& truth);

// The text without one pair of surrounding double quotes, if it has them.
std::string Unquote(const std::string& text);

// Text in double quotes, escaped as tavuxml prints text: \" \\ \n \r \t, and
// \xhh for every other byte below 0x20 or from 0x7f up.
std::string QuoteForTrace(const char* text);

// Copies text into a buffer of size bytes, always terminated (size 0: nothing).
void CopyText(char* buffer, size_t size, const std::string& text);

// Reads a whole file as bytes, appended to text; false when it cannot be opened.
bool ReadWholeFile(const std::string& path, std::string& text);

// ASCII case-insensitive comparison, as every name of the script language uses.
bool SameName(const std::string& a, const std::string& b);

// Less-than for maps keyed by names that ignore case.
struct NameLess {
    bool operator()(const std::string& a, const std::string& b) const;
};

// UTF-8 and UTF-16 (16-bit units, as the platform's wide text is). Malformed
// input becomes U+FFFD; nothing is read past a terminator.
std::u16string Utf8ToUtf16(const char* text);
std::string Utf16ToUtf8(const uint16_t* text);
