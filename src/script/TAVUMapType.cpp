#include "TAVUMapType.h"

#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUMap.h"
#include "TAVUMapBlip.h"
#include "TAVUScriptTypes.h"

#include <cstring>

namespace {
enum Member : uint32_t {
    MemberBlipFactory,
    MemberBlipTemplate,
    MemberOrigin,
    MemberRotation,
    MemberMapSizeX,
    MemberMapSizeY,
    MemberRadial,
    MemberZClipping,
    MemberShowLabels,
    MemberBlips,
    MemberBlip,
    MemberNextBlip,
    MemberCount
};

enum Method : uint32_t {
    MethodAddBlip,
    MethodSetOrigin,
    MethodSetRotation,
    MethodSetMapSize,
    MethodClipZ,
    MethodUnclipZ,
    MethodToggleZClipping,
    MethodClipText,
    MethodUnclipText,
    MethodToggleTextClipping,
    MethodShowLabels,
    MethodHideLabels,
    MethodToggleLabels,
    MethodEnableRotation,
    MethodDisableRotation,
    MethodToggleRotation,
    MethodCount
};

const char* const kMemberNames[MemberCount] = {"BlipFactory", "BlipTemplate", "Origin", "Rotation",
                                               "MapSizeX",    "MapSizeY",     "Radial", "ZClipping",
                                               "xShowLabels", "Blips",        "Blip",   "NextBlip"};
const char* const kMethodNames[MethodCount] = {
    "AddBlip",       "SetOrigin",       "SetRotation",  "SetMapSize",     "ClipZ",
    "UnclipZ",       "ToggleZClipping", "ClipText",     "UnclipText",     "ToggleTextClipping",
    "ShowLabels",    "HideLabels",      "ToggleLabels", "EnableRotation", "DisableRotation",
    "ToggleRotation"};

// Degrees to the radians a map turns by, and back for reading.
const double kDegreesPerRadian = 57.295780181884766;
const float kDegreesPerRadianRead = 57.29578f;

float ArgAt(int argc, char* argv[], int index) {
    return index < argc ? TAVUScriptType::ArgFloat(argv[index]) : 0.0f;
}

bool NonEmptyArg(int argc, char* argv[], int index) {
    return index < argc && argv[index][0];
}

// The first entry from start on whose blip is alive: walks skip the empty
// slots that look-ups of missing names leave.
std::map<std::string, TAVUMapBlip*>::iterator
FirstLive(std::map<std::string, TAVUMapBlip*>::iterator start,
          std::map<std::string, TAVUMapBlip*>::iterator end) {
    while (start != end && !start->second)
        ++start;
    return start;
}

// The three methods of one display switch: on, off and toggle.
bool Switch(bool& flag, uint32_t method, uint32_t on, uint32_t toggle) {
    flag = method == toggle ? !flag : method == on;
    return true;
}

bool AddBlip(TAVUMap* map, int argc, char* argv[]) {
    if (argc < 1) return false;
    _Point3f location{ArgAt(argc, argv, 1), ArgAt(argc, argv, 2), ArgAt(argc, argv, 3)};
    unsigned size = argc > 4 ? unsigned(TAVUScriptType::ArgInt(argv[4])) : 12u;
    // A label with an empty template argument after it is dropped.
    const char* label = argc >= 6 && (argc == 6 || argv[6][0]) ? argv[5] : nullptr;
    const char* blipTemplate = NonEmptyArg(argc, argv, 6) ? argv[6] : nullptr;
    const char* type = NonEmptyArg(argc, argv, 7) ? argv[7] : nullptr;
    return map->AddBlip(argv[0], location, size, label, blipTemplate, type) != 0;
}
} // namespace

TAVUMapType::TAVUMapType() : TAVUControlType("tavumap", &pTAVUElementType) {
    AddMembers(kMemberNames, MemberCount);
    AddMethods(kMethodNames, MethodCount);
}

RXTypeDefinition* TAVUMapType::Make() {
    return new TAVUMapType();
}

bool TAVUMapType::ToTextSized(RXObjectData&, char*, size_t) {
    return false;
}

bool TAVUMapType::GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                            _RXTypeVar& result) {
    auto* map = static_cast<TAVUMap*>(object.Value.Pointer);
    if (!map) return false;
    switch (member->ID) {
    case MemberBlipFactory:
        return map->BlipFactory[0] && SetString(result, map->BlipFactory);
    case MemberBlipTemplate:
        return map->BlipTemplate && SetString(result, map->BlipTemplate);
    case MemberOrigin: // the value is left for the host, and the answer is false
        result.Value.Pointer = &map->Origin;
        return false;
    case MemberRotation:
        return map->Rotation && SetFloat(result, map->RotationAngle * kDegreesPerRadianRead);
    case MemberMapSizeX:
        return SetFloat(result, map->MapSizeX);
    case MemberMapSizeY:
        return SetFloat(result, map->MapSizeY);
    case MemberRadial:
        return SetBool(result, map->Radial);
    case MemberZClipping: // as Origin: the flag stays in the value, the answer is false
        if (map->ZClipping) result.Value.UInt64 = 1;
        return false;
    case MemberShowLabels:
        return SetBool(result, map->ShowLabels);
    case MemberBlips:
        return SetInt(result, int(map->BlipCount));
    case MemberBlip:
        if (argc >= 1) return SetElement(result, map->FindBlip(argv[0]));
        {
            auto first = FirstLive(map->BlipsByName.begin(), map->BlipsByName.end());
            return first != map->BlipsByName.end() && SetString(result, first->first.c_str());
        }
    case MemberNextBlip:
        if (argc < 1) return false;
        {
            auto named = map->BlipsByName.emplace(TAVUMap::NameKey(argv[0]), nullptr).first;
            auto next = FirstLive(++named, map->BlipsByName.end());
            return next != map->BlipsByName.end() && SetElement(result, next->second);
        }
    }
    return false;
}

bool TAVUMapType::GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) {
    auto* map = static_cast<TAVUMap*>(object.Value.Pointer);
    if (!map) return false;
    switch (method->ID) {
    case MethodAddBlip:
        return AddBlip(map, argc, argv);
    case MethodSetOrigin:
        map->Origin = _Point3f{ArgAt(argc, argv, 0), ArgAt(argc, argv, 1), ArgAt(argc, argv, 2)};
        return true;
    case MethodSetRotation:
        map->RotationAngle = NarrowToFloat(double(ArgAt(argc, argv, 0)) / kDegreesPerRadian);
        map->Rotation = true;
        return true;
    case MethodSetMapSize:
        map->MapSizeX = ArgAt(argc, argv, 0);
        map->MapSizeY = argc == 1 ? map->MapSizeX : ArgAt(argc, argv, 1);
        return true;
    case MethodClipZ:
    case MethodUnclipZ:
    case MethodToggleZClipping:
        return Switch(map->ZClipping, method->ID, MethodClipZ, MethodToggleZClipping);
    case MethodClipText:
    case MethodUnclipText:
    case MethodToggleTextClipping:
        return Switch(map->ClipText, method->ID, MethodClipText, MethodToggleTextClipping);
    case MethodShowLabels:
    case MethodHideLabels:
    case MethodToggleLabels:
        return Switch(map->ShowLabels, method->ID, MethodShowLabels, MethodToggleLabels);
    case MethodEnableRotation:
    case MethodDisableRotation:
    case MethodToggleRotation:
        return Switch(map->Rotation, method->ID, MethodEnableRotation, MethodToggleRotation);
    }
    return false;
}
