// The description of one use of an image: the file, the part of it to draw,
// alpha, colour mask and key, border, orientation and an optional triangle.
// The host's handle is acquired lazily, on the first draw.
#pragma once

#include "TavuExport.h"

#include <cstddef>
#include <cstdint>

class XMLNode;

class TAVU_API TAVUTexture {
public:
    enum : unsigned {
        HasRect = 1,      // Left, Top, Right, Bottom are set
        HasAlpha = 2,     // Alpha applies
        HasColorMask = 4, // ColorMask applies
        HasTriangle = 16, // X1 to Y3 are set
    };

    // A texture of the file with every other field at its default; null when
    // memory runs out.
    static TAVUTexture* New(const char* filename);
    // A copy, unprepared. Copying prepares the source.
    static TAVUTexture* New(const TAVUTexture& other);
    // Deletes a texture; a null one is fine.
    static void Delete(TAVUTexture* texture);
    // Reads a texture whose "Filename" (or its template's) names the file; null
    // when there is no name or the file is nowhere. "#fill" is a plain fill.
    static TAVUTexture* NewFromXML(XMLNode* node);
    // Where a texture file named in an interface file is: beside the file that
    // is loading, else on the host's search path, else the name as it stands.
    // False when the result does not exist. A name beginning with '#' is not a
    // file: "#fill" becomes "" and any other stays as it is.
    static bool ResolveFilename(const char* name, char* path, size_t size);

    ~TAVUTexture();
    TAVUTexture(const TAVUTexture&) = delete;
    TAVUTexture& operator=(const TAVUTexture&) = delete;

    // Frees the name and gives the handle back.
    void Delete();
    // Another file and colour key; every other field stays. Unprepared after.
    void Set(const char* filename, unsigned int colorKey);
    // Becomes a copy of other, unprepared. Prepares other, as New(other) does.
    void SetFrom(const TAVUTexture& other);
    // Acquires the host's handle unless there is one. False when the host refuses.
    bool Prepare();
    // Fills Right and Bottom with the image's size unless a rectangle is set.
    // Needs a prepared texture; it does not prepare one.
    bool GetSize();
    // Prepare, then GetSize: what every nine-cell draw asks first. A texture
    // drawn before answers here without a call, which counts at thousands of
    // textures a frame.
    bool PrepareWithSize() { return (Texture && (Flags & HasRect)) || (Prepare() && GetSize()); }
    bool FromXML(XMLNode* node);
    // Reads the keys from node, with the values of templateNode (or of the
    // node's "Template" when null) as defaults. Always true.
    bool FromXML(XMLNode* node, XMLNode* templateNode);

    char* Filename;
    unsigned int Texture = 0;
    unsigned int ColorKey = 0;
    unsigned int Flags = 0;
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;
    float X1 = 0.0f;
    float Y1 = 0.0f;
    float X2 = 0.0f;
    float Y2 = 0.0f;
    float X3 = 0.0f;
    float Y3 = 0.0f;
    float Alpha = 1.0f;
    unsigned int ColorMask = 0;
    unsigned int Border = 0;
    uint8_t Orientation = 0;

private:
    explicit TAVUTexture(const char* filename);
    void CopyFrom(const TAVUTexture& other);
    void ReleaseHandle();
    void ReadRect(XMLNode* node, XMLNode* templateNode);
    void ReadTriangle(XMLNode* node, XMLNode* templateNode);
    void ReadAlphaAndMask(XMLNode* node, XMLNode* templateNode);
    void ReadColorAttributes(XMLNode* node, XMLNode* templateNode);
};
