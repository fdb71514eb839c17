#include "TavukitType.h"

#include "CUIManager.h"
#include "TAVUSkin.h"

#include <cstdio>

namespace {
enum Member : uint32_t {
    Version,
    APIVersion,
    CurrentSkin,
    MouseOverElement,
    FocusedElement,
    IsShiftDown,
    IsAltDown,
    IsCtrlDown,
    MemberCount
};
} // namespace

TavukitType::TavukitType() : TAVUScriptType("tavukit") {
    AddMember(Version, "Version", nullptr);
    AddMember(APIVersion, "APIVersion", nullptr);
    AddMember(CurrentSkin, "CurrentSkin", nullptr);
    AddMember(MouseOverElement, "MouseOverElement", nullptr);
    AddMember(FocusedElement, "FocusedElement", nullptr);
    AddMember(IsShiftDown, "IsShiftDown", nullptr);
    AddMember(IsAltDown, "IsAltDown", nullptr);
    AddMember(IsCtrlDown, "IsCtrlDown", nullptr);
}

RXTypeDefinition* TavukitType::Make() {
    return new TavukitType();
}

bool TavukitType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                            _RXTypeVar& result) {
    if (!object.Value.Pointer || member->ID >= MemberCount) return false;
    switch (member->ID) {
    case Version:
        return SetString(result, "0.73");
    case APIVersion: {
        static char version[16];
        snprintf(version, sizeof(version), "%X", CUIManager::Version);
        return SetString(result, version);
    }
    case CurrentSkin:
        return g_UIManager.CurrentSkin && SetString(result, g_UIManager.CurrentSkin->Name);
    case MouseOverElement:
        return SetElement(result, g_UIManager.GetMouseOverElement());
    case FocusedElement:
        return SetElement(result, g_UIManager.GetFocusElement());
    case IsShiftDown:
        return SetBool(result, g_UIManager.Shift);
    case IsAltDown:
        return SetBool(result, g_UIManager.Alt);
    case IsCtrlDown:
        return SetBool(result, g_UIManager.Control);
    }
    return false;
}

bool TavukitType::GetMethod(RXObjectData&, _RXTypeMember*, int, char*[]) {
    return false;
}

bool TavukitType::ToText(RXObjectData&, char*) {
    return false;
}

bool TavukitType::ToTextSized(RXObjectData&, char*, size_t) {
    return false;
}
