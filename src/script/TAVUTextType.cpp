#include "TAVUTextType.h"

#include "TAVUScriptTypes.h"
#include "TAVUText.h"

namespace {
enum Member : uint32_t { MemberText, MemberFont, MemberNumLines, MemberWrap, MemberCount };

enum Method : uint32_t {
    MethodSetText,
    MethodSetHorizontalAlignment,
    MethodSetVerticalAlignment,
    MethodSetWrap,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {"Text", "Font", "NumLines", "Wrap"};
const char* const kMethodNames[MethodCount] = {"SetText", "SetHorizontalAlignment",
                                               "SetVerticalAlignment", "SetWrap"};

eTextAlign HorizontalFromWord(const char* word) {
    if (TAVUScriptType::ArgWord(word, "center")) return TAVU_ALIGN_CENTER;
    if (TAVUScriptType::ArgWord(word, "right")) return TAVU_ALIGN_RIGHT;
    return TAVU_ALIGN_LEFT;
}

eTextAlign VerticalFromWord(const char* word) {
    if (TAVUScriptType::ArgWord(word, "center")) return TAVU_ALIGN_VCENTER;
    if (TAVUScriptType::ArgWord(word, "bottom")) return TAVU_ALIGN_BOTTOM;
    return TAVU_ALIGN_TOP;
}
} // namespace

TAVUTextType::TAVUTextType() : TAVUControlType("tavutext", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUTextType::Make() {
    return new TAVUTextType();
}

bool TAVUTextType::GetMember(RXObjectData& object, _RXTypeMember* member, int, char*[],
                             _RXTypeVar& result) {
    auto* text = static_cast<TAVUText*>(object.Value.Pointer);
    if (!text) return false;
    switch (member->ID) {
    case MemberText:
        return SetString(result, text->Text); // a text never set is still an answer
    case MemberFont:
        return SetFont(result, text->Font);
    case MemberNumLines:
        return SetUInt(result, unsigned(text->LineCount));
    case MemberWrap:
        return SetBool(result, text->Wrap);
    }
    return false;
}

bool TAVUTextType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    auto* text = static_cast<TAVUText*>(object.Value.Pointer);
    if (!text) return false;
    const char* first = argc >= 1 ? argv[0] : nullptr;
    switch (method->ID) {
    case MethodSetText:
        text->SetText(first ? first : "");
        return true;
    case MethodSetHorizontalAlignment:
        text->SetHorizontalAlignment(HorizontalFromWord(first));
        return true;
    case MethodSetVerticalAlignment:
        // Scripts have always reached the horizontal field through this
        // method; interfaces depend on it, so it stays.
        if (!first) return false;
        text->SetHorizontalAlignment(VerticalFromWord(first));
        return true;
    case MethodSetWrap:
        if (!first) return false;
        text->SetWrap(ArgCalc(first));
        return true;
    }
    return false;
}
