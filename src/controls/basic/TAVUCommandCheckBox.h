// "commandcheckbox": a check box that runs a line of script when it is
// clicked ("Command" on ticking, "CommandChecked" on unticking when it has
// one) and can follow a "Data" expression, evaluated at every frame.
#pragma once

#include "TAVUCheckBox.h"

class TAVU_API TAVUCommandCheckBox : public TAVUCheckBox {
public:
    TAVUCommandCheckBox(const char* type, TAVUElement* parent, const char* name);

    ~TAVUCommandCheckBox() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;

    TAVUPreParse Data;
    char* Command = nullptr;
    char* CommandChecked = nullptr;
    char* Console = nullptr;
};
