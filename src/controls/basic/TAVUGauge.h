// "gauge": a frame that shows a number between 0 and Range as a bar, drawn
// by its child filler (the "Filler" key), with an optional TopTexture laid
// over everything.
//
// A gauge clamps its value into its range, except a gauge nested inside a
// filler, which wraps it instead: such a gauge shows the fraction that is
// left over of the outer number, so 2.5 in a Range of 1 shows as 0.5.
#pragma once

#include "TAVUFrame.h"

class TAVUGaugeFiller;

class TAVU_API TAVUGauge : public TAVUFrame {
public:
    TAVUGauge(const char* type, TAVUElement* parent, const char* name);

    ~TAVUGauge() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    RXTypeDefinition* GetRXType() override;
    virtual void SetValue(float value);

    // A new range for the gauge and its filler; the value is placed in it again.
    void SetRange(float range);

    TAVUTexture* TopTexture = nullptr;
    bool Vertical = false;
    float Range = 1.0f;
    bool InFiller = false;
    TAVUGaugeFiller* Filler = nullptr; // a child: the tree owns it
    float Value = 0.0f;
};
