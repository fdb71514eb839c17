#include "TAVUFontType.h"

#include "StringHelpers.h"
#include "TAVUFont.h"

namespace {
// IDs of this type start at 1.
enum Member : uint32_t { Height = 1, Name, Color, Bold, GetTextWidth, MemberEnd };
enum Method : uint32_t {
    SetHeight = 1,
    SetName,
    SetColor,
    EnableBold,
    DisableBold,
    ToggleBold,
    MethodEnd
};

const char* const kMemberNames[MemberEnd] = {nullptr, "Height", "Name",
                                             "Color", "Bold",   "GetTextWidth"};
const char* const kMethodNames[MethodEnd] = {nullptr,      "SetHeight",   "SetName",   "SetColor",
                                             "EnableBold", "DisableBold", "ToggleBold"};
const unsigned kLargestHeight = 96;
} // namespace

TAVUFontType::TAVUFontType() : TAVUScriptType("tavufont") {
    for (uint32_t id = Height; id < MemberEnd; ++id)
        AddMember(id, kMemberNames[id], nullptr);
    for (uint32_t id = SetHeight; id < MethodEnd; ++id)
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
    case Height:
        return SetInt(result, int(font->Height));
    case Name:
        return font->Name && SetString(result, font->Name);
    case Color:
        return SetInt(result, int(font->Color));
    case Bold:
        return SetBool(result, font->Bold);
    case GetTextWidth:
        return argc >= 1 && SetUInt(result, unsigned(font->GetTextWidth(argv[0])));
    }
    return false;
}

bool TAVUFontType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    auto* font = static_cast<TAVUFont*>(object.Value.Pointer);
    if (!font || method->ID >= MethodEnd) return false;
    bool needsArgument = method->ID == SetHeight || method->ID == SetName || method->ID == SetColor;
    if (needsArgument && argc < 1) return false;
    switch (method->ID) {
    case SetHeight: {
        int height = ArgInt(argv[0]);
        if (height > int(kLargestHeight)) return true; // ignored, and yet a success
        font->SetHeight(static_cast<unsigned char>(height & 0xFF));
        return true;
    }
    case SetName:
        if (StrCompareNoCase(font->Name, argv[0]) != 0) font->SetName(argv[0]);
        return true;
    case SetColor: {
        unsigned color = 0xFFFFFFFFu; // text that does not parse gives opaque white
        ArgHex(argv[0], color);
        font->Color = color;
        return true;
    }
    case EnableBold:
        font->SetBold(true);
        return true;
    case DisableBold:
        font->SetBold(false);
        return true;
    case ToggleBold:
        font->SetBold(!font->Bold);
        return true;
    }
    return false;
}
