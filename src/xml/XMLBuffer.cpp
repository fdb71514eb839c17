#include "XMLBuffer.h"

XMLBuffer::XMLBuffer(XMLParser* owner, const char* source, size_t sourceLength)
    : XMLStream(owner), Source(source), SourceLength(source ? sourceLength : 0) {}

size_t XMLBuffer::Read(char16_t* destination, size_t capacity) {
    if (Position >= SourceLength || capacity == 0) return 0;
    size_t left = SourceLength - Position;
    size_t bytes = capacity < left ? capacity : left;
    size_t units = Decode(Source + Position, bytes, destination, capacity);
    while (units == 0 && bytes > 2) {
        bytes /= 2;
        units = Decode(Source + Position, bytes, destination, capacity);
    }
    if (units == 0) return 0;
    Position += bytes;
    return units;
}
