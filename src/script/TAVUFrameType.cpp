#include "TAVUFrameType.h"

#include "TAVUFrame.h"
#include "TAVUScriptTypes.h"

namespace {
enum Member : uint32_t {
    MemberBackgroundColor,
    MemberBorder,
    MemberBorderColor,
    MemberTexture,
    MemberCount
};

enum Method : uint32_t {
    MethodSetBackgroundColor,
    MethodSetBorder,
    MethodSetBorderColor,
    MethodSetTexture,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {"BackgroundColor", "Border", "BorderColor",
                                               "Texture"};
const char* const kMethodNames[MethodCount] = {"SetBackgroundColor", "SetBorder", "SetBorderColor",
                                               "SetTexture"};

// A console climbs to this type without being a frame: its fields are not a
// frame's, so it is refused rather than read as one.
TAVUFrame* FrameOf(RXObjectData& object) {
    auto* element = static_cast<TAVUElement*>(object.Value.Pointer);
    return element && element->IsTypeOf("frame") ? static_cast<TAVUFrame*>(element) : nullptr;
}
} // namespace

TAVUFrameType::TAVUFrameType() : TAVUControlType("tavuframe", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUFrameType::Make() {
    return new TAVUFrameType();
}

bool TAVUFrameType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                              _RXTypeVar& result) {
    auto* frame = FrameOf(object);
    if (!frame) return false;
    switch (member->ID) {
    case MemberBackgroundColor:
        return SetInt(result, int(frame->BackgroundColor));
    case MemberBorder:
        return SetInt(result, int(frame->Border));
    case MemberBorderColor:
        return SetInt(result, int(frame->BorderColor));
    case MemberTexture:
        return SetTexture(result, frame->Texture);
    }
    return false;
}

bool TAVUFrameType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    auto* frame = FrameOf(object);
    if (!frame || method->ID >= MethodCount) return false;
    if (method->ID == MethodSetTexture) return frame->TextureFromArgs(argc, argv, &frame->Texture);
    if (argc < 1) return false;
    switch (method->ID) {
    case MethodSetBackgroundColor:
        ArgHex(argv[0], frame->BackgroundColor);
        return true;
    case MethodSetBorder:
        frame->Border = unsigned(ArgInt(argv[0]));
        return true;
    case MethodSetBorderColor:
        ArgHex(argv[0], frame->BorderColor);
        return true;
    }
    return false;
}
