#include "TAVUTabType.h"

#include "CTAVUTab.h"
#include "TAVUFrame.h"
#include "TAVUScriptTypes.h"
#include "TAVUTabControl.h"

namespace {
enum Member : uint32_t { MemberName, MemberID, MemberOrder, MemberCount };

enum Method : uint32_t { MethodSelect, MethodRemove, MethodMove, MethodRename, MethodCount };

const char* const kMemberNames[MemberCount] = {"Name", "ID", "Order"};
const char* const kMethodNames[MethodCount] = {"Select", "Remove", "Move", "Rename"};

CTAVUTab* TabOf(RXObjectData& object) {
    return static_cast<CTAVUTab*>(object.Value.Pointer);
}

// The same request made of the tab's page; no tab, no page.
RXObjectData PageOf(RXObjectData& object) {
    RXObjectData page = object;
    CTAVUTab* tab = TabOf(object);
    page.Value.Pointer = tab ? tab->Frame : nullptr;
    return page;
}
} // namespace

TAVUTabType::TAVUTabType() : TAVUControlType("tavutab", &pTAVUFrameType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUTabType::Make() {
    return new TAVUTabType();
}

bool TAVUTabType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                            _RXTypeVar& result) {
    CTAVUTab* tab = TabOf(object);
    if (!tab) return false;
    switch (member->ID) {
    case MemberName:
        return SetString(result, tab->Name);
    case MemberID:
        return SetInt(result, int(tab->ID));
    case MemberOrder:
        return SetInt(result, int(tab->Order));
    }
    return false;
}

// "Remove" answers false although it acted, and frees the tab: the script's
// value must not be used after it.
bool TAVUTabType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    CTAVUTab* tab = TabOf(object);
    if (!tab) return false;
    switch (method->ID) {
    case MethodSelect:
        tab->Owner->SelectTab(tab->ID);
        return true;
    case MethodRemove:
        tab->Owner->RemoveTab(tab->ID);
        return false;
    case MethodMove:
        if (argc < 1) return false;
        tab->Owner->MoveTab(tab, unsigned(ArgInt(argv[0])) - 1u);
        return true;
    case MethodRename:
        if (argc < 1) return false;
        tab->Rename(argv[0]);
        return true;
    }
    return false;
}

bool TAVUTabType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    CTAVUTab* tab = TabOf(object);
    return tab && CopyText(tab->Name, buffer, size);
}

int TAVUTabType::IndexFallback(RXObjectData& object, int argc, char* argv[], _RXTypeVar& result) {
    RXObjectData page = PageOf(object);
    return pTAVUFrameType->GetIndex(page, argc, argv, result);
}

int TAVUTabType::MemberFallback(RXObjectData& object, const char* name, int argc, char* argv[],
                                _RXTypeVar& result) {
    RXObjectData page = PageOf(object);
    return pTAVUFrameType->DispatchMember(page, name, argc, argv, result);
}

int TAVUTabType::MethodFallback(RXObjectData& object, const char* name, int argc, char* argv[]) {
    RXObjectData page = PageOf(object);
    return pTAVUFrameType->DispatchMethod(page, name, argc, argv);
}
