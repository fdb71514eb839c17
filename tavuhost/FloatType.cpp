#include "FloatType.h"

#include "HostText.h"

#include <cmath>

namespace {
enum MemberID : uint32_t { Int = 1, Round, Ceil, Floor };
enum MethodID : uint32_t { Set = 1, Inc, Dec };

int WholeOf(double value) {
    if (std::isnan(value) || value > 2147483647.0 || value < -2147483648.0) return 0;
    return int(value);
}
} // namespace

FloatType::FloatType(ScriptEngine& engine) : HostValueType("float", engine) {
    AddMember(Int, "Int", nullptr);
    AddMember(Round, "Round", nullptr);
    AddMember(Ceil, "Ceil", nullptr);
    AddMember(Floor, "Floor", nullptr);
    AddMethod(Set, "Set", nullptr);
    AddMethod(Inc, "Inc", nullptr);
    AddMethod(Dec, "Dec", nullptr);
}

bool FloatType::Store(RXObjectData& object, double value) {
    float narrowed = 0;
    if (!IsVariable(object) || !NarrowToFloat(value, narrowed)) return false;
    object.Value.Int64 = 0;
    object.Value.Float = narrowed;
    return true;
}

bool FloatType::ParseText(RXObjectData& object, const char* text) {
    double value = 0;
    return Evaluate(text, value) && Store(object, value);
}

bool FloatType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                          _RXTypeVar& result) {
    double value = object.Value.Float;
    switch (member->ID) {
    case Int:
        return GiveInt(result, WholeOf(value));
    case Round:
        return GiveInt(result, WholeOf(std::round(value)));
    case Ceil:
        return GiveInt(result, WholeOf(std::ceil(value)));
    case Floor:
        return GiveInt(result, WholeOf(std::floor(value)));
    default:
        return false;
    }
}

bool FloatType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    double amount = 1;
    if (argc > 0 && !Evaluate(argv[0], amount)) return false;
    switch (method->ID) {
    case Set:
        return argc > 0 && Store(object, amount);
    case Inc:
        return Store(object, object.Value.Float + amount);
    case Dec:
        return Store(object, object.Value.Float - amount);
    default:
        return false;
    }
}

bool FloatType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    CopyText(buffer, size, FormatNumber(object.Value.Float));
    return true;
}
