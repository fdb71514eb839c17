#include "TAVUVariableGauge.h"

#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUGaugeFiller.h"

#include <cstdlib>

namespace {
const char kTypeWord[] = "variablegauge";
} // namespace

TAVUVariableGaugeFactory g_TAVUVariableGaugeFactory(kTypeWord);

TAVUVariableGauge::TAVUVariableGauge(const char* type, TAVUElement* parent, const char* name)
    : TAVUGauge(type, parent, name) {}

// Unlike the variable slider's bare name, "Data" is the whole sequence text.
bool TAVUVariableGauge::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUGauge::FromXML(node, templateNode)) return false;
    Data.PreParse(TAVUControlHelpers::ReadString(node, templateNode, "Data"));
    Offset = TAVUControlHelpers::ReadFloat(node, templateNode, "Offset", 0.0f);
    return true;
}

bool TAVUVariableGauge::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUGauge::IsTypeOf(type);
}

void TAVUVariableGauge::Render() {
    if (Data.Handle != 0 && !FollowData()) return;
    TAVUGauge::Render();
}

// A text that is no number reads as 0, as atof reads it; an unchanged
// number leaves the gauge alone.
bool TAVUVariableGauge::FollowData() {
    char text[TAVUControlHelpers::TextBufferSize];
    text[0] = 0;
    TAVUElementWatch watch(this);
    bool resolved = Data.RetrieveProcessedText(text, sizeof(text));
    if (!watch.Alive()) return false;
    if (!resolved) return true;
    text[sizeof(text) - 1] = 0;
    float value = NarrowToFloat(atof(text)) - Offset;
    if (value != Value) SetValue(value);
    return true;
}

TAVUVariableGaugeFactory::TAVUVariableGaugeFactory(const char* name, unsigned version) {
    Register(name, version);
}

TAVUElement* TAVUVariableGaugeFactory::CreateUIElement(TAVUElement* parent, const char* name) {
    auto* gauge = new TAVUVariableGauge(TypeName, parent, name);
    Elements[gauge] = 1;
    return gauge;
}

TAVUElement* TAVUVariableGaugeFactory::CreateUIElement(TAVUElement* parent, const char* name,
                                                       XMLNode* node, const char* templateName) {
    TAVUElement* gauge = new TAVUVariableGauge(TypeName, parent, name);
    if (!gauge->FromXML(node, g_UIManager.FindTemplate(templateName))) {
        delete gauge; // unlinks itself from the parent on the way
        return nullptr;
    }
    Elements[gauge] = 1;
    TAVUGaugeFiller* filler = static_cast<TAVUVariableGauge*>(gauge)->Filler;
    return filler ? static_cast<TAVUElement*>(filler) : gauge;
}
