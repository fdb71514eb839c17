#include "Point3fType.h"

#include "HostText.h"

#include <string>
#include <vector>

namespace {
enum MemberID : uint32_t { X = 1, Y, Z };
enum MethodID : uint32_t { Set = 1 };

const float* PointOf(const RXObjectData& object) {
    return static_cast<const float*>(object.Value.Pointer);
}
} // namespace

Point3fType::Point3fType(ScriptEngine& engine) : HostValueType("point3f", engine) {
    AddMember(X, "X", nullptr);
    AddMember(Y, "Y", nullptr);
    AddMember(Z, "Z", nullptr);
    AddMethod(Set, "Set", nullptr);
}

// Up to three coordinates; missing ones are 0.
bool Point3fType::Store(RXObjectData& object, int argc, char* argv[]) {
    if (!IsVariable(object)) return false;
    float coordinates[3] = {0, 0, 0};
    for (int i = 0; i < argc && i < 3; ++i) {
        double value = 0;
        if (!Evaluate(argv[i], value) || !NarrowToFloat(value, coordinates[i])) return false;
    }
    float* point = static_cast<float*>(object.Value.Pointer);
    if (!point) point = new float[3];
    for (int i = 0; i < 3; ++i)
        point[i] = coordinates[i];
    object.Value.Pointer = point;
    return true;
}

bool Point3fType::ParseText(RXObjectData& object, const char* text) {
    std::vector<std::string> parts(1);
    for (const char* c = text ? text : ""; *c; ++c) {
        if (*c == ',')
            parts.emplace_back();
        else
            parts.back() += *c;
    }
    std::vector<char*> argv;
    for (std::string& part : parts)
        argv.push_back(part.data());
    return Store(object, int(argv.size()), argv.data());
}

void Point3fType::ClearVariable(RXObjectData& object, const char* subType) {
    FreeVariable(object);
}

void Point3fType::FreeVariable(RXObjectData& object) {
    if (IsVariable(object)) delete[] static_cast<float*>(object.Value.Pointer);
    object.Value.Pointer = nullptr;
}

bool Point3fType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                            _RXTypeVar& result) {
    const float* point = PointOf(object);
    if (!point || member->ID < X || member->ID > Z) return false;
    return GiveFloat(result, point[member->ID - X]);
}

bool Point3fType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    return method->ID == Set && Store(object, argc, argv);
}

bool Point3fType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    const float* point = PointOf(object);
    static const float origin[3] = {0, 0, 0};
    if (!point) point = origin;
    CopyText(buffer, size,
             FormatNumber(point[0]) + "," + FormatNumber(point[1]) + "," + FormatNumber(point[2]));
    return true;
}
