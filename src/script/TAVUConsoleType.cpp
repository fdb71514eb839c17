#include "TAVUConsoleType.h"

#include "TAVUConsole.h"
#include "TAVUFixedFont.h"
#include "TAVUScriptTypes.h"

namespace {
enum Member : uint32_t {
    MemberFont,
    MemberBorder,
    MemberBorderColor,
    MemberScrollbackColor,
    MemberBackgroundColor,
    MemberSelectionColor,
    MemberTexture,
    MemberScrollbackTexture,
    MemberCount
};

enum Method : uint32_t {
    MethodSetBorderColor,
    MethodSetScrollbackColor,
    MethodSetBackgroundColor,
    MethodSetSelectionColor,
    MethodEcho,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {
    "Font",           "Border",  "BorderColor",      "ScrollbackColor", "BackgroundColor",
    "SelectionColor", "Texture", "ScrollbackTexture"};
const char* const kMethodNames[MethodCount] = {"SetBorderColor", "SetScrollbackColor",
                                               "SetBackgroundColor", "SetSelectionColor", "Echo"};
} // namespace

TAVUConsoleType::TAVUConsoleType() : TAVUControlType("tavuconsole", &pTAVUFrameType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUConsoleType::Make() {
    return new TAVUConsoleType();
}

bool TAVUConsoleType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                                _RXTypeVar& result) {
    auto* console = static_cast<TAVUConsole*>(object.Value.Pointer);
    if (!console) return false;
    switch (member->ID) {
    case MemberFont:
        return SetFont(result, console->Font);
    case MemberBorder:
        return SetInt(result, int(console->Border));
    case MemberBorderColor:
        return SetInt(result, int(console->BorderColor));
    case MemberScrollbackColor:
        return SetInt(result, int(console->ScrollbackColor));
    case MemberBackgroundColor:
        return SetInt(result, int(console->BackgroundColor));
    case MemberSelectionColor:
        return SetInt(result, int(console->SelectionColor));
    case MemberTexture:
        return SetTexture(result, console->Texture);
    case MemberScrollbackTexture:
        return SetTexture(result, console->ScrollbackTexture);
    }
    return false;
}

bool TAVUConsoleType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                                char* argv[]) {
    auto* console = static_cast<TAVUConsole*>(object.Value.Pointer);
    if (!console || argc < 1 || method->ID >= MethodCount) return false;
    unsigned* colors[] = {&console->BorderColor, &console->ScrollbackColor,
                          &console->BackgroundColor, &console->SelectionColor};
    if (method->ID == MethodEcho)
        console->Print(argv[0]);
    else
        ArgHex(argv[0], *colors[method->ID]);
    return true;
}
