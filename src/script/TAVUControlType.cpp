#include "TAVUControlType.h"

#include "TAVUElement.h"
#include "TAVUPreParse.h"
#include "TAVUScriptTypes.h"

TAVUControlType::TAVUControlType(const char* name, RXTypeDefinition** parent)
    : TAVUScriptType(name), Parent(parent) {}

bool TAVUControlType::ToTextSized(RXObjectData& object, char* buffer, size_t size) {
    auto* element = static_cast<TAVUElement*>(object.Value.Pointer);
    return element && CopyText(element->Name, buffer, size);
}

void TAVUControlType::AddMembers(const char* const* names, uint32_t count) {
    for (uint32_t id = 0; id < count; ++id)
        AddMember(id, names[id], nullptr);
}

void TAVUControlType::AddMethods(const char* const* names, uint32_t count) {
    for (uint32_t id = 0; id < count; ++id)
        AddMethod(id, names[id], nullptr);
}

bool TAVUControlType::SetTexture(_RXTypeVar& result, TAVUTexture* texture) {
    if (!texture) return false;
    result.Value.Pointer = texture;
    result.Type = pTAVUTextureType;
    return true;
}

bool TAVUControlType::SetFont(_RXTypeVar& result, TAVUFont* font) {
    result.Value.Pointer = font;
    result.Type = pTAVUFontType;
    return true;
}

bool TAVUControlType::SetText(_RXTypeVar& result, const TAVUPreParse& text) {
    return text.Text && SetString(result, text.Text);
}

bool TAVUControlType::ReplaceText(TAVUPreParse& text, int argc, char* argv[]) {
    text.PreParse(argc >= 1 ? argv[0] : nullptr);
    return true;
}
