// "slider": an integer from 0 to Range shown as a handle five pixels long on
// a track. The mouse drags the handle (also outside the slider, as long as
// the button is held) and a press on the track jumps it there. Each change of
// the value tells the parent (code 4) and runs "OnChange".
//
// A vertical slider has its highest value at the top.
#pragma once

#include "TAVUCreateHead.h"
#include "TAVUElement.h"

struct _CreateSlider : _CreateHead {
    unsigned Border = 0;
    unsigned Range = 0;
    bool Vertical = false;
    bool UseTemplateTextures = false; // true: both textures come from the template
};

class TAVU_API TAVUSlider : public TAVUElement {
public:
    TAVUSlider(const char* type, TAVUElement* parent, const char* name);

    ~TAVUSlider() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void RecalculateSize(bool recurse) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    bool OnMouseMove(_Point2i& point) override;
    RXTypeDefinition* GetRXType() override;

    // Clamps the value to Range, places the handle, and tells the parent and
    // "OnChange" when the value changed. A track too short for the handle
    // pins the handle at its start and tells no one.
    virtual void SetValue(unsigned value);
    // The value under a handle p pixels from the start of its travel.
    virtual void SetPosition(unsigned position);

    // A slider made by code. A Range or Border of 0 comes from the template
    // (the "slider" template when none is given).
    void Create(_CreateSlider& create, XMLNode* templateNode);

    TAVUTexture* Texture = nullptr;
    TAVUTexture* HandleTexture = nullptr;
    unsigned Border = 0;
    bool Vertical = false;
    unsigned Range = 100;
    TAVUEmbeddedScript* OnChange = nullptr;
    unsigned HandleWidth = 5;
    unsigned HandleHeight = 16;
    unsigned Value = 0;
    unsigned HandlePosition = 0; // pixels from the start of the travel
    bool Dragging = false;

private:
    // The handle's travel in pixels. False, with the handle pinned at the
    // start, when the slider is too short for the handle and its borders.
    bool Travel(unsigned& track);
    // The handle position under the pointer, 0 before the start of the travel.
    unsigned PositionUnder(const _Point2i& point) const;
};
