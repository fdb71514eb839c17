#include "TavukitType.h"

#include "CUIManager.h"
#include "TAVUSkin.h"

#include <cstdio>

namespace {
// Member and Method prefixes keep these clear of names that Windows' headers own
// (SetFocus, SetRect).
enum Member : uint32_t {
    MemberVersion,
    MemberAPIVersion,
    MemberCurrentSkin,
    MemberMouseOverElement,
    MemberFocusedElement,
    MemberIsShiftDown,
    MemberIsAltDown,
    MemberIsCtrlDown,
    MemberCount
};
} // namespace

TavukitType::TavukitType() : TAVUScriptType("tavukit") {
    AddMember(MemberVersion, "Version", nullptr);
    AddMember(MemberAPIVersion, "APIVersion", nullptr);
    AddMember(MemberCurrentSkin, "CurrentSkin", nullptr);
    AddMember(MemberMouseOverElement, "MouseOverElement", nullptr);
    AddMember(MemberFocusedElement, "FocusedElement", nullptr);
    AddMember(MemberIsShiftDown, "IsShiftDown", nullptr);
    AddMember(MemberIsAltDown, "IsAltDown", nullptr);
    AddMember(MemberIsCtrlDown, "IsCtrlDown", nullptr);
}

RXTypeDefinition* TavukitType::Make() {
    return new TavukitType();
}

bool TavukitType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                            _RXTypeVar& result) {
    if (!object.Value.Pointer || member->ID >= MemberCount) return false;
    switch (member->ID) {
    case MemberVersion:
        return SetString(result, "0.73");
    case MemberAPIVersion: {
        static char version[16];
        snprintf(version, sizeof(version), "%X", CUIManager::Version);
        return SetString(result, version);
    }
    case MemberCurrentSkin:
        return g_UIManager.CurrentSkin && SetString(result, g_UIManager.CurrentSkin->Name);
    case MemberMouseOverElement:
        return SetElement(result, g_UIManager.GetMouseOverElement());
    case MemberFocusedElement:
        return SetElement(result, g_UIManager.GetFocusElement());
    case MemberIsShiftDown:
        return SetBool(result, g_UIManager.Shift);
    case MemberIsAltDown:
        return SetBool(result, g_UIManager.Alt);
    case MemberIsCtrlDown:
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
