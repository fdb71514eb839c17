// A document read from UTF-8 text in memory, in the same pieces as a file.
#pragma once

#include "XMLStream.h"

class XMLBuffer : public XMLStream {
public:
    // The text is not copied and must outlive the stream.
    XMLBuffer(XMLParser* owner, const char* source, size_t sourceLength);
    size_t Read(char* destination, size_t capacity) override;

    const char* Source;
    size_t SourceLength;
    size_t Position = 0; // bytes consumed
};
