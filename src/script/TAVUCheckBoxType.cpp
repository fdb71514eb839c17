#include "TAVUCheckBoxType.h"

#include "TAVUCheckBox.h"
#include "TAVUScriptTypes.h"

namespace {
enum Member : uint32_t {
    MemberText,
    MemberDown,
    MemberChecked,
    MemberFont,
    MemberTexture,
    MemberTexturePressed,
    MemberTextureHover,
    MemberTextureChecked,
    MemberTextureCheckedPressed,
    MemberTextureCheckedHover,
    MemberCount
};

enum Method : uint32_t {
    MethodSetText,
    MethodSetChecked,
    MethodUnsetChecked,
    MethodToggleChecked,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {"Text",
                                               "Down",
                                               "Checked",
                                               "Font",
                                               "Texture",
                                               "TexturePressed",
                                               "TextureHover",
                                               "TextureChecked",
                                               "TextureCheckedPressed",
                                               "TextureCheckedHover"};
const char* const kMethodNames[MethodCount] = {"SetText", "SetChecked", "UnsetChecked",
                                               "ToggleChecked"};
} // namespace

TAVUCheckBoxType::TAVUCheckBoxType() : TAVUControlType("tavucheckbox", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUCheckBoxType::Make() {
    return new TAVUCheckBoxType();
}

bool TAVUCheckBoxType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                 _RXTypeVar& result) {
    auto* box = static_cast<TAVUCheckBox*>(object.Value.Pointer);
    if (!box) return false;
    switch (member->ID) {
    case MemberText:
        return SetText(result, box->Text);
    case MemberDown:
        return SetBool(result, box->Pressed);
    case MemberChecked:
        return SetBool(result, box->Checked);
    case MemberFont:
        return SetFont(result, box->Font);
    case MemberTexture:
        return SetTexture(result, box->Texture);
    case MemberTexturePressed:
        return SetTexture(result, box->TexturePressed);
    case MemberTextureHover:
        return SetTexture(result, box->TextureHover);
    case MemberTextureChecked:
        return SetTexture(result, box->TextureChecked);
    case MemberTextureCheckedPressed:
        return SetTexture(result, box->TextureCheckedPressed);
    case MemberTextureCheckedHover:
        return SetTexture(result, box->TextureCheckedHover);
    }
    return false;
}

// The tick methods change the state alone: no event runs and the parent is
// not told, unlike a click.
bool TAVUCheckBoxType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                 char* argv[]) {
    auto* box = static_cast<TAVUCheckBox*>(object.Value.Pointer);
    if (!box) return false;
    switch (method->ID) {
    case MethodSetText:
        return ReplaceText(box->Text, argc, argv);
    case MethodSetChecked:
        box->Checked = true;
        return true;
    case MethodUnsetChecked:
        box->Checked = false;
        return true;
    case MethodToggleChecked:
        box->Checked = !box->Checked;
        return true;
    }
    return false;
}
