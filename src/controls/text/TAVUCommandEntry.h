// "commandentry": the input line of a console. Enter runs the line, through
// the entry's OnCommand script when it has one, else as a host command, with
// the entry's console selected; a ring of earlier lines comes back with the
// arrow keys, Tab completes through the host, and the keys that scroll go to
// the console beside the entry (the sibling named "output").
//
// The command may delete the entry, or its parent: after it runs, the entry
// asks whether it still lives before it empties itself.
#pragma once

#include "TAVUTextEntry.h"

class TAVU_API TAVUCommandEntry : public TAVUTextEntry {
public:
    // The most lines a history ring keeps, whatever a file asks for.
    enum : unsigned { LargestCommandHistory = 10000 };

    TAVUCommandEntry(const char* type, TAVUElement* parent, const char* name);

    ~TAVUCommandEntry() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    bool OnKeyDown(unsigned key) override;
    void HandleEnter() override;
    void PasteClipboard() override;

    // Runs one line as this entry's command, on whatever console is current.
    void OnCommand(char* text);

    // Stores a copy of line in the ring, over its oldest line once it is full.
    void AddHistory(const char* line);

    char* Console = nullptr;
    unsigned CommandHistory = 0;
    char** History = nullptr;
    int HistoryNext = 0;
    int HistoryBrowse = 0;
    int HistoryCount = 0;
    TAVUEmbeddedScript* OnCommandScript = nullptr;

private:
    void FreeHistory();
    void Browse(int step);
    void Complete();
    // Page Up, Page Down and Up and Down with Shift scroll the console beside
    // the entry; there is nothing to scroll without one.
    void ScrollConsole(unsigned key);
    // "!" runs the ring's last slot again; false when that slot is empty.
    bool RecallLast();
};
