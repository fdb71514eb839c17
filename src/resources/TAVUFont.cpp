#include "TAVUFont.h"

#include "CUIManager.h"
#include "HostRenderer.h"
#include "Module.h"
#include "StringHelpers.h"
#include "TAVUElement.h"
#include "TAVUScreen.h"
#include "XMLHelper.h"

#include <cstdint>
#include <cstring>
#include <new>

namespace {
// Texts longer than this are measured whole rather than copied to be cut.
const size_t kMeasureBuffer = 4096;
const unsigned kWhite = 0xFFFFFFFF;

unsigned FormatFor(size_t width, unsigned alignment) {
    return (width ? TAVU_DT_SINGLELINE : TAVU_DT_SINGLELINE | TAVU_DT_NOCLIP) | alignment;
}

// A font node's template: its own "Template", else the shared "Default Font".
XMLNode* FontTemplateOf(XMLNode* node) {
    XMLNode* found = g_UIManager.FindTemplate(XMLHelper::GetStringAttribute(node, "Template", ""));
    return found ? found : g_UIManager.FindTemplate("Default Font");
}
} // namespace

TAVUFont::TAVUFont(TAVUElement* owner, const char* name, unsigned int height, unsigned int color,
                   bool bold, bool fixed)
    : Name(StrDuplicate(name ? name : "")), Height(height & 0xFF), Color(color), Bold(bold),
      Fixed(fixed), Element(owner) {}

TAVUFont::~TAVUFont() {
    Release();
    StrFree(Name);
}

TAVUFont* TAVUFont::New(TAVUElement* owner, _CreateFont& create, XMLNode* node) {
    const char* name = create.Name;
    unsigned color = create.Color;
    unsigned size = create.Size;
    if (node) {
        if (!name) name = XMLHelper::GetStringValue(node, "Name", "");
        if (!color) color = XMLHelper::GetHexAttribute(node, "Color", 0);
        if (!size) size = XMLHelper::GetIntAttribute(node, "Size", 0);
    } else if (!color) {
        color = kWhite;
    }
    TAVUFont* font =
        new (std::nothrow) TAVUFont(owner, name, size, color, create.Bold, create.Fixed);
    if (font && !font->Name) {
        delete font;
        return nullptr;
    }
    return font;
}

TAVUFont* TAVUFont::New(TAVUElement* owner, const TAVUFont& other) {
    _CreateFont create{other.Name, other.Height, other.Color, other.Bold, other.Fixed};
    TAVUFont* font = New(owner, create, nullptr);
    if (font) font->Color = other.Color; // a black copy stays black
    return font;
}

TAVUFont* TAVUFont::New(TAVUElement* owner, const char* name, unsigned char size, bool fixed,
                        bool bold) {
    _CreateFont create{name, size, kWhite, bold, fixed};
    return New(owner, create, nullptr);
}

TAVUFont::XMLKeys TAVUFont::ReadXMLKeys(XMLNode* node, bool readFixed) {
    XMLNode* templateNode = FontTemplateOf(node);
    XMLKeys keys{};
    keys.Name = XMLHelper::GetStringValue(node, "Name",
                                          XMLHelper::GetStringValue(templateNode, "Name", ""));
    keys.Bold =
        XMLHelper::GetToggle(node, "Bold", XMLHelper::GetToggle(templateNode, "Bold", false));
    if (readFixed)
        keys.Fixed =
            XMLHelper::GetToggle(node, "Fixed", XMLHelper::GetToggle(templateNode, "Fixed", false));
    keys.Size =
        XMLHelper::GetIntValue(node, "Size", XMLHelper::GetIntValue(templateNode, "Size", 0));
    keys.Color =
        XMLHelper::GetHexValue(node, "Color", XMLHelper::GetHexValue(templateNode, "Color", 0));
    return keys;
}

// The colour is stored after creation: a font that no node gives a colour is
// black with alpha 0 and draws nothing, which is how authors hide a caption.
TAVUFont* TAVUFont::NewFromXML(TAVUElement* owner, XMLNode* node) {
    if (!node) return New(owner, "", DefaultHeight, false, false);
    XMLKeys keys = ReadXMLKeys(node, true);
    TAVUFont* font = New(owner, keys.Name, (unsigned char)keys.Size, keys.Fixed, keys.Bold);
    if (font) font->Color = keys.Color;
    return font;
}

void TAVUFont::Delete(TAVUFont* font) {
    if (font) font->Delete();
}

void TAVUFont::Delete() {
    delete this;
}

bool TAVUFont::Prepare() {
    if (Font) return true;
    Font = g_UIManager.AcquireFont(Name, int(Height), Fixed, Bold);
    return Font != 0;
}

void TAVUFont::Release() {
    if (!Font) return;
    g_UIManager.ReleaseFont(Font);
    Font = 0;
}

