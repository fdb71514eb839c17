#include "TAVUControlHelpers.h"

#include "CUIManager.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUConsoleSelector.h"
#include "TAVUFont.h"
#include "TAVUPreParse.h"
#include "TAVUElement.h"
#include "TAVUScrollBar.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

#include <cstring>
#include <string>

XMLNode* TAVUControlHelpers::ResolveTemplate(XMLNode* node, XMLNode* templateNode,
                                             const char* typeWord) {
    if (templateNode) return templateNode;
    templateNode = g_UIManager.FindTemplate(XMLHelper::GetStringAttribute(node, "Template", ""));
    return templateNode ? templateNode : g_UIManager.FindTemplate(typeWord);
}

namespace {
// The template's answer, with the default, is the default of the node's.
template <class T>
T ReadTwice(T (*read)(XMLNode*, const char*, T), XMLNode* node, XMLNode* templateNode,
            const char* key, T defaultValue) {
    return read(node, key, read(templateNode, key, defaultValue));
}
} // namespace

unsigned TAVUControlHelpers::ReadHex(XMLNode* node, XMLNode* templateNode, const char* key,
                                     unsigned defaultValue) {
    return ReadTwice(XMLHelper::GetHexValue, node, templateNode, key, defaultValue);
}

unsigned TAVUControlHelpers::ReadInt(XMLNode* node, XMLNode* templateNode, const char* key,
                                     unsigned defaultValue) {
    return ReadTwice(XMLHelper::GetIntValue, node, templateNode, key, defaultValue);
}

float TAVUControlHelpers::ReadFloat(XMLNode* node, XMLNode* templateNode, const char* key,
                                    float defaultValue) {
    return ReadTwice(XMLHelper::GetFloatValue, node, templateNode, key, defaultValue);
}

bool TAVUControlHelpers::ReadToggle(XMLNode* node, XMLNode* templateNode, const char* key,
                                    bool defaultValue) {
    return ReadTwice(XMLHelper::GetToggle, node, templateNode, key, defaultValue);
}

void TAVUControlHelpers::ReplaceTexture(TAVUTexture*& field, TAVUTexture* texture) {
    TAVUTexture::Delete(field);
    field = texture;
}

const char* TAVUControlHelpers::ReadString(XMLNode* node, XMLNode* templateNode, const char* key) {
    return ReadTwice<const char*>(XMLHelper::GetStringValue, node, templateNode, key, "");
}

void TAVUControlHelpers::ApplyColorMask(XMLNode* node, XMLNode* templateNode,
                                        TAVUTexture* const* textures, size_t count) {
    unsigned mask = XMLHelper::GetHexAttribute(
        node, "ColorMask", XMLHelper::GetHexAttribute(templateNode, "ColorMask", 0));
    if (mask == 0) return;
    for (size_t i = 0; i < count; ++i) {
        if (!textures[i]) continue;
        textures[i]->ColorMask = mask;
        textures[i]->Flags |= TAVUTexture::HasColorMask;
    }
}

tagRECT TAVUControlHelpers::ScreenRect(const TAVUElement* element) {
    int x = element->AbsolutePosition.x;
    int y = element->AbsolutePosition.y;
    return tagRECT{x, y, WrapAdd(x, element->Width), WrapAdd(y, element->Height)};
}

void TAVUControlHelpers::DrawTexture(TAVUElement* element, tagRECT& rect, TAVUTexture* texture,
                                     unsigned border, unsigned borderColor) {
    if (texture->Border != 0) {
        element->TexturedRectBordered(rect, texture, border);
        return;
    }
    element->TexturedRect(rect, texture);
    if (border != 0) element->DrawBorder(rect, border, borderColor);
}

void TAVUControlHelpers::RunCommand(const char* command, const char* console) {
    if (!command || !command[0]) return;
    std::string line = command;
    if (!console || !console[0]) {
        g_pHost->ExecuteCommand(line.c_str());
        return;
    }
    TAVUConsoleSelector selector(console);
    g_pHost->ExecuteCommand(line.c_str());
}

int TAVUControlHelpers::CaptionTop(const TAVUElement* element, const TAVUFont* font) {
    unsigned fontHeight = font ? font->Height : 0;
    return WrapAdd(int((unsigned(element->Height) - fontHeight) >> 1), element->AbsolutePosition.y);
}

bool TAVUControlHelpers::RetrieveCaption(TAVUPreParse& text, char* buffer) {
    buffer[0] = 0;
    bool retrieved = text.RetrieveProcessedText(buffer, TextBufferSize);
    buffer[TextBufferSize - 1] = 0;
    return retrieved;
}

void TAVUControlHelpers::ReplaceText(char*& field, const char* text) {
    StrFree(field);
    field = StrDuplicate(text);
}

TAVUScrollBar* TAVUControlHelpers::CreateVerticalBar(TAVUElement* owner, const char* templateName,
                                                     unsigned range) {
    auto* bar = new TAVUScrollBar("scrollbar", owner, "vertical");
    _CreateScrollBar create;
    create.Width = 16;
    create.XPosition.Type = ElementPosition::FarEdge;
    create.XPosition.Value.Pixels = 16;
    create.HeightPosition.Type = ElementPosition::Fraction;
    create.HeightPosition.Value.Factor = 1.0f;
    create.Visible = true;
    create.Range = range;
    create.Vertical = true;
    bar->Create(create, g_UIManager.FindTemplate(templateName));
    return bar;
}

void TAVUControlHelpers::PutOnClipboard(const char* text, size_t count) {
    if (!g_pHost || !g_pHost->OpenClipboard()) return;
    EmptyClipboard();
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, count + 1);
    if (char* target = memory ? static_cast<char*>(GlobalLock(memory)) : nullptr) {
        memcpy(target, text, count);
        target[count] = 0;
        GlobalUnlock(memory);
        // A clipboard that did not take the memory leaves it with us.
        if (!SetClipboardData(CF_TEXT, memory)) GlobalFree(memory);
    }
    CloseClipboard();
}
