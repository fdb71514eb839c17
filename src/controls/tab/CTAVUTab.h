// One tab of a tab control: its name, its strip width, its two places (the
// stable ID and the changing order) and the page it shows. Script sees it as
// "tavutab".
#pragma once

#include "TavuExport.h"

class TAVUFrame;
class TAVUTabControl;

class TAVU_API CTAVUTab {
public:
    CTAVUTab(const char* name, TAVUTabControl* owner);
    ~CTAVUTab();
    CTAVUTab(const CTAVUTab&) = delete;
    CTAVUTab& operator=(const CTAVUTab&) = delete;

    // A null name is the empty one. The strip width stays what it was, so a
    // longer name may be cut where the old one ended.
    void Rename(const char* name);

    char* Name = nullptr;
    unsigned Width = 0;
    unsigned ID = 0;
    unsigned Order = 0;
    TAVUFrame* Frame = nullptr;
    TAVUTabControl* Owner;
};
