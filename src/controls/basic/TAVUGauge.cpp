#include "TAVUGauge.h"

#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUGaugeFiller.h"
#include "TAVUScriptTypes.h"
#include "TAVUTexture.h"
#include "XMLHelper.h"

#include <cmath>

namespace {
const char kTypeWord[] = "gauge";
} // namespace

TAVUFactory<TAVUGauge> g_TAVUGaugeFactory(kTypeWord);

TAVUGauge::TAVUGauge(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name), InFiller(parent && parent->IsTypeOf("gaugefiller")) {
    Height = 16;
}

// The filler outlives this part of the gauge (children go with the element
// itself): it must not reach back into a gauge that is going.
TAVUGauge::~TAVUGauge() {
    if (Filler) Filler->Gauge = nullptr;
    TAVUTexture::Delete(TopTexture);
}

// "Range" defaults to 0, not to the constructor's 1: a gauge without one
// shows full.
bool TAVUGauge::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUFrame::FromXML(node, templateNode)) return false;
    Vertical = TAVUControlHelpers::ReadToggle(node, templateNode, "Vertical", false);
    Range = TAVUControlHelpers::ReadFloat(node, templateNode, "Range", 0.0f);
    TAVUTexture::Delete(TopTexture);
    TopTexture = TextureFromXML(node, "TopTexture", templateNode);
    TAVUTexture* textures[] = {Texture, TopTexture};
    TAVUControlHelpers::ApplyColorMask(node, templateNode, textures, 2);
    XMLNode* fillerNode = XMLHelper::GetChild(node, "Filler");
    if (!fillerNode) fillerNode = XMLHelper::GetChild(templateNode, "Filler");
    if (!fillerNode || Filler) return true;
    Filler = new TAVUGaugeFiller("gaugefiller", this, "filler");
    Filler->LoadFiller(fillerNode); // a filler that reads badly still stands
    return true;
}

bool TAVUGauge::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUFrame::IsTypeOf(type);
}

// The comparisons are written so that a value that is not a number (from
// hostile text) compares false to both and is kept as it is: the filler
// copes with it.
void TAVUGauge::SetValue(float value) {
    if (value < 0.0f)
        Value = 0.0f;
    else if (value >= Range)
        Value = InFiller ? fmodf(value, Range) : Range;
    else
        Value = value;
    if (Filler) Filler->SetValue(Value);
}

void TAVUGauge::SetRange(float range) {
    Range = range;
    if (Filler) Filler->Range = range;
    SetValue(Value);
}

// The children (the filler among them) may run "OnRender" scripts that
// delete this gauge: the top texture is drawn only over a gauge still there.
void TAVUGauge::Render() {
    TAVUElementWatch watch(this);
    TAVUFrame::Render();
    if (!watch.Alive() || !TopTexture) return;
    tagRECT rect = TAVUControlHelpers::ScreenRect(this);
    if (Border != 0)
        TexturedRectBordered(rect, TopTexture, Border);
    else
        TexturedRect(rect, TopTexture);
}

RXTypeDefinition* TAVUGauge::GetRXType() {
    return pTAVUGaugeType;
}
