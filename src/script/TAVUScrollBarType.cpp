#include "TAVUScrollBarType.h"

#include "TAVUScriptTypes.h"
#include "TAVUScrollBar.h"

namespace {
enum Member : uint32_t { MemberValue, MemberRange, MemberVertical, MemberCount };

enum Method : uint32_t {
    MethodSetValue,
    MethodRaiseValue,
    MethodLowerValue,
    MethodSetRange,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {"Value", "Range", "Vertical"};
const char* const kMethodNames[MethodCount] = {"SetValue", "RaiseValue", "LowerValue", "SetRange"};
} // namespace

TAVUScrollBarType::TAVUScrollBarType() : TAVUControlType("tavuscrollbar", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUScrollBarType::Make() {
    return new TAVUScrollBarType();
}

bool TAVUScrollBarType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                  _RXTypeVar& result) {
    auto* bar = static_cast<TAVUScrollBar*>(object.Value.Pointer);
    if (!bar) return false;
    switch (member->ID) {
    case MemberValue:
        return SetInt(result, int(bar->GetValue()));
    case MemberRange:
        return SetInt(result, int(bar->Range));
    case MemberVertical:
        return SetBool(result, bar->Vertical);
    }
    return false;
}

// Every method goes through the scroll bar's virtual operations, so a
// control derived from it sees script changes as its own.
bool TAVUScrollBarType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                  char* argv[]) {
    auto* bar = static_cast<TAVUScrollBar*>(object.Value.Pointer);
    if (!bar || argc < 1) return false;
    unsigned number = unsigned(ArgInt(argv[0]));
    switch (method->ID) {
    case MethodSetValue:
        bar->SetValue(number);
        return true;
    case MethodRaiseValue:
        bar->RaiseValue(number);
        return true;
    case MethodLowerValue:
        bar->LowerValue(number);
        return true;
    case MethodSetRange:
        bar->SetRange(number);
        bar->SetValue(bar->GetValue());
        return true;
    }
    return false;
}
