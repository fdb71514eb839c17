// "tavucombobox": the script type of TAVUComboBox. A name of neither its own
// tables nor tavuelement's goes to the combo box's list, so that a combo box
// answers to all of a list box's vocabulary.
#pragma once

#include "TAVUControlType.h"

class TAVU_API TAVUComboBoxType : public TAVUControlType {
public:
    TAVUComboBoxType();
    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override;
    bool GetMethod(RXObjectData& object, _RXTypeMember* method, int argc, char* argv[]) override;
    int MemberFallback(RXObjectData& object, const char* name, int argc, char* argv[],
                       _RXTypeVar& result) override;
    int MethodFallback(RXObjectData& object, const char* name, int argc, char* argv[]) override;

    static RXTypeDefinition* Make();
};
