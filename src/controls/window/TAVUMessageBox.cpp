#include "TAVUMessageBox.h"

#include "CUIManager.h"
#include "StringHelpers.h"
#include "TAVUDialogParts.h"
#include "TAVUFactory.h"
#include "TAVUFont.h"
#include "TAVUScriptTypes.h"
#include "TAVUText.h"
#include "XMLHelper.h"

namespace {
const char kTypeWord[] = "messagebox";

struct ButtonLook {
    const char* Label;
    const char* ColorKey;
    const char* TemplateKey;
    const char* TexturePrefix;
};
const ButtonLook kOK = {"OK", "OKColor", "OKButton", "OK"};
const ButtonLook kCancel = {"Cancel", "CancelColor", "CancelButton", "Cancel"};
const ButtonLook kYes = {"Yes", "YesColor", "YesButton", "Yes"};
const ButtonLook kNo = {"No", "NoColor", "NoButton", "No"};

// A button along the bottom of the client. A texture its own template gave
// stays; the box's template fills in only the ones it lacks.
TAVUButton* AddButton(TAVUElement* client, TAVUFont* font, const ButtonLook& look, int width, int x,
                      XMLNode* templateNode) {
    auto* button = new TAVUButton("button", client, look.Label);
    _CreateButton record = TAVUDialogParts::ButtonRecord(look.Label, width, x, client, font,
                                                         templateNode, look.ColorKey);
    const char* buttonTemplate = XMLHelper::GetStringValue(templateNode, look.TemplateKey, "");
    button->Create(record, g_UIManager.FindTemplate(buttonTemplate));
    TAVUDialogParts::ReadButtonTextures(button, templateNode, look.TexturePrefix, true);
    return button;
}
} // namespace

TAVUFactory<TAVUMessageBox> g_TAVUMessageBoxFactory(kTypeWord);

TAVUMessageBox::TAVUMessageBox(const char* type, TAVUElement* parent, const char* name)
    : TAVUWindow(type, parent, name) {
    Texture = nullptr; // a box draws its colours, unless its skin says otherwise
}

TAVUMessageBox::~TAVUMessageBox() {
    TAVUFont::Delete(Font);
}

bool TAVUMessageBox::FromXML(XMLNode*, XMLNode*) {
    return false;
}

bool TAVUMessageBox::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUWindow::IsTypeOf(type);
}

void TAVUMessageBox::Render() {
    TAVUWindow::Render();
}

RXTypeDefinition* TAVUMessageBox::GetRXType() {
    return pTAVUMessageBoxType;
}

const char* TAVUMessageBox::AnswerOf(TAVUElement* source) const {
    if (!source) return nullptr;
    if (source == OKButton) return "OK";
    if (source == CancelButton) return "Cancel";
    if (source == YesButton) return "Yes";
    if (source == NoButton) return "No";
    return nullptr;
}

void TAVUMessageBox::ForgetButton(TAVUElement* part) {
    for (TAVUButton** button : {&OKButton, &CancelButton, &YesButton, &NoButton})
        if (*button == part) *button = nullptr;
}

void TAVUMessageBox::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (code == TAVU_NOTIFY_CHILD_REMOVED) {
        // Bookkeeping, not behaviour: a script may delete any part.
        ForgetButton(source);
        TAVUWindow::OnNotify(source, code, value);
        return;
    }
    if (code == TAVU_NOTIFY_LEFT_UP && AnswerOf(source) && Parent) Parent->DeleteChild(this);
}

void TAVUMessageBox::Create(const char* title, const char* text, eMessageBoxType type,
                            XMLNode* templateNode) {
    if (!templateNode) templateNode = g_UIManager.FindTemplate(kTypeWord);
    Type = type;
    TAVUFont::Delete(Font);
    Font = TAVUDialogParts::ReadFont(this, templateNode);
    TAVUDialogParts::Message message;
    TAVUDialogParts::WrapMessage(text, Font, message);
    unsigned lineHeight = Font->Height + 1;
    _CreateText textRecord = TAVUDialogParts::TextRecord(message, Font, lineHeight, this);

    _CreateWindow window;
    window.Width = TAVUDialogParts::BoxWidth(message, Font);
    window.Height = int(unsigned(lineHeight * message.Lines + 30));
    window.Visible = true;
    window.Title = title;
    window.Border = XMLHelper::GetIntValue(templateNode, "Border", 0);
    TAVUWindow::Create(window, templateNode);
    BackgroundColor = XMLHelper::GetHexValue(templateNode, "BackgroundColor", 0);
    BorderColor = XMLHelper::GetHexValue(templateNode, "BorderColor", 0);
    RecalculateChildrenSize();
    OnResize();

    TAVUElement* client = Client ? Client : this;
    (new TAVUText("text", client, "Text"))->Create(textRecord, nullptr);
    switch (Type) {
    case TAVU_MESSAGEBOX_OKCANCEL: {
        int left = TAVUDialogParts::CentredLeft(client, 101);
        OKButton = AddButton(client, Font, kOK, 32, left, templateNode);
        CancelButton =
            AddButton(client, Font, kCancel, 64, left + TAVUDialogParts::ButtonStep, templateNode);
        break;
    }
    case TAVU_MESSAGEBOX_YESNO: {
        int left = TAVUDialogParts::CentredLeft(client, 69);
        YesButton = AddButton(client, Font, kYes, 32, left, templateNode);
        NoButton =
            AddButton(client, Font, kNo, 32, left + TAVUDialogParts::ButtonStep, templateNode);
        break;
    }
    default:
        OKButton = AddButton(client, Font, kOK, 32, TAVUDialogParts::CentredLeft(client, 32),
                             templateNode);
        break;
    }
    Center();
}
