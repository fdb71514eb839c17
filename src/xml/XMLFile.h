// A document read from an open file, in pieces.
#pragma once

#include "XMLStream.h"

#include <cstdio>

class XMLFile : public XMLStream {
public:
    // The file stays open after the stream is gone: whoever opened it closes it.
    XMLFile(XMLParser* owner, FILE* file);
    ~XMLFile() override;
    // One file read of up to capacity bytes, decoded.
    size_t Read(char* destination, size_t capacity) override;

    FILE* File;

private:
    char* Bytes = nullptr; // the raw bytes of one read
    size_t BytesSize = 0;
};
