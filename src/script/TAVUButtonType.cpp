#include "TAVUButtonType.h"

#include "TAVUButton.h"
#include "TAVUScriptTypes.h"

namespace {
enum Member : uint32_t {
    MemberText,
    MemberDown,
    MemberFont,
    MemberBackgroundColor,
    MemberTexture,
    MemberTexturePressed,
    MemberTextureHover,
    MemberBorder,
    MemberBorderColor,
    MemberCount
};

enum Method : uint32_t {
    MethodSetText,
    MethodSetBackgroundColor,
    MethodSetBorderColor,
    MethodSetBorder,
    MethodSetTexture,
    MethodSetTexturePressed,
    MethodSetTextureHover,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {
    "Text",           "Down",         "Font",   "BackgroundColor", "Texture",
    "TexturePressed", "TextureHover", "Border", "BorderColor"};
const char* const kMethodNames[MethodCount] = {
    "SetText",    "SetBackgroundColor", "SetBorderColor", "SetBorder",
    "SetTexture", "SetTexturePressed",  "SetTextureHover"};
} // namespace

TAVUButtonType::TAVUButtonType() : TAVUControlType("tavubutton", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUButtonType::Make() {
    return new TAVUButtonType();
}

bool TAVUButtonType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                               _RXTypeVar& result) {
    auto* button = static_cast<TAVUButton*>(object.Value.Pointer);
    if (!button) return false;
    switch (member->ID) {
    case MemberText:
        return SetText(result, button->Text);
    case MemberDown:
        return SetBool(result, button->Pressed);
    case MemberFont:
        return SetFont(result, button->Font);
    case MemberBackgroundColor:
        return SetInt(result, int(button->BackgroundColor));
    case MemberTexture:
        return SetTexture(result, button->Texture);
    case MemberTexturePressed:
        return SetTexture(result, button->TexturePressed);
    case MemberTextureHover:
        return SetTexture(result, button->TextureHover);
    case MemberBorder:
        return SetInt(result, int(button->Border));
    case MemberBorderColor:
        return SetInt(result, int(button->BorderColor));
    }
    return false;
}

bool TAVUButtonType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                               char* argv[]) {
    auto* button = static_cast<TAVUButton*>(object.Value.Pointer);
    if (!button) return false;
    switch (method->ID) {
    case MethodSetText:
        return ReplaceText(button->Text, argc, argv);
    case MethodSetTexture:
        return button->TextureFromArgs(argc, argv, &button->Texture);
    case MethodSetTexturePressed:
        return button->TextureFromArgs(argc, argv, &button->TexturePressed);
    case MethodSetTextureHover:
        return button->TextureFromArgs(argc, argv, &button->TextureHover);
    }
    if (argc < 1) return false;
    switch (method->ID) {
    case MethodSetBackgroundColor:
        ArgHex(argv[0], button->BackgroundColor);
        return true;
    case MethodSetBorderColor:
        ArgHex(argv[0], button->BorderColor);
        return true;
    case MethodSetBorder:
        button->Border = unsigned(ArgInt(argv[0]));
        return true;
    }
    return false;
}
