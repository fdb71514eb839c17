#include "TAVUTabControlType.h"

#include "TAVUScriptTypes.h"
#include "TAVUTabControl.h"

namespace {
enum Member : uint32_t {
    MemberFont,
    MemberSelectedTab,
    MemberTab,
    MemberTabs,
    MemberTabTexture,
    MemberTabSelectedTexture,
    MemberCount
};

enum Method : uint32_t { MethodAddTab, MethodCount };

const char* const kMemberNames[MemberCount] = {"Font", "SelectedTab", "Tab",
                                               "Tabs", "TabTexture",  "TabSelectedTexture"};
const char* const kMethodNames[MethodCount] = {"AddTab"};

// A number counts IDs from 1 up to the count of tabs; any other text is a name.
CTAVUTab* FindTab(TAVUTabControl* control, const char* key) {
    if (!TAVUScriptType::IsNumericText(key)) return control->GetTabFromName(key);
    int id = TAVUScriptType::ArgInt(key);
    if (id < 1 || unsigned(id) > control->TabCount) return nullptr;
    return control->Tabs[unsigned(id) - 1];
}
} // namespace

TAVUTabControlType::TAVUTabControlType() : TAVUControlType("tavutabcontrol", &pTAVUFrameType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUTabControlType::Make() {
    return new TAVUTabControlType();
}

bool TAVUTabControlType::SetTab(_RXTypeVar& result, CTAVUTab* tab) {
    if (!tab) return false;
    result.Value.Pointer = tab;
    result.Type = pTAVUTabType;
    return true;
}

bool TAVUTabControlType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc,
                                   char* argv[], _RXTypeVar& result) {
    auto* control = static_cast<TAVUTabControl*>(object.Value.Pointer);
    if (!control) return false;
    switch (member->ID) {
    case MemberFont:
        return SetFont(result, control->Font);
    case MemberSelectedTab:
        return control->Selected && SetTab(result, control->Tabs[control->Selected - 1]);
    case MemberTab:
        return argc >= 1 && SetTab(result, FindTab(control, argv[0]));
    case MemberTabs:
        return SetInt(result, int(control->TabCount));
    case MemberTabTexture:
        return SetTexture(result, control->TabTexture);
    case MemberTabSelectedTexture:
        return SetTexture(result, control->TabSelectedTexture);
    }
    return false;
}

// A fourth value is passed along; the control itself makes no use of it.
bool TAVUTabControlType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                   char* argv[]) {
    auto* control = static_cast<TAVUTabControl*>(object.Value.Pointer);
    if (!control) return false;
    switch (method->ID) {
    case MethodAddTab:
        if (argc < 1) return false;
        return control->AddTab(argv[0], nullptr, argv[0], argc >= 2 ? argv[1] : nullptr) != 0;
    }
    return false;
}
