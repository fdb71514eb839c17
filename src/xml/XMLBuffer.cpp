#include "XMLBuffer.h"

XMLBuffer::XMLBuffer(XMLParser* owner, const char* source, size_t sourceLength)
    : XMLStream(owner), Source(source), SourceLength(source ? sourceLength : 0) {}

size_t XMLBuffer::Read(char* destination, size_t capacity) {
    if (Position >= SourceLength || capacity == 0) return 0;
    size_t left = SourceLength - Position;
    size_t bytes = capacity < left ? capacity : left;
    size_t written = Decode(Source + Position, bytes, destination);
    if (written == 0) return 0;
    Position += bytes;
    return written;
}
