#include "TAVUTexture.h"

#include "CUIManager.h"
#include "HostServices.h"
#include "Module.h"
#include "PathHelpers.h"
#include "Point2i.h"
#include "StringHelpers.h"
#include "XMLHelper.h"
#include "XMLNode.h"

#include <cstring>
#include <new>

namespace {
const size_t kPathBuffer = TAVU_TEXTURE_PATH_BUFFER;

// The node that holds a child of that name: the node itself, else the
// template, else none.
XMLNode* HolderOf(XMLNode* node, XMLNode* templateNode, const char* name) {
    if (XMLHelper::GetChild(node, name)) return node;
    if (XMLHelper::GetChild(templateNode, name)) return templateNode;
    return nullptr;
}

bool HasAttributeText(XMLNode* node, const char* name) {
    return XMLHelper::GetStringAttribute(node, name, "")[0] != 0;
}

// The name behind the folder of the interface file that is loading, when that
// file is there.
bool FindBesideCurrentFile(const char* name, char* path) {
    StrCopyBounded(path, g_UIManager.CurrentFile, kPathBuffer);
    char* separator = const_cast<char*>(PathLastSeparator(path));
    if (!separator) return false;
    size_t folderLength = size_t(separator - path) + 1;
    StrCopyBounded(separator + 1, name, kPathBuffer - folderLength);
    return PathFileExists(path);
}
} // namespace

TAVUTexture::TAVUTexture(const char* filename) : Filename(StrDuplicate(filename ? filename : "")) {}

TAVUTexture::~TAVUTexture() {
    ReleaseHandle();
    StrFree(Filename);
}

TAVUTexture* TAVUTexture::New(const char* filename) {
    TAVUTexture* texture = new (std::nothrow) TAVUTexture(filename);
    if (texture && !texture->Filename) {
        delete texture;
        return nullptr;
    }
    return texture;
}

TAVUTexture* TAVUTexture::New(const TAVUTexture& other) {
    TAVUTexture* texture = New(other.Filename);
    if (texture) texture->CopyFrom(other);
    return texture;
}

void TAVUTexture::Delete(TAVUTexture* texture) {
    if (texture) texture->Delete();
}

void TAVUTexture::Delete() {
    delete this;
}

// Everything but the name and the handle. A copy is made to be drawn soon, so
// the source is prepared on the way: both then stand ready for the host.
void TAVUTexture::CopyFrom(const TAVUTexture& other) {
    ColorKey = other.ColorKey;
    Flags = other.Flags;
    Left = other.Left;
    Top = other.Top;
    Right = other.Right;
    Bottom = other.Bottom;
    X1 = other.X1;
    Y1 = other.Y1;
    X2 = other.X2;
    Y2 = other.Y2;
    X3 = other.X3;
    Y3 = other.Y3;
    Alpha = other.Alpha;
    ColorMask = other.ColorMask;
    Border = other.Border;
    Orientation = other.Orientation;
    const_cast<TAVUTexture&>(other).Prepare();
}

void TAVUTexture::ReleaseHandle() {
    if (Texture) g_UIManager.ReleaseTexture(Texture);
    Texture = 0;
}

void TAVUTexture::Set(const char* filename, unsigned int colorKey) {
    char* name = StrDuplicate(filename ? filename : "");
    StrFree(Filename);
    ReleaseHandle();
    Filename = name;
    ColorKey = colorKey;
}

void TAVUTexture::SetFrom(const TAVUTexture& other) {
    // The name is copied before the old one goes, so that a texture can be set
    // from itself.
    char* name = StrDuplicate(other.Filename);
    StrFree(Filename);
    ReleaseHandle();
    Filename = name;
    CopyFrom(other);
}

bool TAVUTexture::Prepare() {
    if (Texture) return true;
    Texture = g_UIManager.AcquireTexture(Filename, ColorKey);
    return Texture != 0;
}

bool TAVUTexture::GetSize() {
    if (Flags & HasRect) return true;
    _Point2i size{0, 0};
    if (!Texture || !g_UIManager.GetTextureSize(Texture, size)) return false;
    Right = size.x;
    Bottom = size.y;
    Flags |= HasRect;
    return true;
}

bool TAVUTexture::FromXML(XMLNode* node) {
    return FromXML(node, nullptr);
}

bool TAVUTexture::FromXML(XMLNode* node, XMLNode* templateNode) {
    if (!templateNode)
        templateNode =
            g_UIManager.FindTemplate(XMLHelper::GetStringAttribute(node, "Template", ""));
    ReadRect(node, templateNode);
    ReadTriangle(node, templateNode);
    Border =
        XMLHelper::GetIntValue(node, "Border", XMLHelper::GetIntValue(templateNode, "Border", 0));
    Orientation = uint8_t(XMLHelper::GetIntValue(
        node, "Orientation", XMLHelper::GetIntValue(templateNode, "Orientation", 0)));
    ReadAlphaAndMask(node, templateNode);
    ReadColorAttributes(node, templateNode);
    return true;
}

