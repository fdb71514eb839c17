#include "TAVUTextEditType.h"

#include "TAVUFixedFont.h"
#include "TAVUScriptTypes.h"
#include "TAVUTextEdit.h"

namespace {
enum Member : uint32_t { MemberFont, MemberCount };

enum Method : uint32_t { MethodSetText, MethodClear, MethodAddText, MethodAddLine, MethodCount };

const char* const kMemberNames[MemberCount] = {"Font"};
const char* const kMethodNames[MethodCount] = {"SetText", "Clear", "AddText", "AddLine"};
} // namespace

TAVUTextEditType::TAVUTextEditType() : TAVUControlType("tavutextedit", &pTAVUFrameType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUTextEditType::Make() {
    return new TAVUTextEditType();
}

// The font is given also when the editor has none: scripts then get an
// empty font object rather than nothing.
bool TAVUTextEditType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                 _RXTypeVar& result) {
    auto* edit = static_cast<TAVUTextEdit*>(object.Value.Pointer);
    if (!edit || member->ID != MemberFont) return false;
    return SetFont(result, edit->Font);
}

bool TAVUTextEditType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                 char* argv[]) {
    auto* edit = static_cast<TAVUTextEdit*>(object.Value.Pointer);
    if (!edit) return false;
    if (method->ID == MethodClear) {
        edit->SetText("");
        return true;
    }
    if (argc < 1 || !argv[0]) return false;
    switch (method->ID) {
    case MethodSetText:
        edit->SetText(argv[0]);
        return true;
    case MethodAddText:
        edit->AddText(argv[0]);
        return true;
    case MethodAddLine:
        edit->AddLine(argv[0]);
        return true;
    }
    return false;
}
