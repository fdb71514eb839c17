#include "TAVUMessageBoxType.h"

#include "TAVUMessageBox.h"
#include "TAVUScriptTypes.h"

namespace {
enum Member : uint32_t { MemberType, MemberCount };

const char* const kMemberNames[MemberCount] = {"Type"};
const char* const kTypeWords[] = {"ok", "okcancel", "yesno"};
} // namespace

TAVUMessageBoxType::TAVUMessageBoxType() : TAVUControlType("tavumessagebox", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
}

RXTypeDefinition* TAVUMessageBoxType::Make() {
    return new TAVUMessageBoxType();
}

// "Type" leaves its word in the value but answers false, without a type:
// scripts written against it test the value, not the answer.
bool TAVUMessageBoxType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                   _RXTypeVar& result) {
    auto* box = static_cast<TAVUMessageBox*>(object.Value.Pointer);
    if (!box || member->ID != MemberType) return false;
    unsigned type = unsigned(box->Type);
    if (type >= TAVU_MESSAGEBOX_OK && type <= TAVU_MESSAGEBOX_YESNO)
        result.Value.Text = kTypeWords[type - 1];
    return false;
}

bool TAVUMessageBoxType::GetMethod(RXObjectData&, _RXTypeMember*, int, char*[]) {
    return false;
}
