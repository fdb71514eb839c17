// Free text with data sequences inside, pre-parsed by the host, together with
// its source text.
#pragma once

#include "TavuExport.h"

class TAVU_API TAVUPreParse {
public:
    TAVUPreParse() = default;
    explicit TAVUPreParse(const char* text);
    ~TAVUPreParse();
    TAVUPreParse(const TAVUPreParse&) = delete;
    TAVUPreParse& operator=(const TAVUPreParse&) = delete;

    void Clear();
    // Replaces text and handle; a null text leaves both empty.
    void PreParse(const char* text);
    bool RetrieveProcessedText(char* buffer, unsigned int size);

    char* Text = nullptr;
    unsigned int Handle = 0;
};
