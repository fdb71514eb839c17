#include "FilePathType.h"

#include "HostText.h"

#include <cstring>

namespace {
enum MemberID : uint32_t { FileName = 1, Folder, Extension, Length };
enum MethodID : uint32_t { Set = 1 };

std::string TextOf(const RXObjectData& object) {
    return Utf16ToUtf8(static_cast<const uint16_t*>(object.Value.Pointer));
}

// Both separators count: scripts move between Windows and other systems.
size_t LastSeparator(const std::string& path) {
    return path.find_last_of("/\\");
}
} // namespace

FilePathType::FilePathType(ScriptEngine& engine) : HostValueType("filepath", engine) {
    AddMember(FileName, "FileName", nullptr);
    AddMember(Folder, "Folder", nullptr);
    AddMember(Extension, "Extension", nullptr);
    AddMember(Length, "Length", nullptr);
    AddMethod(Set, "Set", nullptr);
}

bool FilePathType::Replace(RXObjectData& object, const std::string& text) {
    if (!IsVariable(object)) return false;
    std::u16string wide = Utf8ToUtf16(text.c_str());
    uint16_t* copy = new uint16_t[wide.size() + 1];
    memcpy(copy, wide.c_str(), (wide.size() + 1) * sizeof(uint16_t));
    FreeVariable(object);
    object.Value.Pointer = copy;
    return true;
}

bool FilePathType::ParseText(RXObjectData& object, const char* text) {
    return Replace(object, text ? text : "");
}

void FilePathType::ClearVariable(RXObjectData& object, const char* subType) {
    FreeVariable(object);
}

void FilePathType::FreeVariable(RXObjectData& object) {
    if (IsVariable(object)) delete[] static_cast<uint16_t*>(object.Value.Pointer);
    object.Value.Pointer = nullptr;
}

bool FilePathType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                             _RXTypeVar& result) {
    std::string path = TextOf(object);
    size_t separator = LastSeparator(path);
    std::string name = separator == std::string::npos ? path : path.substr(separator + 1);
    switch (member->ID) {
    case FileName:
        return GiveText(result, name);
    case Folder:
        return GiveText(result, separator == std::string::npos ? "" : path.substr(0, separator));
    case Extension: {
        size_t dot = name.rfind('.');
        return GiveText(result, dot == std::string::npos ? "" : name.substr(dot + 1));
    }
    case Length:
        return GiveInt(result, int(path.size()));
    default:
        return false;
    }
}

bool FilePathType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    return method->ID == Set && Replace(object, JoinArguments(argc, argv));
}

bool FilePathType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    CopyText(buffer, size, TextOf(object));
    return true;
}
