#include "TAVUButton.h"

#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUFactory.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

namespace {
const char kTypeWord[] = "button";

} // namespace

TAVUFactory<TAVUButton> g_TAVUButtonFactory(kTypeWord);

TAVUButton::TAVUButton(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

TAVUButton::~TAVUButton() {
    TAVUFont::Delete(Font);
    TAVUTexture::Delete(Texture);
    TAVUTexture::Delete(TexturePressed);
    TAVUTexture::Delete(TextureHover);
    Text.Clear();
}

bool TAVUButton::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    BackgroundColor = TAVUControlHelpers::ReadHex(node, templateNode, "BackgroundColor", 0);
    BorderColor = TAVUControlHelpers::ReadHex(node, templateNode, "BorderColor", 0);
    Border = TAVUControlHelpers::ReadInt(node, templateNode, "Border", 0);
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    Text.PreParse(TAVUControlHelpers::ReadString(node, templateNode, "Text"));
    TAVUControlHelpers::ReplaceTexture(Texture, TextureFromXML(node, "Texture", templateNode));
    TAVUControlHelpers::ReplaceTexture(TexturePressed,
                                       TextureFromXML(node, "TexturePressed", templateNode));
    TAVUControlHelpers::ReplaceTexture(TextureHover,
                                       TextureFromXML(node, "TextureHover", templateNode));
    TAVUTexture* textures[] = {Texture, TexturePressed, TextureHover};
    TAVUControlHelpers::ApplyColorMask(node, templateNode, textures, 3);
    return true;
}

bool TAVUButton::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUButton::Create(_CreateButton& create, XMLNode* templateNode) {
    if (create.Text) Text.PreParse(create.Text);
    TAVUApplyCreateHead(this, create);
    Border = create.Border;
    if (!templateNode) templateNode = g_UIManager.FindTemplate(kTypeWord);
    BorderColor = create.BorderColor ? create.BorderColor
                                     : XMLHelper::GetHexValue(templateNode, "BorderColor", 0);
    BackgroundColor = create.BackgroundColor
                          ? create.BackgroundColor
                          : XMLHelper::GetHexValue(templateNode, "BackgroundColor", 0);
    TAVUFont::Delete(Font);
    Font = TAVUFont::New(this, create.Font, templateNode);
    if (!create.UseTemplateTextures) return;
    TAVUControlHelpers::ReplaceTexture(Texture, TextureFromXML(templateNode, "Texture", nullptr));
    TAVUControlHelpers::ReplaceTexture(TexturePressed,
                                       TextureFromXML(templateNode, "TexturePressed", nullptr));
    TAVUControlHelpers::ReplaceTexture(TextureHover,
                                       TextureFromXML(templateNode, "TextureHover", nullptr));
}

TAVUTexture* TAVUButton::ChooseTexture() {
    if (!Texture) return nullptr;
    bool hover = TextureHover && IsMouseOver();
    if (Pressed && TexturePressed) return TexturePressed;
    return hover ? TextureHover : Texture;
}

void TAVUButton::Render() {
    tagRECT rect = TAVUControlHelpers::ScreenRect(this);
    if (TAVUTexture* texture = ChooseTexture())
        TAVUControlHelpers::DrawTexture(this, rect, texture, Border, BorderColor);
    else if (Border != 0)
        FillRectBordered(rect, BackgroundColor, Border, BorderColor);
    else
        FillRect(rect, BackgroundColor);
    if (Text.Text && Text.Text[0]) {
        char caption[TAVUControlHelpers::TextBufferSize];
        TAVUControlHelpers::RetrieveCaption(Text, caption);
        DrawTextCenter(Font, caption, AbsolutePosition.x,
                       TAVUControlHelpers::CaptionTop(this, Font));
    }
    TAVUElement::Render();
}

// A parent may delete the button from inside the notification. The button
// then finds its ID gone (the look-up leaves an empty entry behind) and
// touches nothing of itself, so its own script events do not run.
bool TAVUButton::OnLMouseDown(_Point2i& point) {
    unsigned id = ID;
    Pressed = true;
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_LEFT_DOWN, 0);
    if (g_UIManager.FindElementByID(id)) TAVUElement::OnLMouseDown(point);
    return true;
}

bool TAVUButton::OnLMouseUp(_Point2i& point) {
    unsigned id = ID;
    Pressed = false;
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_LEFT_UP, 0);
    if (g_UIManager.FindElementByID(id)) TAVUElement::OnLMouseUp(point);
    return true;
}

RXTypeDefinition* TAVUButton::GetRXType() {
    return pTAVUButtonType;
}
