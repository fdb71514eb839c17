#include "TAVUSliderType.h"

#include "TAVUScriptTypes.h"
#include "TAVUSlider.h"

namespace {
enum Member : uint32_t {
    MemberBorder,
    MemberRange,
    MemberValue,
    MemberVertical,
    MemberTexture,
    MemberHandleTexture,
    MemberCount
};

enum Method : uint32_t { MethodSetRange, MethodSetValue, MethodCount };

const char* const kMemberNames[MemberCount] = {"Border",   "Range",   "Value",
                                               "Vertical", "Texture", "HandleTexture"};
const char* const kMethodNames[MethodCount] = {"SetRange", "SetValue"};
} // namespace

TAVUSliderType::TAVUSliderType() : TAVUControlType("tavuslider", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUSliderType::Make() {
    return new TAVUSliderType();
}

// "Border" is a name of this type with no answer: asking for it fails rather
// than climbing to tavuelement.
bool TAVUSliderType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                               _RXTypeVar& result) {
    auto* slider = static_cast<TAVUSlider*>(object.Value.Pointer);
    if (!slider) return false;
    switch (member->ID) {
    case MemberRange:
        return SetInt(result, int(slider->Range));
    case MemberValue:
        return SetInt(result, int(slider->Value));
    case MemberVertical:
        return SetBool(result, slider->Vertical);
    case MemberTexture:
        return SetTexture(result, slider->Texture);
    case MemberHandleTexture:
        return SetTexture(result, slider->HandleTexture);
    }
    return false;
}

// Both methods end in the slider's own SetValue, so a value beyond a new
// Range is clamped to it and the parent hears of the change.
bool TAVUSliderType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                               char* argv[]) {
    auto* slider = static_cast<TAVUSlider*>(object.Value.Pointer);
    if (!slider || argc < 1) return false;
    unsigned number = unsigned(ArgInt(argv[0]));
    switch (method->ID) {
    case MethodSetRange:
        slider->Range = number;
        slider->SetValue(slider->Value);
        return true;
    case MethodSetValue:
        slider->SetValue(number);
        return true;
    }
    return false;
}
