#include "IntegerType.h"

#include "HostText.h"

#include <cinttypes>
#include <cmath>
#include <cstdio>

namespace {
enum MemberID : uint32_t { Float = 1, Hex };
enum MethodID : uint32_t { Set = 1, Inc, Dec };
} // namespace

IntegerType::IntegerType(const char* name, Kind kind, ScriptEngine& engine)
    : HostValueType(name, engine), Width(kind) {
    AddMember(Float, "Float", nullptr);
    AddMember(Hex, "Hex", nullptr);
    AddMethod(Set, "Set", nullptr);
    AddMethod(Inc, "Inc", nullptr);
    AddMethod(Dec, "Dec", nullptr);
}

int64_t IntegerType::Read(const RXObjectData& object) const {
    switch (Width) {
    case Kind::Int:
        return object.Value.Int;
    case Kind::UInt:
        return object.Value.UInt;
    default:
        return object.Value.Int64;
    }
}

// Stores a value truncated towards zero and wrapped to the type's width, as a
// C conversion through 64 bits would do.
bool IntegerType::Store(RXObjectData& object, double value) {
    if (!IsVariable(object) || std::isnan(value)) return false;
    if (value >= 9.2e18 || value <= -9.2e18) return false;
    int64_t whole = static_cast<int64_t>(value);
    object.Value.Int64 = 0;
    switch (Width) {
    case Kind::Int:
        object.Value.Int = static_cast<int32_t>(static_cast<uint32_t>(whole));
        break;
    case Kind::UInt:
        object.Value.UInt = static_cast<uint32_t>(whole);
        break;
    default:
        object.Value.Int64 = whole;
    }
    return true;
}

bool IntegerType::ParseText(RXObjectData& object, const char* text) {
    double value = 0;
    return Evaluate(text, value) && Store(object, value);
}

bool IntegerType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                            _RXTypeVar& result) {
    int64_t value = Read(object);
    switch (member->ID) {
    case Float:
        return GiveFloat(result, float(value));
    case Hex: {
        char text[32];
        snprintf(text, sizeof(text), "%" PRIX64,
                 Width == Kind::Int64 ? uint64_t(value) : uint64_t(uint32_t(value)));
        return GiveText(result, text);
    }
    default:
        return false;
    }
}

bool IntegerType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    double amount = 1;
    if (argc > 0 && !Evaluate(argv[0], amount)) return false;
    switch (method->ID) {
    case Set:
        return argc > 0 && Store(object, amount);
    case Inc:
        return Store(object, double(Read(object)) + std::trunc(amount));
    case Dec:
        return Store(object, double(Read(object)) - std::trunc(amount));
    default:
        return false;
    }
}

bool IntegerType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    char text[32];
    snprintf(text, sizeof(text), "%" PRId64, Read(object));
    CopyText(buffer, size, text);
    return true;
}
