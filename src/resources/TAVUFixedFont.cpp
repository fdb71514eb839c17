#include "TAVUFixedFont.h"

#include "CUIManager.h"

#include <new>

TAVUFixedFont::TAVUFixedFont(TAVUElement* owner, const char* name, unsigned int height,
                             unsigned int color, bool bold)
    : TAVUFont(owner, name, height, color, bold, true) {}

TAVUFixedFont* TAVUFixedFont::New(TAVUElement* owner, _CreateFont& create, XMLNode* node) {
    TAVUFont* model = TAVUFont::New(owner, create, node);
    if (!model) return nullptr;
    TAVUFixedFont* font = New(owner, *model);
    model->Delete();
    return font;
}

TAVUFixedFont* TAVUFixedFont::New(TAVUElement* owner, const TAVUFont& other) {
    TAVUFixedFont* font =
        new (std::nothrow) TAVUFixedFont(owner, other.Name, other.Height, other.Color, other.Bold);
    if (font && !font->Name) {
        delete font;
        return nullptr;
    }
    return font;
}

TAVUFixedFont* TAVUFixedFont::New(TAVUElement* owner, const char* name, unsigned char size,
                                  bool bold) {
    TAVUFont* model = TAVUFont::New(owner, name, size, true, bold);
    if (!model) return nullptr;
    TAVUFixedFont* font = New(owner, *model);
    model->Delete();
    return font;
}

TAVUFixedFont* TAVUFixedFont::NewFromXML(TAVUElement* owner, XMLNode* node) {
    if (!node) return New(owner, "", DefaultHeight, false);
    XMLKeys keys = ReadXMLKeys(node, false);
    TAVUFixedFont* font = New(owner, keys.Name, (unsigned char)keys.Size, keys.Bold);
    if (font) font->Color = keys.Color;
    return font;
}

void TAVUFixedFont::Delete() {
    delete this;
}

bool TAVUFixedFont::Prepare() {
    if (Font) return true;
    Font = g_UIManager.AcquireFont(Name, int(Height), true, Bold);
    return Font != 0;
}

size_t TAVUFixedFont::GetCharWidth() {
    if (!Prepare()) return FallbackCharWidth;
    return BlankWidth();
}
