#include "TAVUComboBox.h"

#include "CUIManager.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUFont.h"
#include "TAVUListBox.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

#include <cstdio>

namespace {
const char kTypeWord[] = "combobox";
} // namespace

TAVUFactory<TAVUComboBox> g_TAVUComboBoxFactory(kTypeWord);

TAVUComboBox::TAVUComboBox(const char* type, TAVUElement* parent, const char* name)
    : TAVUElement(type, parent, name) {}

TAVUComboBox::~TAVUComboBox() {
    TAVUTexture::Delete(Texture);
    TAVUTexture::Delete(ButtonTexture);
    TAVUFont::Delete(Font);
    if (OnSelect) OnSelect->Delete();
}

// The list's own items go in its "ListBox" child; "Items" of the combo box's
// node are added after them. A "Default" item is chosen already here.
bool TAVUComboBox::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUElement::FromXML(node, templateNode)) return false;
    ClosedHeight = unsigned(Height);
    FullHeight = TAVUControlHelpers::ReadInt(node, templateNode, "FullHeight", 0);
    Border = TAVUControlHelpers::ReadInt(node, templateNode, "Border", 0);
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    ButtonWidth = TAVUControlHelpers::ReadInt(node, templateNode, "ButtonWidth", 0);
    if (TAVUEmbeddedScript* script =
            EmbeddedScriptFromXML(node, "OnSelect", templateNode, "int ID")) {
        if (OnSelect) OnSelect->Delete();
        OnSelect = script;
    }
    TAVUTexture::Delete(Texture);
    Texture = TextureFromXML(node, "Texture", templateNode);
    TAVUTexture::Delete(ButtonTexture);
    ButtonTexture = TextureFromXML(node, "ButtonTexture", templateNode);
    XMLNode* child = XMLHelper::GetChild(node, "ListBox");
    if (!child) child = XMLHelper::GetChild(templateNode, "ListBox");
    if (!child) return false;
    List =
        static_cast<TAVUListBox*>(g_UIManager.LoadElement(this, "listbox", "List", child, nullptr));
    if (!List) return false;
    List->SelectMultiple = false;
    List->Width = Width;
    List->Height = WrapSubtract(int(FullHeight), Height);
    List->RecalculateChildrenSize();
    TAVUListBox::ReadItems(List, XMLHelper::GetChild(node, "Items"));
    return true;
}

bool TAVUComboBox::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUComboBox::RecalculateSize(bool recurse) {
    TAVUElement::RecalculateSize(recurse);
    if (!List) return;
    if (Open) {
        List->Y = int(ClosedHeight);
        Height = int(FullHeight);
        return;
    }
    ClosedHeight = unsigned(Height);
    List->X = 0;
    List->Y = int(ClosedHeight);
    List->Height = WrapSubtract(int(FullHeight), Height);
    List->Width = Width;
    List->RecalculateSize(true);
}

bool TAVUComboBox::OnLMouseDown(_Point2i& point) {
    TAVUElement::OnLMouseDown(point);
    return true;
}

// Opening claims the pointer for this control, so that the list is reached
// where it hangs outside the parent.
bool TAVUComboBox::OnLMouseUp(_Point2i& point) {
    TAVUElementWatch watch(this);
    MoveZTop(true);
    if (!watch.Alive()) return true;
    Open = !Open;
    if (Open) {
        Height = int(FullHeight);
        g_UIManager.SetFocusElement(this);
        g_UIManager.MouseOverRootID = ID;
    } else {
        g_UIManager.MouseOverRootID = 0;
        Height = int(ClosedHeight);
    }
    if (watch.Alive()) TAVUElement::OnLMouseUp(point);
    return true;
}

void TAVUComboBox::Close() {
    Height = int(ClosedHeight);
    Open = false;
}

// A press inside the open list keeps it open: choosing a row closes it.
void TAVUComboBox::OnLMouseDownOther(TAVUElement* other) {
    if (!Open) return;
    for (TAVUElement* element = other; element; element = element->Parent)
        if (element == this) return;
    if (g_UIManager.MouseOverRootID == ID) g_UIManager.MouseOverRootID = 0;
    Close();
}

// The list is single-selection, so a new choice reports the old row's
// release first (0) and then the new row.
void TAVUComboBox::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (!source) return;
    if (code == TAVU_NOTIFY_CHILD_REMOVED && source == List) {
        List = nullptr;
        return;
    }
    if (source != List || code != TAVU_NOTIFY_SELECTION_CHANGED) return;
    ListBoxItem* item = List->RetrieveItem(unsigned(value));
    SelectedID = item && List->IsSelected(item) ? unsigned(value) : 0;
    if (Open) Close();
    TAVUElementWatch watch(this);
    unsigned selected = SelectedID;
    if (Parent) Parent->OnNotify(this, TAVU_NOTIFY_SELECTION_CHANGED, selected);
    if (!watch.Alive() || !OnSelect) return;
    char text[16];
    snprintf(text, sizeof(text), "%u", selected);
    char* argv[] = {text};
    OnSelect->Execute(1, argv);
}

void TAVUComboBox::Render() {
    int x = AbsolutePosition.x;
    int y = AbsolutePosition.y;
    int closedHeight = int(ClosedHeight);
    if (Texture) {
        tagRECT body{x, y, WrapAdd(x, WrapSubtract(Width, int(ButtonWidth))),
                     WrapAdd(y, closedHeight)};
        if (Border)
            TexturedRectBordered(body, Texture, Border);
        else
            TexturedRect(body, Texture);
    }
    if (ButtonTexture && ButtonWidth) {
        int left = WrapAdd(x, WrapSubtract(Width, int(ButtonWidth)));
        tagRECT button{left, y, WrapAdd(left, int(ButtonWidth)), WrapAdd(y, closedHeight)};
        if (ButtonTexture->Border)
            TexturedRectBordered(button, ButtonTexture, ButtonTexture->Border);
        else
            TexturedRect(button, ButtonTexture);
    }
    DrawSelection();
    if (List) List->Show(Open);
    TAVUElement::Render();
}

// The chosen row's text, centred in the closed height, stops short of the
// drop button.
void TAVUComboBox::DrawSelection() {
    ListBoxItem* item = SelectedID && List ? List->RetrieveItem(SelectedID) : nullptr;
    if (!item || !item->Text) return;
    int x = AbsolutePosition.x;
    unsigned fontHeight = Font ? Font->Height : 0;
    int top = WrapAdd(int((ClosedHeight - fontHeight) >> 1), AbsolutePosition.y);
    int right = WrapAdd(WrapSubtract(x, 3), WrapSubtract(Width, int(ButtonWidth)));
    DrawTextClipped(Font, item->Text, WrapAdd(x, int(Border) + 3), top, right);
}

RXTypeDefinition* TAVUComboBox::GetRXType() {
    return pTAVUComboBoxType;
}
