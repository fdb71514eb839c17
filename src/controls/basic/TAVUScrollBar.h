// "scrollbar": a slider between two arrow buttons. The scroll bar draws
// nothing itself; its look is that of its children, and its value lives in
// the slider. A press on an arrow moves the value by one, and every change
// of the slider's value reaches the scroll bar's parent as code 4.
//
// Controls that scroll their content own a scroll bar and drive it through
// SetRange, SetValue, RaiseValue, LowerValue and GetValue. A vertical scroll
// bar has its highest value at the top, so such an owner shows the top line
// at Range minus the value.
#pragma once

#include "TAVUCreateHead.h"
#include "TAVUElement.h"

class TAVUButton;
class TAVUSlider;

struct _CreateScrollBar : _CreateHead {
    unsigned Range = 0;
    bool Vertical = false;
};

class TAVU_API TAVUScrollBar : public TAVUElement {
public:
    TAVUScrollBar(const char* type, TAVUElement* parent, const char* name);

    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    // Empty: the scroll bar's owner lays it out, so a size change of the
    // scroll bar goes no further.
    void SizeRecalculated(bool changed) override;
    // Turns the arrows' presses and the slider's changes into the scroll
    // bar's own; no notification climbs past it otherwise.
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    RXTypeDefinition* GetRXType() override;

    // Each does nothing without a slider; GetValue then gives 0.
    virtual void SetRange(unsigned range);
    virtual void SetValue(unsigned value);
    virtual void RaiseValue(unsigned by);
    virtual void LowerValue(unsigned by);
    virtual unsigned GetValue();

    // A scroll bar made by code, with its two buttons and its slider. Without
    // a template node, the "verticalscrollbar" or "scrollbar" template gives
    // their looks: its children "UpButton", "DownButton" and "Slider", else
    // its keys "UpTexture", "SliderTexture" and the like. The children have
    // no size of their own: the template's children give them one.
    void Create(_CreateScrollBar& create, XMLNode* templateNode);

    unsigned Range = 0;
    bool Vertical = false;
    TAVUButton* UpButton = nullptr;
    TAVUButton* DownButton = nullptr;
    TAVUSlider* Slider = nullptr;

private:
    TAVUButton* CreateButton(XMLNode* templateNode, const char* name, const char* child,
                             const char* const textureKeys[3]);
    void CreateSlider(XMLNode* templateNode);
};
