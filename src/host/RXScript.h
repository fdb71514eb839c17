// The record of a running script instance, as GetCurrentScript gives it. The
// toolkit reads and writes these parts directly; the rest is the host's.
#pragma once

#include "Platform.h"

class TAVUScriptMessageBox;
class TAVUScriptInputBox;

class RXScript {
public:
    // Replaces UserInput (text may be null); the copy is the host's.
    virtual void SetUserInput(const char* text) = 0;

    const WCHAR* Name = nullptr;                    // the script's name, UTF-16
    bool* InAtom = nullptr;                         // true while the script runs inside an atom
    char* UserInput = nullptr;                      // the last answer of an input box, or null
    TAVUScriptMessageBox* OpenMessageBox = nullptr; // set and cleared by the toolkit
    TAVUScriptInputBox* OpenInputBox = nullptr;     // set and cleared by the toolkit

protected:
    ~RXScript() = default;
};
