#include "TAVUScrollBar.h"

#include "CUIManager.h"
#include "StringHelpers.h"
#include "TAVUButton.h"
#include "TAVUControlHelpers.h"
#include "TAVUFactory.h"
#include "TAVUScriptTypes.h"
#include "TAVUSlider.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

namespace {
const char kTypeWord[] = "scrollbar";
const char* const kUpTextureKeys[3] = {"UpTexture", "UpTextureHover", "UpTexturePressed"};
const char* const kDownTextureKeys[3] = {"DownTexture", "DownTextureHover", "DownTexturePressed"};

// A template's texture for a field the child left empty.
void FillTexture(TAVUElement* owner, TAVUTexture*& field, XMLNode* templateNode, const char* key) {
    if (!field) field = owner->TextureFromXML(templateNode, key, nullptr);
}
} // namespace

TAVUFactory<TAVUScrollBar> g_TAVUScrollBarFactory(kTypeWord);

TAVUScrollBar::TAVUScrollBar(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

// The arrow buttons are looked for in the template alone: an "UpButton" or
// "DownButton" in the scroll bar's own XML is not read. The slider is the
// node's, else the template's, and keeps its own keys: nothing copies the
// scroll bar's Range or Vertical into it.
bool TAVUScrollBar::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    Vertical = XMLHelper::GetToggle(node, "Vertical",
                                    XMLHelper::GetToggle(templateNode, "Vertical", false));
    Range = TAVUControlHelpers::ReadInt(node, templateNode, "Range", 0);
    XMLNode* child = XMLHelper::GetChild(node, "Slider");
    if (!child) child = XMLHelper::GetChild(templateNode, "Slider");
    if (child) {
        Slider = static_cast<TAVUSlider*>(
            g_UIManager.LoadElement(this, "slider", "slider", child, nullptr));
        if (!Slider) return false;
    }
    const char* const buttons[2] = {"UpButton", "DownButton"};
    for (const char* name : buttons) {
        child = XMLHelper::GetChild(templateNode, name);
        if (!child) continue;
        auto* button =
            static_cast<TAVUButton*>(g_UIManager.LoadElement(this, "button", name, child, nullptr));
        if (!button) return false;
        (name == buttons[0] ? UpButton : DownButton) = button;
    }
    return true;
}

bool TAVUScrollBar::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUScrollBar::SizeRecalculated(bool) {}

void TAVUScrollBar::Create(_CreateScrollBar& create, XMLNode* templateNode) {
    TAVUApplyCreateHead(this, create);
    Range = create.Range;
    Vertical = create.Vertical;
    if (!templateNode)
        templateNode = g_UIManager.FindTemplate(Vertical ? "verticalscrollbar" : kTypeWord);
    UpButton = CreateButton(templateNode, "up", "UpButton", kUpTextureKeys);
    DownButton = CreateButton(templateNode, "down", "DownButton", kDownTextureKeys);
    CreateSlider(templateNode);
}

TAVUButton* TAVUScrollBar::CreateButton(XMLNode* templateNode, const char* name, const char* child,
                                        const char* const textureKeys[3]) {
    auto* button = new TAVUButton("button", this, name);
    if (XMLNode* node = XMLHelper::GetChild(templateNode, child)) {
        button->FromXML(node, nullptr);
        return button;
    }
    _CreateButton create;
    button->Create(create, nullptr);
    if (!templateNode) return button;
    FillTexture(button, button->Texture, templateNode, textureKeys[0]);
    FillTexture(button, button->TextureHover, templateNode, textureKeys[1]);
    FillTexture(button, button->TexturePressed, templateNode, textureKeys[2]);
    return button;
}

// A slider from the template's child is always vertical, whatever this
// scroll bar is; it runs over this scroll bar's Range.
void TAVUScrollBar::CreateSlider(XMLNode* templateNode) {
    Slider = new TAVUSlider("slider", this, "slider");
    if (XMLNode* node = XMLHelper::GetChild(templateNode, "Slider")) {
        Slider->FromXML(node, nullptr);
        Slider->Vertical = true;
        Slider->Range = Range;
        return;
    }
    _CreateSlider create;
    create.Range = Range;
    create.Vertical = Vertical;
    Slider->Create(create, nullptr);
    if (!templateNode) return;
    FillTexture(Slider, Slider->Texture, templateNode, "SliderTexture");
    FillTexture(Slider, Slider->HandleTexture, templateNode, "SliderHandleTexture");
}

void TAVUScrollBar::SetRange(unsigned range) {
    if (!Slider) return;
    Range = range;
    Slider->Range = range;
    Slider->SetValue(Slider->Value);
}

void TAVUScrollBar::SetValue(unsigned value) {
    if (Slider) Slider->SetValue(value);
}

// The sum wraps as 32-bit numbers do, so a Range near the largest number
// can carry a raised value round to 0.
void TAVUScrollBar::RaiseValue(unsigned by) {
    if (Slider) Slider->SetValue(by + Slider->Value);
}

void TAVUScrollBar::LowerValue(unsigned by) {
    if (Slider) Slider->SetValue(by > Slider->Value ? 0 : Slider->Value - by);
}

unsigned TAVUScrollBar::GetValue() {
    return Slider ? Slider->Value : 0;
}

// The arrows act as they are pressed, not on release. A child that goes
// away (code 51) is forgotten here, so that no pointer to it is kept.
void TAVUScrollBar::OnNotify(TAVUElement* source, unsigned code, size_t) {
    if (!source) return;
    if (code == TAVU_NOTIFY_CHILD_REMOVED) {
        if (source == UpButton) UpButton = nullptr;
        if (source == DownButton) DownButton = nullptr;
        if (source == Slider) Slider = nullptr;
        return;
    }
    if (!Slider) return;
    if (code == TAVU_NOTIFY_LEFT_DOWN && source == UpButton)
        Slider->SetValue(Slider->Value + 1);
    else if (code == TAVU_NOTIFY_LEFT_DOWN && source == DownButton && Slider->Value != 0)
        Slider->SetValue(Slider->Value - 1);
    else if (code == TAVU_NOTIFY_VALUE_CHANGED && source == Slider && Parent)
        Parent->OnNotify(this, TAVU_NOTIFY_VALUE_CHANGED, Slider->Value);
}

RXTypeDefinition* TAVUScrollBar::GetRXType() {
    return pTAVUScrollBarType;
}
