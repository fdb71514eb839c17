#include "TraceWriter.h"

#include "HostText.h"

TraceWriter::~TraceWriter() {
    if (OwnsOutput) fclose(Output);
}

bool TraceWriter::Open(const std::string& target) {
    if (target == "-") {
        Output = stdout;
        return true;
    }
    Output = fopen(target.c_str(), "wb");
    OwnsOutput = Output != nullptr;
    return Output != nullptr;
}

void TraceWriter::Write(const char* operation, std::initializer_list<std::string> arguments) {
    if (!Output || Held) return;
    std::string line = operation;
    for (const std::string& argument : arguments)
        line += " " + argument;
    line += "\n";
    fwrite(line.data(), 1, line.size(), Output);
    fflush(Output);
}

std::string TraceWriter::Int(long long value) {
    return std::to_string(value);
}

std::string TraceWriter::Hex(unsigned value) {
    char text[16];
    snprintf(text, sizeof(text), "0x%08X", value);
    return text;
}

std::string TraceWriter::Text(const char* text) {
    return QuoteForTrace(text);
}

std::string TraceWriter::Flag(bool value) {
    return value ? "true" : "false";
}

std::string TraceWriter::Rect(const tagRECT* rect) {
    if (!rect) return "null";
    return Int(rect->left) + " " + Int(rect->top) + " " + Int(rect->right) + " " +
           Int(rect->bottom);
}

std::string TraceWriter::Record(const TAVUDrawRecord* record) {
    if (!record) return "null";
    return Hex(record->Flags) + " " + Int(record->Left) + " " + Int(record->Top) + " " +
           Int(record->Right) + " " + Int(record->Bottom) + " " + Int(record->TextureLeft) + " " +
           Int(record->TextureTop) + " " + Int(record->TextureRight) + " " +
           Int(record->TextureBottom) + " " + Int(record->Texture) + " " + Int(record->Alpha) +
           " " + Int(record->Orientation) + " " + Hex(record->ColorMask);
}
