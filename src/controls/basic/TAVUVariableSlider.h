// "variableslider": a slider bound to a script variable in both directions.
// Each frame, unless the handle is held, the slider takes the variable's
// value; each value it then has is written back to the variable. "Range"
// steps stand for "VariableRange" of the variable, counted from "Offset".
//
// Nothing is written before the variable was first read; from then on the
// write happens at every frame, also when the handle did not move.
#pragma once

#include "TAVUDataSequence.h"
#include "TAVUSlider.h"

class TAVU_API TAVUVariableSlider : public TAVUSlider {
public:
    TAVUVariableSlider(const char* type, TAVUElement* parent, const char* name);

    ~TAVUVariableSlider() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    void SetValue(unsigned value) override;

    TAVUDataSequence Sequence; // "${Data}", the read side
    char* Data = nullptr;      // the variable's name
    float Offset = 0.0f;
    float VariableRange = 0.0f;
    bool Primed = false; // the variable has been read once
};
