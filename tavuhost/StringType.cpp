#include "StringType.h"

#include "HostText.h"
#include "StringHelpers.h"

#include <cstdlib>
#include <cstring>

namespace {

enum MemberID : uint32_t {
    Length = 1,
    Upper,
    Lower,
    Equal,
    NotEqual,
    Compare,
    Left,
    Right,
    Mid,
    Find,
    EqualCS,
    Token,
};
enum MethodID : uint32_t { Set = 1, Concat };

std::string Cased(std::string text, bool upper) {
    for (char& c : text) {
        if (upper && c >= 'a' && c <= 'z') c = char(c - 'a' + 'A');
        if (!upper && c >= 'A' && c <= 'Z') c = char(c - 'A' + 'a');
    }
    return text;
}

// A count argument, clamped to what the text has.
size_t CountArgument(const char* argument, size_t length) {
    long count = atol(argument);
    if (count < 0) return 0;
    return size_t(count) > length ? length : size_t(count);
}

// The n-th piece (from 1) of text split at a separator.
std::string TokenOf(const std::string& text, int index, const std::string& separator) {
    if (index < 1 || separator.empty()) return "";
    size_t start = 0;
    for (int piece = 1;; ++piece) {
        size_t end = text.find(separator, start);
        if (piece == index) return text.substr(start, end == std::string::npos ? end : end - start);
        if (end == std::string::npos) return "";
        start = end + separator.size();
    }
}

} // namespace

StringType::StringType(ScriptEngine& engine) : HostValueType("string", engine) {
    AddMember(Length, "Length", nullptr);
    AddMember(Upper, "Upper", nullptr);
    AddMember(Lower, "Lower", nullptr);
    AddMember(Equal, "Equal", nullptr);
    AddMember(NotEqual, "NotEqual", nullptr);
    AddMember(Compare, "Compare", nullptr);
    AddMember(Left, "Left", nullptr);
    AddMember(Right, "Right", nullptr);
    AddMember(Mid, "Mid", nullptr);
    AddMember(Find, "Find", nullptr);
    AddMember(EqualCS, "EqualCS", nullptr);
    AddMember(Token, "Token", nullptr);
    AddMethod(Set, "Set", nullptr);
    AddMethod(Concat, "Concat", nullptr);
}

bool StringType::ParseText(RXObjectData& object, const char* text) {
    return Replace(object, text ? text : "");
}

void StringType::ClearVariable(RXObjectData& object, const char* subType) {
    FreeVariable(object);
}

void StringType::FreeVariable(RXObjectData& object) {
    if (IsVariable(object)) StrFree(const_cast<char*>(object.Value.Text));
    object.Value.Text = nullptr;
}

bool StringType::Replace(RXObjectData& object, const std::string& text) {
    if (!IsVariable(object)) return false;
    char* copy = StrDuplicate(text.c_str());
    if (!copy) return false;
    StrFree(const_cast<char*>(object.Value.Text));
    object.Value.Text = copy;
    return true;
}

bool StringType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                           _RXTypeVar& result) {
    std::string text = object.Value.Text ? object.Value.Text : "";
    const char* first = argc > 0 ? argv[0] : nullptr;
    switch (member->ID) {
    case Length:
        return GiveInt(result, int(text.size()));
    case Upper:
        return GiveText(result, Cased(text, true));
    case Lower:
        return GiveText(result, Cased(text, false));
    case Equal:
        return first && GiveBool(result, SameName(text, first));
    case NotEqual:
        return first && GiveBool(result, !SameName(text, first));
    case EqualCS:
        return first && GiveBool(result, text == first);
    case Compare:
        if (!first) return false;
        return GiveInt(result, SameName(text, first) ? 0 : (NameLess()(text, first) ? -1 : 1));
    case Left:
        return first && GiveText(result, text.substr(0, CountArgument(first, text.size())));
    case Right:
        if (!first) return false;
        return GiveText(result, text.substr(text.size() - CountArgument(first, text.size())));
    case Mid: {
        if (argc < 2) return false;
        size_t start = CountArgument(first, text.size() + 1);
        if (start == 0) return false;
        return GiveText(result, text.substr(start - 1, CountArgument(argv[1], text.size())));
    }
    case Find: {
        if (!first || !*first) return false;
        size_t at = Cased(text, false).find(Cased(first, false));
        return GiveInt(result, at == std::string::npos ? 0 : int(at) + 1);
    }
    case Token:
        if (argc < 2) return false;
        return GiveText(result, TokenOf(text, atoi(first), argv[1]));
    default:
        return false;
    }
}

bool StringType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    switch (method->ID) {
    case Set:
        return Replace(object, JoinArguments(argc, argv));
    case Concat:
        return Replace(object, std::string(object.Value.Text ? object.Value.Text : "") +
                                   JoinArguments(argc, argv));
    default:
        return false;
    }
}

bool StringType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    CopyText(buffer, size, object.Value.Text ? object.Value.Text : "");
    return true;
}
