// "tavulistboxitem": one row of a list box, which is no element. Its text
// form is the row's text, and a name it lacks climbs nowhere.
#pragma once

#include "TAVUScriptType.h"

class ListBoxItem;

class TAVU_API TAVUListBoxItemType : public TAVUScriptType {
public:
    TAVUListBoxItemType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    bool ToTextSized(RXObjectData& object, char* buffer, size_t size) override;

    // An item as a member's result; false for none.
    static bool SetItem(_RXTypeVar& result, ListBoxItem* item);
    static RXTypeDefinition* Make();
};
