#include "HostValueType.h"

#include "ScriptEngine.h"

// ToText has no size: the host's own buffers always hold a whole data sequence.
bool HostValueType::ToText(RXObjectData& object, char* buffer) {
    return ToTextSized(object, buffer, ScriptEngine::TextBufferSize);
}

bool HostValueType::GiveText(_RXTypeVar& result, const std::string& text) {
    result.Type = Engine.FindType("string");
    result.Value.Text = Engine.TempText(text);
    return result.Type != nullptr;
}

bool HostValueType::GiveInt(_RXTypeVar& result, int value) {
    result.Type = Engine.FindType("int");
    result.Value.Int64 = 0;
    result.Value.Int = value;
    return result.Type != nullptr;
}

bool HostValueType::GiveFloat(_RXTypeVar& result, float value) {
    result.Type = Engine.FindType("float");
    result.Value.Int64 = 0;
    result.Value.Float = value;
    return result.Type != nullptr;
}

bool HostValueType::GiveBool(_RXTypeVar& result, bool value) {
    result.Type = Engine.FindType("bool");
    result.Value.Int64 = 0;
    result.Value.Bool = value;
    return result.Type != nullptr;
}

bool HostValueType::Evaluate(const char* text, double& value) {
    return Engine.Calculate(text, value);
}

std::string HostValueType::JoinArguments(int argc, char* argv[]) {
    std::string joined;
    for (int i = 0; i < argc; ++i) {
        if (i) joined += ',';
        joined += argv[i] ? argv[i] : "";
    }
    return joined;
}
