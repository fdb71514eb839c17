#include "TAVUDialogParts.h"

#include "CUIManager.h"
#include "HostServices.h"
#include "Module.h"
#include "StringHelpers.h"
#include "TAVUElement.h"
#include "TAVUFont.h"
#include "TAVUScreen.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

#include <cstring>

TAVUFont* TAVUDialogParts::ReadFont(TAVUElement* owner, XMLNode* templateNode) {
    TAVUFont* font = owner->FontFromXML(templateNode, "Font", nullptr);
    if (font) return font;
    return TAVUFont::New(owner, nullptr, TAVUFont::DefaultHeight, false, false);
}

void TAVUDialogParts::WrapMessage(const char* text, TAVUFont* font, Message& message) {
    char copy[MessageSize];
    StrCopyBounded(copy, text ? text : "", sizeof(copy));
    // Into a buffer of its own: the host is not asked to resolve in place.
    if (!g_pHost->ParseDataSequences(copy, message.Text, sizeof(message.Text)))
        StrCopyBounded(message.Text, copy, sizeof(message.Text));
    message.Text[MessageSize - 1] = 0;
    int screenWidth = g_UIManager.Screen ? g_UIManager.Screen->Width : 0;
    size_t wrapWidth = screenWidth > 0 ? size_t(screenWidth) * WrapTenths / 10 : 0;
    message.Widest = 1;
    message.Lines = TAVUText::Split(message.Text, wrapWidth, font, message.Widest);
}

int TAVUDialogParts::BoxWidth(const Message& message, TAVUFont* font) {
    size_t width = font->Height + message.Widest;
    return width < MinimumWidth ? int(MinimumWidth) : int(width);
}

_CreateText TAVUDialogParts::TextRecord(const Message& message, TAVUFont* font, unsigned lineHeight,
                                        const TAVUElement* box) {
    _CreateText record;
    record.Width = BoxWidth(message, font);
    record.Height = int(unsigned(lineHeight * message.Lines + 1));
    // A parent of no height (or a negative one) leaves no room at all.
    int parentHeight = box->Parent ? box->Parent->Height : record.Height;
    unsigned limit = parentHeight > 0 ? unsigned(parentHeight * 0.75) : 0;
    if (unsigned(record.Height) > limit) record.Height = int(limit);
    record.X = 0;
    record.Y = 5;
    record.Visible = true;
    record.Text = message.Text;
    record.Wrap = true;
    record.HorizontalAlignment = TAVU_ALIGN_CENTER;
    record.Font = {font->Name, font->Height, font->Color, false, false};
    return record;
}

_CreateButton TAVUDialogParts::ButtonRecord(const char* label, int width, int x,
                                            const TAVUElement* client, TAVUFont* font,
                                            XMLNode* templateNode, const char* colorKey) {
    _CreateButton record;
    record.Text = label;
    record.Width = width;
    record.Height = ButtonHeight;
    record.X = x;
    record.Y = client->Height - ButtonBottom;
    record.Border = 5;
    record.Visible = true;
    record.Font = {font->Name, TAVUFont::DefaultHeight,
                   XMLHelper::GetHexValue(templateNode, colorKey, 0), false, false};
    return record;
}

void TAVUDialogParts::ReadButtonTextures(TAVUButton* button, XMLNode* templateNode,
                                         const char* prefix, bool keepExisting) {
    struct Slot {
        const char* Suffix;
        TAVUTexture** Texture;
    };
    const Slot slots[] = {{"Texture", &button->Texture},
                          {"TextureHover", &button->TextureHover},
                          {"TexturePressed", &button->TexturePressed}};
    for (const Slot& slot : slots) {
        if (keepExisting && *slot.Texture) continue;
        char key[64];
        snprintf(key, sizeof(key), "%s%s", prefix, slot.Suffix);
        TAVUTexture::Delete(*slot.Texture);
        *slot.Texture = button->TextureFromXML(templateNode, key, nullptr);
    }
}

int TAVUDialogParts::CentredLeft(const TAVUElement* client, unsigned pairWidth) {
    return int((unsigned(client->Width) - pairWidth) >> 1);
}
