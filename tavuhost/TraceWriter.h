// The --trace output: one line per call that the toolkit makes into the host,
// the operation's name and then its arguments in call order. Integers are
// decimal, colours and flags 0x and eight hex digits, text in double quotes
// with escapes, draw records field by field, handles as numbers.
#pragma once

#include "Platform.h"
#include "TAVUDrawRecord.h"

#include <cstdio>
#include <initializer_list>
#include <string>

class TraceWriter {
public:
    TraceWriter() = default;
    ~TraceWriter();
    TraceWriter(const TraceWriter&) = delete;
    TraceWriter& operator=(const TraceWriter&) = delete;

    // "-" is standard output; anything else a file, made anew.
    bool Open(const std::string& target);
    bool IsOn() const { return Output != nullptr; }
    // While held, calls are not written.
    void Hold(bool held) { Held = held; }
    void Write(const char* operation, std::initializer_list<std::string> arguments);

    static std::string Int(long long value);
    static std::string Hex(unsigned value);
    static std::string Text(const char* text);
    static std::string Flag(bool value);
    static std::string Rect(const tagRECT* rect);
    static std::string Record(const TAVUDrawRecord* record);

private:
    FILE* Output = nullptr;
    bool OwnsOutput = false;
    bool Held = false;
};
