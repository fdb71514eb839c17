// The host's top-level objects: Math (Calc[expression]), Display (Width,
// Height) and Script (the running script's Name). Each is a small type whose
// members have handlers of their own, so no class per type is needed.
#pragma once

#include "RXTypeDefinition.h"

#include <cstdint>
#include <memory>

class ScriptEngine;

class HostObjects {
public:
    HostObjects(ScriptEngine& engine, const uint64_t& width, const uint64_t& height);
    ~HostObjects();
    HostObjects(const HostObjects&) = delete;
    HostObjects& operator=(const HostObjects&) = delete;

private:
    static bool Calc(RXTypeDefinition* type, RXObjectData& object, int argc, char* argv[],
                     _RXTypeVar& result);
    static bool Width(RXTypeDefinition* type, RXObjectData& object, int argc, char* argv[],
                      _RXTypeVar& result);
    static bool Height(RXTypeDefinition* type, RXObjectData& object, int argc, char* argv[],
                       _RXTypeVar& result);
    static bool Name(RXTypeDefinition* type, RXObjectData& object, int argc, char* argv[],
                     _RXTypeVar& result);
    static HostObjects& Of(RXObjectData& object) {
        return *static_cast<HostObjects*>(object.Value.Pointer);
    }

    ScriptEngine& Engine;
    const uint64_t& DisplayWidth;
    const uint64_t& DisplayHeight;
    std::unique_ptr<RXTypeDefinition> MathType, DisplayType, ScriptType;
};