// A zero reads as absent: the rectangle counts once any side is non-zero.
void TAVUTexture::ReadRect(XMLNode* node, XMLNode* templateNode) {
    struct Side {
        const char* Key;
        int& Value;
    } sides[] = {{"left", Left}, {"right", Right}, {"bottom", Bottom}, {"top", Top}};
    for (Side& side : sides) {
        side.Value = int(XMLHelper::GetIntValue(node, side.Key,
                                                XMLHelper::GetIntValue(templateNode, side.Key, 0)));
        if (side.Value != 0) Flags |= HasRect;
    }
}

void TAVUTexture::ReadTriangle(XMLNode* node, XMLNode* templateNode) {
    XMLNode* triangle = XMLHelper::GetChild(node, "Triangle");
    if (!triangle) triangle = XMLHelper::GetChild(templateNode, "Triangle");
    if (!triangle) return;
    X1 = XMLHelper::GetFloatAttribute(triangle, "X1", 0.0f);
    Y1 = XMLHelper::GetFloatAttribute(triangle, "Y1", 0.0f);
    X2 = XMLHelper::GetFloatAttribute(triangle, "X2", 0.0f);
    Y2 = XMLHelper::GetFloatAttribute(triangle, "Y2", 0.0f);
    X3 = XMLHelper::GetFloatAttribute(triangle, "X3", 0.0f);
    Y3 = XMLHelper::GetFloatAttribute(triangle, "Y3", 0.0f);
    Flags |= HasTriangle;
}

// Alpha and the colour mask count only when a node says them: the node's own
// child, else the template's, is read whole.
void TAVUTexture::ReadAlphaAndMask(XMLNode* node, XMLNode* templateNode) {
    if (XMLNode* holder = HolderOf(node, templateNode, "Alpha")) {
        Alpha = XMLHelper::GetFloatValue(holder, "Alpha", 1.0f);
        Flags |= HasAlpha;
    }
    if (XMLNode* holder = HolderOf(node, templateNode, "ColorMask")) {
        ColorMask = XMLHelper::GetHexValue(holder, "ColorMask", 0);
        Flags |= HasColorMask;
    }
}

// The attribute form of the colour mask wins over the child form. Standing
// only on the template, it turns the mask on but is read from the node, where
// it is missing: a template's mask attribute masks to zero, unlike its child
// form. Interface files rely on that, so it stays.
void TAVUTexture::ReadColorAttributes(XMLNode* node, XMLNode* templateNode) {
    ColorKey = XMLHelper::GetHexAttribute(node, "ColorKey",
                                          XMLHelper::GetHexAttribute(templateNode, "ColorKey", 0));
    if (HasAttributeText(node, "ColorMask") || HasAttributeText(templateNode, "ColorMask")) {
        ColorMask = XMLHelper::GetHexAttribute(node, "ColorMask", 0);
        Flags |= HasColorMask;
    }
}

bool TAVUTexture::ResolveFilename(const char* name, char* path, size_t size) {
    if (!name || !path || size == 0) return false;
    if (name[0] == '#') {
        StrCopyBounded(path, StrCompareNoCase(name, "#fill") == 0 ? "" : name, size);
        return true;
    }
    char found[kPathBuffer] = {0};
    if (!FindBesideCurrentFile(name, found)) { // which has seen the file, when it finds it
        found[0] = 0;
        if (!g_pHost->FindTextureFile(name, found)) StrCopyBounded(found, name, sizeof(found));
        found[sizeof(found) - 1] = 0;
        if (!PathFileExists(found)) return false;
    }
    StrCopyBounded(path, found, size);
    return true;
}

TAVUTexture* TAVUTexture::NewFromXML(XMLNode* node) {
    if (!node) return nullptr;
    XMLNode* templateNode = nullptr;
    const char* name = XMLHelper::GetStringAttribute(node, "Filename", "");
    if (!name[0]) {
        templateNode =
            g_UIManager.FindTemplate(XMLHelper::GetStringAttribute(node, "Template", ""));
        name = XMLHelper::GetStringAttribute(templateNode, "Filename", "");
        if (!name[0]) return nullptr;
    }
    char path[kPathBuffer];
    if (!ResolveFilename(name, path, sizeof(path))) return nullptr;
    TAVUTexture* texture = New(path);
    if (texture) texture->FromXML(node, templateNode);
    return texture;
}
