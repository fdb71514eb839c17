#include "HostObjects.h"

#include "HostText.h"
#include "ScriptEngine.h"

#include <cmath>

namespace {

template <typename Handler> void* HandlerAddress(Handler handler) {
    return reinterpret_cast<void*>(handler);
}

} // namespace

HostObjects::HostObjects(ScriptEngine& engine, const uint64_t& width, const uint64_t& height)
    : Engine(engine), DisplayWidth(width), DisplayHeight(height),
      MathType(new RXTypeDefinition("math")), DisplayType(new RXTypeDefinition("display")),
      ScriptType(new RXTypeDefinition("script")) {
    MathType->AddMember("Calc", HandlerAddress(&HostObjects::Calc));
    DisplayType->AddMember("Width", HandlerAddress(&HostObjects::Width));
    DisplayType->AddMember("Height", HandlerAddress(&HostObjects::Height));
    ScriptType->AddMember("Name", HandlerAddress(&HostObjects::Name));
    struct Entry {
        const char* Name;
        RXTypeDefinition* Type;
    } objects[] = {
        {"Math", MathType.get()}, {"Display", DisplayType.get()}, {"Script", ScriptType.get()}};
    for (const Entry& entry : objects) {
        Engine.AddType(entry.Type);
        RXTypeDefinition* type = entry.Type;
        bool needsScript = type == ScriptType.get();
        Engine.AddTopLevelObject(entry.Name,
                                 [this, type, needsScript](int, char**, _RXTypeVar& result) {
                                     if (needsScript && !Engine.CurrentInstance()) return false;
                                     result.Type = type;
                                     result.Value.Pointer = this;
                                     return true;
                                 });
    }
}

HostObjects::~HostObjects() {
    for (const char* name : {"Math", "Display", "Script"})
        Engine.RemoveTopLevelObject(name);
    for (RXTypeDefinition* type : {MathType.get(), DisplayType.get(), ScriptType.get()})
        Engine.RemoveType(type);
}

// Whole results are int64, so that large whole numbers keep every digit;
// others are float.
bool HostObjects::Calc(RXTypeDefinition*, RXObjectData& object, int argc, char* argv[],
                       _RXTypeVar& result) {
    double value = 0;
    if (argc < 1 || !Of(object).Engine.Calculate(argv[0], value)) return false;
    if (value == std::floor(value) && std::fabs(value) < 9.2e18) {
        result.Type = Of(object).Engine.FindType("int64");
        result.Value.Int64 = static_cast<int64_t>(value);
    } else {
        float narrowed = 0;
        if (!NarrowToFloat(value, narrowed)) return false;
        result.Type = Of(object).Engine.FindType("float");
        result.Value.UInt64 = 0;
        result.Value.Float = narrowed;
    }
    return result.Type != nullptr;
}

bool HostObjects::Width(RXTypeDefinition*, RXObjectData& object, int, char**, _RXTypeVar& result) {
    result.Type = Of(object).Engine.FindType("int");
    result.Value.UInt64 = 0;
    result.Value.Int = int(Of(object).DisplayWidth);
    return result.Type != nullptr;
}

bool HostObjects::Height(RXTypeDefinition*, RXObjectData& object, int, char**, _RXTypeVar& result) {
    result.Type = Of(object).Engine.FindType("int");
    result.Value.UInt64 = 0;
    result.Value.Int = int(Of(object).DisplayHeight);
    return result.Type != nullptr;
}

bool HostObjects::Name(RXTypeDefinition*, RXObjectData& object, int, char**, _RXTypeVar& result) {
    const ScriptInstance* script = Of(object).Engine.CurrentInstance();
    if (!script) return false;
    result.Type = Of(object).Engine.FindType("string");
    result.Value.Text = script->GetName().c_str();
    return result.Type != nullptr;
}
