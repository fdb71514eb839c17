// "gaugefiller": the bar of a gauge. It exists only as the child a gauge
// makes from its "Filler" key: loaded on its own from a file it fails.
//
// The fill draws a crop of its texture over the part of the gauge that the
// value covers, in one piece or in "Repeat" equal segments. The crop acts on
// the texture's horizontal edge even for a vertical gauge, and the segmented
// fill draws its last rectangle a second time; both are how gauges have
// always looked and stay.
#pragma once

#include "TAVUElement.h"

class TAVUGauge;

class TAVU_API TAVUGaugeFiller : public TAVUElement {
public:
    // The parent, when it is a gauge, gives its orientation, range and value.
    TAVUGaugeFiller(const char* type, TAVUElement* parent, const char* name);

    ~TAVUGaugeFiller() override;
    // Always false: a filler is read by its gauge, through LoadFiller.
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void RecalculateSize(bool recurse) override;
    void Render() override;
    virtual void SetValue(float value);

    // Reads the filler from its gauge's "Filler" node. Plain pixel positions
    // are counted from inside the gauge's border.
    bool LoadFiller(XMLNode* node);

    TAVUTexture* Texture = nullptr;
    float Range = 0.0f;
    float Value = 0.0f;
    bool Vertical = false;
    unsigned Repeat = 1;
    TAVUGauge* Gauge = nullptr; // the parent, when it is a gauge

    // The most pieces one frame draws: past this many, segments are thinner
    // than a pixel or lie beyond any screen.
    enum : unsigned { MaxDrawnSegments = 16384 };

private:
    void DrawFill();
    void DrawSegments(tagRECT& rect, float fill);
};
