#include "TAVUTextEntryType.h"

#include "TAVUScriptTypes.h"
#include "TAVUTextEntry.h"

namespace {
enum Member : uint32_t {
    MemberText,
    MemberFont,
    MemberBackgroundColor,
    MemberBorderColor,
    MemberBorder,
    MemberTexture,
    MemberTextureFocused,
    MemberTextureCaret,
    MemberTextureCaretOverwrite,
    MemberMaxLength,
    MemberCount
};

enum Method : uint32_t {
    MethodSetText,
    MethodSetBackgroundColor,
    MethodSetBorderColor,
    MethodSetMaxLength,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {
    "Text",    "Font",           "BackgroundColor", "BorderColor",           "Border",
    "Texture", "TextureFocused", "TextureCaret",    "TextureCaretOverwrite", "MaxLength"};
const char* const kMethodNames[MethodCount] = {"SetText", "SetBackgroundColor", "SetBorderColor",
                                               "SetMaxLength"};
} // namespace

TAVUTextEntryType::TAVUTextEntryType() : TAVUControlType("tavutextentry", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUTextEntryType::Make() {
    return new TAVUTextEntryType();
}

bool TAVUTextEntryType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                  _RXTypeVar& result) {
    auto* entry = static_cast<TAVUTextEntry*>(object.Value.Pointer);
    if (!entry) return false;
    switch (member->ID) {
    case MemberText:
        return entry->Text && SetString(result, entry->Text);
    case MemberFont:
        // The font object under the string type, as scripts have always had
        // it: it reads as no text worth having.
        return entry->Font && SetString(result, reinterpret_cast<const char*>(entry->Font));
    case MemberBackgroundColor:
        return SetInt(result, int(entry->BackgroundColor));
    case MemberBorderColor:
        return SetInt(result, int(entry->BorderColor));
    case MemberBorder:
        return SetInt(result, int(entry->Border));
    case MemberTexture:
        return SetTexture(result, entry->Texture);
    case MemberTextureFocused:
        return SetTexture(result, entry->TextureFocused);
    case MemberTextureCaret:
        return SetTexture(result, entry->TextureCaret);
    case MemberTextureCaretOverwrite:
        return SetTexture(result, entry->TextureCaretOverwrite);
    case MemberMaxLength:
        return SetUInt(result, entry->MaxLength);
    }
    return false;
}

bool TAVUTextEntryType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                  char* argv[]) {
    auto* entry = static_cast<TAVUTextEntry*>(object.Value.Pointer);
    if (!entry) return false;
    if (method->ID == MethodSetText) {
        char empty[] = "";
        entry->SetText(argc >= 1 && argv[0] ? argv[0] : empty);
        return true;
    }
    if (argc < 1) return false;
    switch (method->ID) {
    case MethodSetBackgroundColor:
        ArgHex(argv[0], entry->BackgroundColor);
        return true;
    case MethodSetBorderColor:
        ArgHex(argv[0], entry->BorderColor);
        return true;
    case MethodSetMaxLength:
        // Only the number: the buffer keeps its size, and the text stops
        // at the smaller of the two.
        entry->MaxLength = unsigned(ArgInt(argv[0]));
        return true;
    }
    return false;
}
