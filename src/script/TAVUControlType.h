// What the script types of the controls share: the object is an element,
// its text form is the element's name, and a name the type lacks climbs to
// the type's parent (tavuelement, or tavuframe for framed controls).
#pragma once

#include "TAVUScriptType.h"

class TAVUFont;
class TAVUPreParse;
class TAVUTexture;

class TAVU_API TAVUControlType : public TAVUScriptType {
public:
    // parent is the global that holds the parent type once it exists.
    TAVUControlType(const char* name, RXTypeDefinition** parent);

    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;
    RXTypeDefinition* ParentType() override { return *Parent; }

    // A texture of the control; false when there is none.
    static bool SetTexture(_RXTypeVar& result, TAVUTexture* texture);

protected:
    // Registers the names with IDs counting from 0, in order.
    void AddMembers(const char* const* names, uint32_t count);
    void AddMethods(const char* const* names, uint32_t count);

    // A font of the control, also when there is none: scripts get an empty one.
    static bool SetFont(_RXTypeVar& result, TAVUFont* font);
    // The source text of a caption; false when there is none.
    static bool SetText(_RXTypeVar& result, const TAVUPreParse& text);
    // "SetText": the first argument becomes the caption; none clears it.
    static bool ReplaceText(TAVUPreParse& text, int argc, char* argv[]);

private:
    RXTypeDefinition** Parent;
};
