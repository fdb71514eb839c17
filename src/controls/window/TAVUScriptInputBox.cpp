#include "TAVUScriptInputBox.h"

#include "CUIManager.h"
#include "RXScript.h"
#include "StringHelpers.h"
#include "TAVUDialogParts.h"
#include "TAVUFactory.h"
#include "TAVUFont.h"
#include "TAVUTextEntry.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

namespace {
const char kTypeWord[] = "scriptinputbox";
// Lines of an input box's message are this high whatever its font.
const unsigned kLineHeight = 13;
// Room under the message for the entry line and the buttons.
const unsigned kExtraHeight = 55;

template <class T> T* LoadPart(TAVUElement* parent, const char* type, const char* name) {
    return static_cast<T*>(g_UIManager.LoadElement(parent, type, name));
}

// A button along the bottom of the client, always of the template "button";
// the box's template then sets all three of its textures.
TAVUButton* AddButton(TAVUElement* client, TAVUFont* font, const char* label, int width, int x,
                      XMLNode* templateNode) {
    auto* button = LoadPart<TAVUButton>(client, "button", label);
    if (!button) return nullptr;
    char colorKey[32];
    snprintf(colorKey, sizeof(colorKey), "%sColor", label);
    _CreateButton record =
        TAVUDialogParts::ButtonRecord(label, width, x, client, font, templateNode, colorKey);
    button->Create(record, g_UIManager.FindTemplate("button"));
    TAVUDialogParts::ReadButtonTextures(button, templateNode, label, false);
    return button;
}
} // namespace

TAVUFactory<TAVUScriptInputBox> g_TAVUScriptInputBoxFactory(kTypeWord);

TAVUScriptInputBox::TAVUScriptInputBox(const char* type, TAVUElement* parent, const char* name)
    : TAVUWindow(type, parent, name) {}

TAVUScriptInputBox::~TAVUScriptInputBox() {
    TAVUFont::Delete(Font);
    if (Script && Script->OpenInputBox == this) Script->OpenInputBox = nullptr;
}

bool TAVUScriptInputBox::FromXML(XMLNode*, XMLNode*) {
    return false;
}

bool TAVUScriptInputBox::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUWindow::IsTypeOf(type);
}

void TAVUScriptInputBox::Render() {
    TAVUWindow::Render();
}

void TAVUScriptInputBox::Answer(const char* text) {
    if (Script) Script->SetUserInput(text);
}

// Nothing of the box may be touched after this.
void TAVUScriptInputBox::Close() {
    if (Parent) Parent->DeleteChild(this);
}

void TAVUScriptInputBox::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (!source) return;
    if (code == TAVU_NOTIFY_CHILD_REMOVED) {
        // Bookkeeping, not behaviour: a script may delete any part.
        if (source == Entry) Entry = nullptr;
        if (source == OKButton) OKButton = nullptr;
        if (source == CancelButton) CancelButton = nullptr;
        TAVUWindow::OnNotify(source, code, value);
        return;
    }
    bool enter = code == TAVU_NOTIFY_ENTER && source == Entry;
    if (enter || (code == TAVU_NOTIFY_LEFT_UP && source == OKButton)) {
        Answer(Entry ? Entry->Text : nullptr);
        Close();
    } else if (code == TAVU_NOTIFY_LEFT_UP && source == CancelButton) {
        Answer(nullptr);
        Close();
    } else if (code == TAVU_NOTIFY_LEFT_UP) {
        Close(); // a click from the title bar or its buttons: no answer
    }
}

void TAVUScriptInputBox::Create(const char* title, const char* text, const char* defaultValue,
                                XMLNode* templateNode) {
    if (!templateNode) templateNode = g_UIManager.FindTemplate(kTypeWord);
    TAVUFont::Delete(Font);
    Font = TAVUDialogParts::ReadFont(this, templateNode);
    TAVUDialogParts::Message message;
    TAVUDialogParts::WrapMessage(text, Font, message);
    _CreateText textRecord = TAVUDialogParts::TextRecord(message, Font, kLineHeight, this);

    _CreateWindow window;
    window.Width = TAVUDialogParts::BoxWidth(message, Font);
    window.Height = int(unsigned(kLineHeight * message.Lines + kExtraHeight));
    window.Visible = true;
    window.Title = title;
    window.Border = XMLHelper::GetIntValue(templateNode, "Border", 0);
    TAVUTexture::Delete(Texture);
    Texture = TextureFromXML(templateNode, "Texture", nullptr);
    TAVUWindow::Create(window, templateNode);
    BackgroundColor = XMLHelper::GetHexValue(templateNode, "BackgroundColor", 0);
    // Decimal, unlike the message box's: skins were written against this.
    BorderColor = XMLHelper::GetIntValue(templateNode, "BorderColor", 0);
    RecalculateChildrenSize();
    OnResize();

    TAVUElement* client = Client ? Client : this;
    if (auto* label = LoadPart<TAVUText>(client, "text", "Text"))
        label->Create(textRecord, nullptr);
    Entry = LoadPart<TAVUTextEntry>(client, "textentry", "Entry");
    if (Entry) {
        _CreateTextEntry entry;
        entry.X = 5;
        entry.Y = client->Height - 50;
        entry.Width = client->Width - 10;
        entry.Height = 20;
        entry.Visible = true;
        entry.Border = 1;
        entry.Font = {Font->Name, TAVUFont::DefaultHeight, 0, false, false};
        entry.Text = defaultValue;
        Entry->Create(entry, nullptr);
    }
    int left = TAVUDialogParts::CentredLeft(client, 101);
    OKButton = AddButton(client, Font, "OK", 32, left, templateNode);
    CancelButton =
        AddButton(client, Font, "Cancel", 64, left + TAVUDialogParts::ButtonStep, templateNode);
    Center();
}
