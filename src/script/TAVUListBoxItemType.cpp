#include "TAVUListBoxItemType.h"

#include "ListBoxItem.h"
#include "TAVUListBox.h"
#include "TAVUScriptTypes.h"

namespace {
enum Member : uint32_t {
    MemberTextColor,
    MemberID,
    MemberValue,
    MemberOrder,
    MemberText,
    MemberCount
};

enum Method : uint32_t {
    MethodSetText,
    MethodSetTextColor,
    MethodSetValue,
    MethodSelect,
    MethodDeselect,
    MethodToggle,
    MethodRemove,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {"TextColor", "ID", "Value", "Order", "Text"};
const char* const kMethodNames[MethodCount] = {"SetText",  "SetTextColor", "SetValue", "Select",
                                               "Deselect", "Toggle",       "Remove"};
} // namespace

TAVUListBoxItemType::TAVUListBoxItemType() : TAVUScriptType("tavulistboxitem") {
    for (uint32_t id = 0; id < MemberCount; ++id)
        AddMember(id, kMemberNames[id], nullptr);
    for (uint32_t id = 0; id < MethodCount; ++id)
        AddMethod(id, kMethodNames[id], nullptr);
}

RXTypeDefinition* TAVUListBoxItemType::Make() {
    return new TAVUListBoxItemType();
}

bool TAVUListBoxItemType::SetItem(_RXTypeVar& result, ListBoxItem* item) {
    if (!item) return false;
    result.Value.Pointer = item;
    result.Type = pTAVUListBoxItemType;
    return true;
}

bool TAVUListBoxItemType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    auto* item = static_cast<ListBoxItem*>(object.Value.Pointer);
    return item && CopyText(item->Text, buffer, size);
}

bool TAVUListBoxItemType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                    _RXTypeVar& result) {
    auto* item = static_cast<ListBoxItem*>(object.Value.Pointer);
    if (!item) return false;
    switch (member->ID) {
    case MemberTextColor:
        return SetInt(result, int(item->Color));
    case MemberID:
        return SetInt(result, int(item->ID));
    case MemberValue:
        return SetString(result, item->Value);
    case MemberOrder:
        return SetInt(result, int(item->Order));
    case MemberText:
        return item->Text && SetString(result, item->Text);
    }
    return false;
}

// Setting the text re-sorts nothing; the owner's SetItemText does.
bool TAVUListBoxItemType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                    char* argv[]) {
    auto* item = static_cast<ListBoxItem*>(object.Value.Pointer);
    if (!item) return false;
    switch (method->ID) {
    case MethodSetText:
        item->SetText(argc >= 1 ? argv[0] : nullptr);
        return true;
    case MethodSetTextColor:
        if (argc < 1) return false;
        ArgHex(argv[0], item->Color);
        return true;
    case MethodSetValue:
        if (argc < 1) return false;
        item->SetValue(argv[0]);
        return true;
    case MethodSelect:
        item->Owner->SelectItem(item->ID);
        return true;
    case MethodDeselect:
        item->Owner->DeselectItem(item->ID);
        return true;
    case MethodToggle:
        item->Owner->ItemToggleSelect(item->ID);
        return true;
    case MethodRemove:
        item->Owner->RemoveItem(item->ID);
        return false;
    }
    return false;
}
