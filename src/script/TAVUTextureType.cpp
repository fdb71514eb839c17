#include "TAVUTextureType.h"

#include "Module.h"
#include "TAVUTexture.h"

namespace {
// Member and Method prefixes keep these clear of names that Windows' headers own
// (SetFocus, SetRect).
enum Member : uint32_t {
    MemberFilename,
    MemberColorKey,
    MemberAlpha,
    MemberColorMask,
    MemberBorder,
    MemberOrientation,
    MemberLeft,
    MemberRight,
    MemberTop,
    MemberBottom,
    MemberHasRect,
    MemberHasAlpha,
    MemberHasColorMask,
    MemberCount
};

enum Method : uint32_t {
    MethodCopy,
    MethodSet,
    MethodSetRect,
    MethodSetAlpha,
    MethodSetColorMask,
    MethodUnsetRect,
    MethodUnsetAlpha,
    MethodUnsetColorMask,
    MethodSetOrientation,
    MethodSetBorder,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {
    "Filename", "ColorKey", "Alpha",  "ColorMask", "Border",   "Orientation", "Left",
    "Right",    "Top",      "Bottom", "HasRect",   "HasAlpha", "HasColorMask"};

const char* const kMethodNames[MethodCount] = {
    "Copy",      "Set",        "SetRect",        "SetAlpha",       "SetColorMask",
    "UnsetRect", "UnsetAlpha", "UnsetColorMask", "SetOrientation", "SetBorder"};

// The file name as the host's wide text: at most 511 characters and a terminator.
WCHAR* WideFilename(const char* filename) {
    WCHAR wide[512] = {0};
    int units = MultiByteToWideChar(CP_UTF8, 0, filename ? filename : "", -1, wide, 512);
    if (units <= 0) {
        // Too long for the buffer: convert what fits, then cut.
        wide[0] = 0;
        MultiByteToWideChar(CP_UTF8, 0, filename ? filename : "", 511, wide, 511);
    }
    wide[511] = 0;
    return reinterpret_cast<WCHAR*>(
        g_pHostScript->GetTempBuffer(1024, reinterpret_cast<const char*>(wide)));
}
} // namespace

TAVUTextureType::TAVUTextureType() : TAVUScriptType("tavutexture") {
    for (uint32_t id = 0; id < MemberCount; ++id)
        AddMember(id, kMemberNames[id], nullptr);
    for (uint32_t id = 0; id < MethodCount; ++id)
        AddMethod(id, kMethodNames[id], nullptr);
}

RXTypeDefinition* TAVUTextureType::Make() {
    return new TAVUTextureType();
}

bool TAVUTextureType::ToTextSized(RXObjectData& object, char* buffer, size_t) {
    auto* texture = static_cast<TAVUTexture*>(object.Value.Pointer);
    if (!g_pFilePathType || !texture) return false;
    RXObjectData path{};
    path.Value.Pointer = WideFilename(texture->Filename);
    return g_pFilePathType->ToText(path, buffer);
}

bool TAVUTextureType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                _RXTypeVar& result) {
    auto* texture = static_cast<TAVUTexture*>(object.Value.Pointer);
    if (!texture || member->ID >= MemberCount) return false;
    unsigned flags = texture->Flags;
    bool hasRect = flags & TAVUTexture::HasRect;
    switch (member->ID) {
    case MemberFilename:
        result.Value.Pointer = WideFilename(texture->Filename);
        result.Type = g_pFilePathType;
        return true;
    case MemberColorKey:
        return SetInt(result, int(texture->ColorKey));
    case MemberAlpha:
        return (flags & TAVUTexture::HasAlpha) && SetFloat(result, texture->Alpha);
    case MemberColorMask:
        return (flags & TAVUTexture::HasColorMask) && SetInt(result, int(texture->ColorMask));
    case MemberBorder:
        SetInt(result, int(texture->Border));
        return false; // the value is in the result, and the request fails all the same
    case MemberOrientation:
        return SetInt(result, texture->Orientation);
    case MemberLeft:
        return hasRect && SetInt(result, texture->Left);
    case MemberRight:
        return hasRect && SetInt(result, texture->Right);
    case MemberTop:
        return hasRect && SetInt(result, texture->Top);
    case MemberBottom:
        return hasRect && SetInt(result, texture->Bottom);
    case MemberHasRect:
        return SetBool(result, flags & TAVUTexture::HasRect);
    case MemberHasAlpha:
        return SetBool(result, flags & TAVUTexture::HasAlpha);
    case MemberHasColorMask:
        return SetBool(result, flags & TAVUTexture::HasColorMask);
    }
    return false;
}

bool TAVUTextureType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                char* argv[]) {
    auto* texture = static_cast<TAVUTexture*>(object.Value.Pointer);
    if (!texture || method->ID >= MethodCount) return false;
    bool needsArgument = method->ID != MethodUnsetRect && method->ID != MethodUnsetAlpha &&
                         method->ID != MethodUnsetColorMask;
    if (needsArgument && argc < 1) return false;
    switch (method->ID) {
    case MethodCopy: {
        _RXTypeVar source{};
        if (!g_pHostScript->DataParse(argv[0], source) || !source.Value.Pointer ||
            source.Type != GetVariableType())
            return false;
        texture->SetFrom(*static_cast<TAVUTexture*>(source.Value.Pointer));
        return true;
    }
    case MethodSet: {
        unsigned key = 0;
        if (argc >= 2) ArgHex(argv[1], key);
        texture->Set(argv[0], key);
        return true;
    }
    case MethodSetRect:
        if (argc < 4) return false;
        texture->Left = ArgInt(argv[0]);
        texture->Top = ArgInt(argv[1]);
        texture->Right = ArgInt(argv[2]);
        texture->Bottom = ArgInt(argv[3]);
        texture->Flags |= TAVUTexture::HasRect;
        return true;
    case MethodSetAlpha:
        texture->Alpha = ArgFloat(argv[0]);
        texture->Flags |= TAVUTexture::HasAlpha;
        return true;
    case MethodSetColorMask:
        ArgHex(argv[0], texture->ColorMask);
        texture->Flags |= TAVUTexture::HasColorMask;
        return true;
    case MethodUnsetRect:
        texture->Flags &= ~unsigned(TAVUTexture::HasRect);
        return true;
    case MethodUnsetAlpha:
        texture->Flags &= ~unsigned(TAVUTexture::HasAlpha);
        return true;
    case MethodUnsetColorMask:
        texture->Flags &= ~unsigned(TAVUTexture::HasColorMask);
        return true;
    case MethodSetOrientation:
        texture->Orientation = uint8_t(ArgInt(argv[0]));
        return true;
    case MethodSetBorder:
        texture->Border = unsigned(ArgInt(argv[0]));
        return true;
    }
    return false;
}
