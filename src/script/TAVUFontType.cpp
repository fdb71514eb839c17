#include "TAVUFontType.h"

#include "StringHelpers.h"
#include "TAVUFont.h"

namespace {
// IDs of this type start at 1. Member and Method prefixes keep these clear of
// names that Windows' headers own.
enum Member : uint32_t {
    MemberHeight = 1,
    MemberName,
    MemberColor,
    MemberBold,
    MemberGetTextWidth,
    MemberEnd
};
enum Method : uint32_t {
    MethodSetHeight = 1,
    MethodSetName,
    MethodSetColor,
    MethodEnableBold,
    MethodDisableBold,
    MethodToggleBold,
    MethodEnd
};

const char* const kMemberNames[MemberEnd] = {nullptr, "Height", "Name",
                                             "Color", "Bold",   "GetTextWidth"};
const char* const kMethodNames[MethodEnd] = {nullptr,      "SetHeight",   "SetName",   "SetColor",
                                             "EnableBold", "DisableBold", "ToggleBold"};
const unsigned kLargestHeight = 96;
} // namespace

TAVUFontType::TAVUFontType() : TAVUScriptType("tavufont") {
    for (uint32_t id = MemberHeight; id < MemberEnd; ++id)
        AddMember(id, kMemberNames[id], nullptr);
    for (uint32_t id = MethodSetHeight; id < MethodEnd; ++id)
        AddMethod(id, kMethodNames[id], nullptr);
}

RXTypeDefinition* TAVUFontType::Make() {
    return new TAVUFontType();
}

bool TAVUFontType::FromText(RXObjectData& object, const char* text) {
    return RXTypeDefinition::FromText(object, text);
}

bool TAVUFontType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    auto* font = static_cast<TAVUFont*>(object.Value.Pointer);
    return font && CopyText(font->Name, buffer, size);
}

bool TAVUFontType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                             _RXTypeVar& result) {
    auto* font = static_cast<TAVUFont*>(object.Value.Pointer);
    if (!font || member->ID >= MemberEnd) return false;
    switch (member->ID) {
    case MemberHeight:
        return SetInt(result, int(font->Height));
    case MemberName:
        return font->Name && SetString(result, font->Name);
    case MemberColor:
        return SetInt(result, int(font->Color));
    case MemberBold:
        return SetBool(result, font->Bold);
    case MemberGetTextWidth:
        return argc >= 1 && SetUInt(result, unsigned(font->GetTextWidth(argv[0])));
    }
    return false;
}

bool TAVUFontType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    auto* font = static_cast<TAVUFont*>(object.Value.Pointer);
    if (!font || method->ID >= MethodEnd) return false;
    bool needsArgument = method->ID == MethodSetHeight || method->ID == MethodSetName ||
                         method->ID == MethodSetColor;
    if (needsArgument && argc < 1) return false;
    switch (method->ID) {
    case MethodSetHeight: {
        int height = ArgInt(argv[0]);
        if (height > int(kLargestHeight)) return true; // ignored, and yet a success
        font->SetHeight(static_cast<unsigned char>(height & 0xFF));
        return true;
    }
    case MethodSetName:
        if (StrCompareNoCase(font->Name, argv[0]) != 0) font->SetName(argv[0]);
        return true;
    case MethodSetColor: {
        unsigned color = 0xFFFFFFFFu; // text that does not parse gives opaque white
        ArgHex(argv[0], color);
        font->Color = color;
        return true;
    }
    case MethodEnableBold:
        font->SetBold(true);
        return true;
    case MethodDisableBold:
        font->SetBold(false);
        return true;
    case MethodToggleBold:
        font->SetBold(!font->Bold);
        return true;
    }
    return false;
}
