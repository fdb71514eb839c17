#include "TAVUWindowType.h"

#include "StringHelpers.h"
#include "TAVUScriptTypes.h"
#include "TAVUWindow.h"

namespace {
enum Member : uint32_t {
    MemberTitle,
    MemberMinimized,
    MemberClickFocus,
    MemberIsClosable,
    MemberIsMinimizable,
    MemberIsWidthResizable,
    MemberIsHeightResizable,
    MemberIsResizable,
    MemberCount
};

enum Method : uint32_t {
    MethodSetTitle,
    MethodMinimize,
    MethodUnminimize,
    MethodToggleMinimize,
    MethodSetClickFocus,
    MethodReset,
    MethodSetWidth,
    MethodSetHeight,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {
    "Title",         "Minimized",        "ClickFocus",        "IsClosable",
    "IsMinimizable", "IsWidthResizable", "IsHeightResizable", "IsResizable"};
const char* const kMethodNames[MethodCount] = {"SetTitle",       "Minimize",      "Unminimize",
                                               "ToggleMinimize", "SetClickFocus", "Reset",
                                               "SetWidth",       "SetHeight"};

const char* OptionalText(int argc, char* argv[]) {
    return argc > 0 ? argv[0] : nullptr;
}
} // namespace

TAVUWindowType::TAVUWindowType() : TAVUControlType("tavuwindow", &pTAVUFrameType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUWindowType::Make() {
    return new TAVUWindowType();
}

bool TAVUWindowType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                               _RXTypeVar& result) {
    auto* window = static_cast<TAVUWindow*>(object.Value.Pointer);
    if (!window) return false;
    switch (member->ID) {
    case MemberTitle:
        return window->Title && SetString(result, window->Title);
    case MemberMinimized:
        return SetInt(result, window->Minimized ? 1 : 0);
    case MemberClickFocus:
        return window->ClickFocus && SetString(result, window->ClickFocus);
    // "IsResizable" shares the close button's case; scripts rely on it.
    case MemberIsClosable:
    case MemberIsResizable:
        return SetInt(result, int(window->Flags & TAVUWindow::FlagCloseButton));
    case MemberIsMinimizable:
        return SetInt(result, int(window->Flags & TAVUWindow::FlagMinimizeButton));
    case MemberIsWidthResizable:
        return SetInt(result, int(window->Flags & TAVUWindow::FlagWidthResizable));
    case MemberIsHeightResizable:
        return SetInt(result, int(window->Flags & TAVUWindow::FlagHeightResizable));
    }
    return false;
}

bool TAVUWindowType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc,
                               char* argv[]) {
    auto* window = static_cast<TAVUWindow*>(object.Value.Pointer);
    if (!window) return false;
    switch (method->ID) {
    case MethodSetTitle:
        window->SetTitle(OptionalText(argc, argv));
        return true;
    case MethodMinimize:
        window->Minimize(true);
        return true;
    case MethodUnminimize:
        window->Minimize(false);
        return true;
    case MethodToggleMinimize:
        window->Minimize(!window->Minimized);
        return true;
    case MethodSetClickFocus: {
        const char* text = OptionalText(argc, argv);
        StrFree(window->ClickFocus);
        window->ClickFocus = text ? StrDuplicate(text) : nullptr;
        return true;
    }
    case MethodReset:
        window->ResetWindowPosition();
        return true;
    // The outer size; unlike the element's methods of these names.
    case MethodSetWidth:
        if (argc < 1) return false;
        window->Width = ArgInt(argv[0]);
        window->OnResize();
        return true;
    case MethodSetHeight:
        if (argc < 1) return false;
        window->Height = ArgInt(argv[0]);
        window->OnResize();
        return true;
    }
    return false;
}
