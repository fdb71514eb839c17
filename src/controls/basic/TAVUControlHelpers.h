// What the controls share in reading their keys and drawing their boxes.
//
// Every control reads a key twice: from its template with the key's default,
// then from its node with the template's answer as the default. So the node
// wins, and a key the node lacks falls back to the template.
#pragma once

#include "Platform.h"
#include "TavuExport.h"

#include <cstddef>

class TAVUElement;
class TAVUFont;
class TAVUPreParse;
class TAVUScrollBar;
class TAVUTexture;
class XMLNode;

class TAVU_API TAVUControlHelpers {
public:
    // The size of the buffer a caption or data text is retrieved into.
    enum : unsigned { TextBufferSize = 2048 };

    // The template a control reads with: the one given, else the template that
    // the node's "Template" names, else the template named after the control's
    // own type word.
    static XMLNode* ResolveTemplate(XMLNode* node, XMLNode* templateNode, const char* typeWord);

    static unsigned ReadHex(XMLNode* node, XMLNode* templateNode, const char* key,
                            unsigned defaultValue);
    static unsigned ReadInt(XMLNode* node, XMLNode* templateNode, const char* key,
                            unsigned defaultValue);
    static float ReadFloat(XMLNode* node, XMLNode* templateNode, const char* key,
                           float defaultValue);
    static bool ReadToggle(XMLNode* node, XMLNode* templateNode, const char* key,
                           bool defaultValue);
    // The text stays owned by the document it was read from.
    static const char* ReadString(XMLNode* node, XMLNode* templateNode, const char* key);

    // Frees the texture a field holds and keeps the new one (null clears it).
    static void ReplaceTexture(TAVUTexture*& field, TAVUTexture* texture);

    // A non-zero "ColorMask" attribute (of the node, else of the template) is
    // written into each texture there is, with the flag that makes it apply.
    static void ApplyColorMask(XMLNode* node, XMLNode* templateNode, TAVUTexture* const* textures,
                               size_t count);

    // Runs a line of script through the host. With a console name, its output
    // goes to that console for this one command. The command is copied first:
    // it may delete the control that owns its text. The console's name is read
    // only as the command begins.
    static void RunCommand(const char* command, const char* console);

    // The top of a caption centred in the element's height. Unsigned on
    // purpose: a font taller than the element wraps, as it always has.
    static int CaptionTop(const TAVUElement* element, const TAVUFont* font);

    // Retrieves a caption's processed text into a buffer of TextBufferSize
    // bytes. Only the first byte is cleared before and the last byte after:
    // clearing the whole buffer for every caption of every frame cost more
    // than the rest of a control's drawing. A host that writes nothing leaves
    // an empty text, and the text always ends inside the buffer.
    // The host's answer comes back: false when it had no text to give.
    static bool RetrieveCaption(TAVUPreParse& text, char* buffer);

    // Replaces an owned C string with a copy of text.
    static void ReplaceText(char*& field, const char* text);

    // The element's rectangle on the screen.
    static tagRECT ScreenRect(const TAVUElement* element);

    // A texture over the rectangle: stretched with a border line of the
    // control's own when the texture has no frame, else in nine cells that
    // keep the texture's frame at width border.
    static void DrawTexture(TAVUElement* element, tagRECT& rect, TAVUTexture* texture,
                            unsigned border, unsigned borderColor);

    // A vertical scroll bar named "vertical" made as a child of owner with the
    // named template: 16 pixels wide at the far edge, the owner's full height.
    static TAVUScrollBar* CreateVerticalBar(TAVUElement* owner, const char* templateName,
                                            unsigned range);

    // Opens the clipboard through the host and puts count bytes of text on it
    // as plain text; silent when the clipboard cannot be had.
    static void PutOnClipboard(const char* text, size_t count);
};
