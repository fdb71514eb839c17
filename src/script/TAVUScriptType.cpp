#include "TAVUScriptType.h"

#include "Module.h"
#include "NumberHelpers.h"
#include "RXTypeVar.h"
#include "StringHelpers.h"
#include "TAVUElement.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

bool TAVUScriptType::FromText(RXObjectData&, const char*) {
    return false;
}

int TAVUScriptType::MemberFallback(RXObjectData& object, const char* name, int argc, char* argv[],
                                   _RXTypeVar& result) {
    RXTypeDefinition* parent = ParentType();
    if (!parent) return -1;
    RXObjectData copy = object;
    return parent->DispatchMember(copy, name, argc, argv, result);
}

int TAVUScriptType::MethodFallback(RXObjectData& object, const char* name, int argc, char* argv[]) {
    RXTypeDefinition* parent = ParentType();
    if (!parent) return -1;
    RXObjectData copy = object;
    return parent->DispatchMethod(copy, name, argc, argv);
}

int TAVUScriptType::ArgInt(const char* text) {
    return text ? atoi(text) : 0;
}

float TAVUScriptType::ArgFloat(const char* text) {
    return text ? NarrowToFloat(atof(text)) : 0.0f;
}

void TAVUScriptType::ArgHex(const char* text, unsigned& field) {
    if (text) sscanf(text, "%x", &field);
}

bool TAVUScriptType::ArgWord(const char* text, const char* word) {
    return StrCompareNoCase(text, word) == 0;
}

bool TAVUScriptType::ArgCalc(const char* text) {
    double value = 0.0;
    return g_pHost->Calculate(text ? text : "", &value) && value != 0.0;
}

bool TAVUScriptType::ArgToggle(const char* text) {
    return ArgWord(text, "TRUE") || ArgFloat(text) != 0.0f;
}

bool TAVUScriptType::IsNumericText(const char* text) {
    if (!text || !text[0]) return false;
    if (*text == '-') ++text;
    for (; *text; ++text)
        if (!((*text >= '0' && *text <= '9') || *text == '.')) return false;
    return true;
}

bool TAVUScriptType::SetString(_RXTypeVar& result, const char* text) {
    result.Value.UInt64 = 0;
    result.Value.Text = text;
    result.Type = g_pStringType;
    return true;
}

bool TAVUScriptType::SetInt(_RXTypeVar& result, int value) {
    result.Value.Int64 = value;
    result.Type = g_pIntType;
    return true;
}

bool TAVUScriptType::SetUInt(_RXTypeVar& result, unsigned value) {
    result.Value.UInt64 = value;
    result.Type = g_pUIntType;
    return true;
}

bool TAVUScriptType::SetBool(_RXTypeVar& result, unsigned word) {
    result.Value.UInt64 = word;
    result.Type = g_pBoolType;
    return true;
}

bool TAVUScriptType::SetFloat(_RXTypeVar& result, float value) {
    result.Value.UInt64 = 0;
    result.Value.Float = value;
    result.Type = g_pFloatType;
    return true;
}

bool TAVUScriptType::SetElement(_RXTypeVar& result, TAVUElement* element) {
    if (!element) return false;
    result.Value.Pointer = element;
    result.Type = element->GetRXType();
    return true;
}

bool TAVUScriptType::CopyText(const char* text, char* buffer, size_t size) {
    if (!buffer || size == 0) return false;
    strncpy(buffer, text ? text : "", size);
    return true;
}
