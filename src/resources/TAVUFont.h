// An element's handle on a host font: face, height, bold and fixed flags, a
// colour, and the element that owns it. It draws, measures and hit-tests one
// line of text at a time. The host's font is acquired on first use, and given
// back whenever the face changes.
#pragma once

#include "TavuExport.h"

#include <cstddef>

class TAVUElement;
class XMLNode;

// What a control asks for when it makes its font from code.
struct _CreateFont {
    const char* Name;
    unsigned int Size;
    unsigned int Color;
    bool Bold;
    bool Fixed;
};

class TAVU_API TAVUFont {
public:
    enum : unsigned { DefaultHeight = 12 };
    // The width of a character when there is no font to measure with.
    enum : size_t { FallbackCharWidth = 12 };

    // With a node, what the request leaves open comes from it: "Name" as a
    // value, "Color" and "Size" as attributes. Without one, white and "".
    static TAVUFont* New(TAVUElement* owner, _CreateFont& create, XMLNode* node);
    static TAVUFont* New(TAVUElement* owner, const TAVUFont& other);
    // White; a null name is the host's default face.
    static TAVUFont* New(TAVUElement* owner, const char* name, unsigned char size, bool fixed,
                         bool bold);
    // Reads a font from its node, over the node's "Template" or else the
    // template "Default Font". Without a node, a 12-pixel default font.
    static TAVUFont* NewFromXML(TAVUElement* owner, XMLNode* node);
    // Deletes a font through its own class; a null one is fine.
    static void Delete(TAVUFont* font);

    virtual ~TAVUFont();
    virtual void Delete();
    // Acquires the host's font unless there is one. False when the host refuses.
    virtual bool Prepare();

    TAVUFont(const TAVUFont&) = delete;
    TAVUFont& operator=(const TAVUFont&) = delete;

    // Gives the host's font back; the next use acquires it again.
    void Release();

    // One line at x, y; a width of 0 draws unclipped. Answers the width drawn.
    size_t Draw(const char* text, int x, int y, size_t width);
    size_t DrawCenter(const char* text, int x, int y, size_t width);
    size_t DrawRight(const char* text, int x, int y, size_t width);
    // The same between x and a right edge: nothing for an empty text or when
    // x is at or right of the edge.
    size_t DrawClipped(const char* text, int x, int y, int right);
    size_t DrawCenterClipped(const char* text, int x, int y, int right);
    size_t DrawRightClipped(const char* text, int x, int y, int right);

    size_t GetTextWidth(const char* text);
    // The width of the first length bytes (of at most 4096; a longer length
    // measures the whole text).
    size_t GetTextWidth(const char* text, size_t length);
    // How many bytes of text fit in pixels.
    unsigned int GetCharByOffset(const char* text, size_t pixels);
    bool IsFixedFont();

    // Each changes the face only when the value differs, and then tells the
    // owner, whose layout depends on the font.
    void SetBold(bool bold);
    void SetHeight(unsigned char height);
    void SetName(const char* name);

    unsigned int Font = 0;
    char* Name;
    unsigned int Height;
    unsigned int Color;
    bool Bold;
    bool Fixed;
    TAVUElement* Element;

protected:
    // The keys of a font node, each over its template's value.
    struct XMLKeys {
        const char* Name;
        bool Bold;
        bool Fixed;
        unsigned int Size;
        unsigned int Color;
    };

    TAVUFont(TAVUElement* owner, const char* name, unsigned int height, unsigned int color,
             bool bold, bool fixed);

    // Reads the keys in their order; readFixed false skips the "Fixed" key.
    static XMLKeys ReadXMLKeys(XMLNode* node, bool readFixed);

    // The advance of a blank, or the fallback when the host has none.
    size_t BlankWidth();

private:
    size_t DrawAligned(const char* text, int x, int y, size_t width, unsigned alignment);
    size_t DrawAlignedClipped(const char* text, int x, int y, int right, unsigned alignment);
    unsigned int ColorWithOwnerAlpha() const;
    void NotifyOwner();
};
