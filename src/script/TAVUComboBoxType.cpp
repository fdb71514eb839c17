#include "TAVUComboBoxType.h"

#include "TAVUComboBox.h"
#include "TAVUListBox.h"
#include "TAVUScriptTypes.h"

namespace {
enum Member : uint32_t {
    MemberBorder,
    MemberFont,
    MemberDown,
    MemberSelection,
    MemberTexture,
    MemberButtonTexture,
    MemberCount
};

enum Method : uint32_t { MethodSetSelection, MethodCount };

const char* const kMemberNames[MemberCount] = {"Border",    "Font",    "Down",
                                               "Selection", "Texture", "ButtonTexture"};
const char* const kMethodNames[MethodCount] = {"SetSelection"};

// The combo box as its inner list, for the list box's vocabulary.
bool AsList(RXObjectData& object, RXObjectData& list) {
    auto* combo = static_cast<TAVUComboBox*>(object.Value.Pointer);
    if (!combo || !combo->List) return false;
    list = object;
    list.Value.Pointer = combo->List;
    return true;
}
} // namespace

TAVUComboBoxType::TAVUComboBoxType() : TAVUControlType("tavucombobox", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUComboBoxType::Make() {
    return new TAVUComboBoxType();
}

bool TAVUComboBoxType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                 _RXTypeVar& result) {
    auto* combo = static_cast<TAVUComboBox*>(object.Value.Pointer);
    if (!combo) return false;
    switch (member->ID) {
    case MemberBorder:
        return SetInt(result, int(combo->Border));
    case MemberFont:
        return SetFont(result, combo->Font);
    case MemberDown:
        return SetBool(result, combo->Open);
    case MemberSelection:
        return SetInt(result, int(combo->SelectedID));
    case MemberTexture:
        return SetTexture(result, combo->Texture);
    case MemberButtonTexture:
        return SetTexture(result, combo->ButtonTexture);
    }
    return false;
}

// Only the shown ID changes: the list's selection and the events are left
// alone.
bool TAVUComboBoxType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                 char* argv[]) {
    auto* combo = static_cast<TAVUComboBox*>(object.Value.Pointer);
    if (!combo || argc < 1 || method->ID != MethodSetSelection) return false;
    combo->SelectedID = unsigned(ArgInt(argv[0]));
    return true;
}

int TAVUComboBoxType::MemberFallback(RXObjectData& object, const char* name, int argc, char* argv[],
                                     _RXTypeVar& result) {
    int answer = TAVUControlType::MemberFallback(object, name, argc, argv, result);
    RXObjectData list;
    if (answer == 1 || !AsList(object, list)) return answer;
    return pTAVUListBoxType->DispatchMember(list, name, argc, argv, result);
}

int TAVUComboBoxType::MethodFallback(RXObjectData& object, const char* name, int argc,
                                     char* argv[]) {
    int answer = TAVUControlType::MethodFallback(object, name, argc, argv);
    RXObjectData list;
    if (answer == 1 || !AsList(object, list)) return answer;
    return pTAVUListBoxType->DispatchMethod(list, name, argc, argv);
}
