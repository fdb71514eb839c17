// What the message box and the input box share in composing themselves: the
// wrapped message, the records of their text and buttons, and the fonts and
// textures they read from their template. Both dialogs are made by code only,
// so nothing here reads an interface file.
#pragma once

#include "TAVUButton.h"
#include "TAVUText.h"
#include "TavuExport.h"

#include <cstddef>

class TAVUElement;
class TAVUFont;
class XMLNode;

class TAVU_API TAVUDialogParts {
public:
    // The message buffer: a longer message is cut to it.
    enum : size_t { MessageSize = 2048 };
    // The narrowest a box is, and the share of the screen's width a line of
    // the message may take before it wraps (in tenths).
    enum : unsigned { MinimumWidth = 128, WrapTenths = 7 };

    struct Message {
        char Text[MessageSize];
        size_t Lines;
        size_t Widest;
    };

    // The template's "Font"; a template without one gets the toolkit's plain
    // font, so that a missing skin still gives a readable box.
    static TAVUFont* ReadFont(TAVUElement* owner, XMLNode* templateNode);
    // Copies text (null is empty), resolves its data sequences and wraps it
    // to 70% of the screen's width.
    static void WrapMessage(const char* text, TAVUFont* font, Message& message);
    // The record of the box's text: centred, wrapped, 5 pixels from the top,
    // and never taller than three quarters of the box's parent.
    static _CreateText TextRecord(const Message& message, TAVUFont* font, unsigned lineHeight,
                                  const TAVUElement* box);
    // The width the box and its text start from.
    static int BoxWidth(const Message& message, TAVUFont* font);
    // A button's record along the bottom of the client area; its font colour
    // is the template's colorKey.
    static _CreateButton ButtonRecord(const char* label, int width, int x,
                                      const TAVUElement* client, TAVUFont* font,
                                      XMLNode* templateNode, const char* colorKey);
    // The button's three textures from the template keys prefix+"Texture",
    // +"TextureHover" and +"TexturePressed". With keepExisting, a texture the
    // button's own template gave stays.
    static void ReadButtonTextures(TAVUButton* button, XMLNode* templateNode, const char* prefix,
                                   bool keepExisting);
    // Where the first of two buttons starts so that the pair, with the gap
    // between them, is centred in the client; the shift is unsigned, so a
    // client narrower than the pair lands far to the right, as it always has.
    static int CentredLeft(const TAVUElement* client, unsigned pairWidth);
    // The gap between two buttons plus the first one's width.
    enum : int { ButtonStep = 37, ButtonHeight = 20, ButtonBottom = 25 };
};
