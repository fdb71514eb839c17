// "variablegauge": a gauge that follows a script value. "Data" is a whole
// data sequence as written in the file ("${Health}"), resolved at every
// frame; the number it gives, less "Offset", becomes the gauge's value.
//
// Its factory hands the filler, not the gauge, to whoever loads it from a
// file: the element's "Children" then load into the filler (so gauges nested
// there wrap the same number), and the filler's size is resolved at once.
#pragma once

#include "CUIManager.h"
#include "TAVUDataSequence.h"
#include "TAVUElementFactory.h"
#include "TAVUGauge.h"

class TAVU_API TAVUVariableGauge : public TAVUGauge {
public:
    TAVUVariableGauge(const char* type, TAVUElement* parent, const char* name);

    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;

    TAVUDataSequence Data;
    float Offset = 0.0f;

private:
    // False when a script that the sequence ran deleted this gauge.
    bool FollowData();
};

class TAVU_API TAVUVariableGaugeFactory : public TAVUElementFactory {
public:
    explicit TAVUVariableGaugeFactory(const char* name, unsigned version = CUIManager::Version);

    TAVUElement* CreateUIElement(TAVUElement* parent, const char* name) override;
    // Gives the gauge's filler when it has one. A gauge that fails to read is
    // deleted directly, without its parent's DeleteChild.
    TAVUElement* CreateUIElement(TAVUElement* parent, const char* name, XMLNode* node,
                                 const char* templateName) override;
};