// The text colour with its alpha scaled by the owner's alpha of this frame.
unsigned int TAVUFont::ColorWithOwnerAlpha() const {
    float ownerAlpha = Element ? Element->CurrentAlpha : 1.0f;
    // Exact: at a factor of 1 the sum below gives back every alpha byte.
    if (ownerAlpha == 1.0f) return Color;
    float alpha = float(Color >> 24) / 255.0f * ownerAlpha * 255.0f;
    unsigned byte = alpha > 255.0f ? 255u : unsigned(alpha > 0.0f ? alpha : 0.0f);
    return (Color & 0x00FFFFFF) | (byte << 24);
}

size_t TAVUFont::DrawAligned(const char* text, int x, int y, size_t width, unsigned alignment) {
    if (!Prepare()) return 0;
    tagRECT rect;
    rect.left = x;
    rect.top = y;
    rect.right = LONG(int64_t(x) + int64_t(width));
    rect.bottom = g_UIManager.Screen ? g_UIManager.Screen->Height : 0;
    size_t drawn = g_pHost->DrawText(Font, text ? text : "", &rect, ColorWithOwnerAlpha(),
                                     FormatFor(width, alignment));
    return uint32_t(drawn);
}

size_t TAVUFont::Draw(const char* text, int x, int y, size_t width) {
    return DrawAligned(text, x, y, width, 0);
}

size_t TAVUFont::DrawCenter(const char* text, int x, int y, size_t width) {
    return DrawAligned(text, x, y, width, TAVU_DT_CENTER);
}

size_t TAVUFont::DrawRight(const char* text, int x, int y, size_t width) {
    return DrawAligned(text, x, y, width, TAVU_DT_RIGHT);
}

size_t TAVUFont::DrawAlignedClipped(const char* text, int x, int y, int right, unsigned alignment) {
    if (!text || !text[0] || x >= right) return 0;
    return DrawAligned(text, x, y, size_t(int64_t(right) - int64_t(x)), alignment);
}

size_t TAVUFont::DrawClipped(const char* text, int x, int y, int right) {
    return DrawAlignedClipped(text, x, y, right, 0);
}

size_t TAVUFont::DrawCenterClipped(const char* text, int x, int y, int right) {
    return DrawAlignedClipped(text, x, y, right, TAVU_DT_CENTER);
}

size_t TAVUFont::DrawRightClipped(const char* text, int x, int y, int right) {
    return DrawAlignedClipped(text, x, y, right, TAVU_DT_RIGHT);
}

size_t TAVUFont::GetTextWidth(const char* text) {
    if (!text) return 0;
    if (!Prepare()) return FallbackCharWidth * strlen(text);
    size_t width = FallbackCharWidth;
    g_pHost->MeasureText(Font, text, &width);
    return width;
}

size_t TAVUFont::GetTextWidth(const char* text, size_t length) {
    if (!text) return 0;
    if (!Prepare()) return FallbackCharWidth * length;
    if (length > kMeasureBuffer) return GetTextWidth(text);
    char part[kMeasureBuffer + 1];
    size_t copied = strnlen(text, length);
    memcpy(part, text, copied);
    part[copied] = 0;
    size_t width = FallbackCharWidth;
    g_pHost->MeasureText(Font, part, &width);
    return width;
}

size_t TAVUFont::BlankWidth() {
    float abc[3] = {0.0f, 0.0f, 0.0f};
    if (!g_pHost->GetCharWidths(Font, ' ', ' ', abc)) return FallbackCharWidth;
    int width = int(abc[0] + abc[1] + abc[2]);
    // A font without width would make every column count divide by zero.
    return width > 0 ? size_t(width) : FallbackCharWidth;
}

// A fixed font needs one host call; any other one call per byte. Bytes are
// character codes as they stand: multi-byte sequences are not decoded.
unsigned int TAVUFont::GetCharByOffset(const char* text, size_t pixels) {
    if (!text || !Prepare()) return 0;
    size_t length = strlen(text);
    if (Fixed) {
        size_t fit = pixels / BlankWidth();
        return unsigned(fit < length ? fit : length);
    }
    int64_t left = int64_t(pixels);
    size_t count = 0;
    for (; count < length; ++count) {
        unsigned code = static_cast<unsigned char>(text[count]);
        float abc[3] = {0.0f, 0.0f, 0.0f};
        g_pHost->GetCharWidths(Font, code, code, abc);
        int64_t width = int64_t(abc[0] + abc[1] + abc[2]);
        if (width > left) break;
        left -= width;
    }
    return unsigned(count);
}

bool TAVUFont::IsFixedFont() {
    return Prepare() && Fixed;
}

void TAVUFont::NotifyOwner() {
    if (Element)
        Element->OnNotify(nullptr, TAVU_NOTIFY_FONT_CHANGED, reinterpret_cast<size_t>(this));
}

void TAVUFont::SetBold(bool bold) {
    if (bold == Bold) return;
    Release();
    Bold = bold;
    NotifyOwner();
}

void TAVUFont::SetHeight(unsigned char height) {
    if (height == Height) return;
    Release();
    Height = height;
    NotifyOwner();
}

void TAVUFont::SetName(const char* name) {
    if (!name) name = "";
    if (StrCompareNoCase(name, Name) == 0) return;
    char* copy = StrDuplicate(name);
    if (!copy) return;
    Release();
    StrFree(Name);
    Name = copy;
    NotifyOwner();
}
