#include "TAVUCheckBox.h"

#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUFont.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"

namespace {
const char kTypeWord[] = "checkbox";

// The six textures, with the keys that fill them, in reading order.
struct TextureSlot {
    const char* Key;
    TAVUTexture* TAVUCheckBox::*Field;
};
const TextureSlot kTextureSlots[6] = {
    {"Texture", &TAVUCheckBox::Texture},
    {"TexturePressed", &TAVUCheckBox::TexturePressed},
    {"TextureHover", &TAVUCheckBox::TextureHover},
    {"TextureChecked", &TAVUCheckBox::TextureChecked},
    {"TextureCheckedPressed", &TAVUCheckBox::TextureCheckedPressed},
    {"TextureCheckedHover", &TAVUCheckBox::TextureCheckedHover},
};
} // namespace

TAVUFactory<TAVUCheckBox> g_TAVUCheckBoxFactory(kTypeWord);

TAVUCheckBox::TAVUCheckBox(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

TAVUCheckBox::~TAVUCheckBox() {
    TAVUFont::Delete(Font);
    for (const TextureSlot& slot : kTextureSlots)
        TAVUTexture::Delete(this->*slot.Field);
}

bool TAVUCheckBox::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    Text.PreParse(TAVUControlHelpers::ReadString(node, templateNode, "Text"));
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    TAVUTexture* read[6];
    for (int i = 0; i < 6; ++i) {
        TAVUTexture*& field = this->*kTextureSlots[i].Field;
        TAVUTexture::Delete(field);
        read[i] = field = TextureFromXML(node, kTextureSlots[i].Key, templateNode);
    }
    TAVUControlHelpers::ApplyColorMask(node, templateNode, read, 6);
    return true;
}

bool TAVUCheckBox::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

TAVUTexture* TAVUCheckBox::ChooseTexture() {
    if (!Texture) return nullptr;
    bool over = IsMouseOver();
    if (Checked) {
        if (Pressed && TextureCheckedPressed) return TextureCheckedPressed;
        if (over && TextureCheckedHover) return TextureCheckedHover;
        return TextureChecked ? TextureChecked : Texture;
    }
    if (Pressed && TexturePressed) return TexturePressed;
    return over && TextureHover ? TextureHover : Texture;
}

// The box sits at the left, centred in the height, as large as its texture;
// a box taller than the element is squeezed to the element's height.
void TAVUCheckBox::Render() {
    TAVUTexture* texture = ChooseTexture();
    int side = DefaultBoxSide;
    if (texture && texture->GetSize()) side = WrapSubtract(texture->Bottom, texture->Top);
    int x = AbsolutePosition.x;
    int y = AbsolutePosition.y;
    bool squeezed = Height < side;
    if (texture) {
        int boxSide = squeezed ? Height : side;
        int top = squeezed ? y : WrapAdd(y, WrapSubtract(Height, side) >> 1);
        tagRECT box{x, top, WrapAdd(x, boxSide), WrapAdd(top, boxSide)};
        TexturedRect(box, texture);
    }
    if (Text.Text && Text.Text[0]) {
        char caption[TAVUControlHelpers::TextBufferSize];
        TAVUControlHelpers::RetrieveCaption(Text, caption);
        int textX = WrapAdd(x, (squeezed ? Height : side) + CaptionGap);
        DrawText(Font, caption, textX, TAVUControlHelpers::CaptionTop(this, Font));
    }
    TAVUElement::Render();
}

bool TAVUCheckBox::OnLMouseDown(_Point2i& point) {
    TAVUElementWatch watch(this);
    Pressed = true;
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_LEFT_DOWN, 0);
    if (watch.Alive()) TAVUElement::OnLMouseDown(point);
    return true;
}

// The box toggles on release wherever the pointer is by then.
bool TAVUCheckBox::OnLMouseUp(_Point2i& point) {
    TAVUElementWatch watch(this);
    Pressed = false;
    Checked = !Checked;
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_LEFT_UP, 0);
    if (watch.Alive()) TAVUElement::OnLMouseUp(point);
    return true;
}

RXTypeDefinition* TAVUCheckBox::GetRXType() {
    return pTAVUCheckBoxType;
}
