// A font that is always fixed-pitch, whatever its Fixed field says, so that
// consoles and editors can count columns with one width.
#pragma once

#include "Platform.h"
#include "TAVUFont.h"

// The system headers name a text function GetCharWidth as a macro; this class
// has its own, and the system's stays reachable as GetCharWidthA or W.
#ifdef GetCharWidth
#undef GetCharWidth
#endif

class TAVU_API TAVUFixedFont : public TAVUFont {
public:
    static TAVUFixedFont* New(TAVUElement* owner, _CreateFont& create, XMLNode* node);
    static TAVUFixedFont* New(TAVUElement* owner, const TAVUFont& other);
    static TAVUFixedFont* New(TAVUElement* owner, const char* name, unsigned char size, bool bold);
    // As TAVUFont::NewFromXML, without the "Fixed" key.
    static TAVUFixedFont* NewFromXML(TAVUElement* owner, XMLNode* node);

    void Delete() override;
    bool Prepare() override;

    // The advance of one character; 12 when the host cannot tell.
    size_t GetCharWidth();

private:
    TAVUFixedFont(TAVUElement* owner, const char* name, unsigned int height, unsigned int color,
                  bool bold);
};
