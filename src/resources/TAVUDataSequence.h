// A text that is one data sequence, pre-parsed by the host so that it can be
// evaluated often and cheaply, to text or to a typed value. All evaluation is
// the host's; this object only holds the handle.
#pragma once

#include "RXTypeVar.h"
#include "TavuExport.h"

class TAVU_API TAVUDataSequence {
public:
    TAVUDataSequence() = default;
    explicit TAVUDataSequence(const char* text);
    // Frees the handle, even an empty one: the host accepts 0.
    ~TAVUDataSequence();
    TAVUDataSequence(const TAVUDataSequence&) = delete;
    TAVUDataSequence& operator=(const TAVUDataSequence&) = delete;

    void Clear();
    // Replaces the sequence; a null text leaves it empty.
    void PreParse(const char* text);
    bool RetrieveOriginalText(char* buffer, unsigned int size);
    bool RetrieveProcessedText(char* buffer, unsigned int size);
    bool RetrieveProcessedResult(_RXTypeVar& result);

    unsigned int Handle = 0;
};
