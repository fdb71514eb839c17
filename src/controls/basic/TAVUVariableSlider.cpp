#include "TAVUVariableSlider.h"

#include "Module.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "XMLHelper.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {
const char kTypeWord[] = "variableslider";
} // namespace

TAVUFactory<TAVUVariableSlider> g_TAVUVariableSliderFactory(kTypeWord);

TAVUVariableSlider::TAVUVariableSlider(const char* type, TAVUElement* parent, const char* name)
    : TAVUSlider(type, parent, name) {}

TAVUVariableSlider::~TAVUVariableSlider() {
    StrFree(Data);
}

// "Data" is the variable's bare name; the slider builds the sequence that
// reads it.
bool TAVUVariableSlider::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUSlider::FromXML(node, templateNode)) return false;
    TAVUControlHelpers::ReplaceText(Data,
                                    TAVUControlHelpers::ReadString(node, templateNode, "Data"));
    if (Data[0]) {
        char text[TAVUControlHelpers::TextBufferSize];
        snprintf(text, sizeof(text), "${%s}", Data);
        Sequence.PreParse(text);
    }
    Offset = XMLHelper::GetFloatValue(node, "Offset",
                                      XMLHelper::GetFloatValue(templateNode, "Offset", 0.0f));
    VariableRange = XMLHelper::GetFloatValue(
        node, "VariableRange", XMLHelper::GetFloatValue(templateNode, "VariableRange", 0.0f));
    return true;
}

bool TAVUVariableSlider::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUSlider::IsTypeOf(type);
}

// A held handle ignores the variable until it is let go. A text that is no
// number reads as 0; a VariableRange of 0 shows any value above Offset as
// the whole Range.
void TAVUVariableSlider::Render() {
    // Only the ends of the buffer are cleared: the whole of it, every frame,
    // cost more than the rest of the slider's drawing.
    char text[TAVUControlHelpers::TextBufferSize];
    text[0] = 0;
    bool retrieved =
        !Dragging && Sequence.Handle && Sequence.RetrieveProcessedText(text, sizeof(text));
    text[sizeof(text) - 1] = 0;
    if (retrieved) {
        Primed = true;
        float read = std::max(0.0f, float(atof(text)) - Offset);
        float share = VariableRange != 0.0f ? read / VariableRange : read > 0.0f ? 1.0f : 0.0f;
        TAVUElementWatch watch(this);
        SetValue(TruncateToUnsigned(share * float(Range)));
        if (!watch.Alive()) return;
    }
    TAVUSlider::Render();
}

// A Range of 0 writes Offset back.
void TAVUVariableSlider::SetValue(unsigned value) {
    TAVUElementWatch watch(this);
    TAVUSlider::SetValue(value);
    if (!watch.Alive() || !Data || !Data[0] || !Primed) return;
    float fraction = Range ? float(Value) / float(Range) : 0.0f;
    char text[TAVUControlHelpers::TextBufferSize];
    snprintf(text, sizeof(text), "${%s:Set[%f]}", Data, double(fraction * VariableRange + Offset));
    g_pHost->ParseDataSequences(text, text, sizeof(text));
}
