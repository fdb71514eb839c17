// "tavuelement": the script type of every element, and the type that the
// types of the controls fall back to. Its text form is the element's name.
#pragma once

#include "TAVUScriptType.h"

class TAVUElement;

class TAVU_API TAVUElementType : public TAVUScriptType {
public:
    TAVUElementType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

    static RXTypeDefinition* Make();

    // Loads one element from XML text under parent, with an optional skin in
    // force: the work of the "AddChild" member and method. argv holds the type,
    // the name, the XML text and the skin name.
    static TAVUElement* AddChild(TAVUElement* parent, int argc, char* argv[]);

private:
    bool GetGeometryMember(TAVUElement* element, uint32_t id, _RXTypeVar& result);
    bool GetStateMember(TAVUElement* element, uint32_t id, _RXTypeVar& result);
    bool GetTreeMember(TAVUElement* element, uint32_t id, int argc, char* argv[],
                       _RXTypeVar& result);
    bool RunInputMethod(TAVUElement* element, uint32_t id);
    bool ApplyZOrder(TAVUElement* element, const char* word);
};
