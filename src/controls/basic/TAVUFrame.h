// "frame": a filled or textured rectangle with an optional border, and the
// base of most composite controls. A transparent frame (no texture, no
// background colour) lets the mouse pass to what lies below it; any other
// frame takes the mouse and tells its parent.
#pragma once

#include "TAVUCreateHead.h"
#include "TAVUElement.h"

class TAVUElementWatch;

struct _CreateFrame : _CreateHead {
    unsigned BackgroundColor = 0;
    unsigned Border = 0;
    unsigned BorderColor = 0;
};

class TAVU_API TAVUFrame : public TAVUElement {
public:
    TAVUFrame(const char* type, TAVUElement* parent, const char* name);

    ~TAVUFrame() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    bool OnRMouseUp(_Point2i& point) override;
    bool OnRMouseDown(_Point2i& point) override;
    bool OnLMouseDoubleClick(_Point2i& point) override;
    bool OnRMouseDoubleClick(_Point2i& point) override;
    bool OnMouseMove(_Point2i& point) override;
    bool OnMouseWheel(int offset) override;
    RXTypeDefinition* GetRXType() override;

    // A frame made by code: place, colours and border, no template, no texture.
    void Create(_CreateFrame& create);

    // No texture and a background of exactly 0: the mouse passes through.
    bool IsTransparent() const { return !Texture && BackgroundColor == 0; }

    TAVUTexture* Texture = nullptr;
    unsigned BackgroundColor = 0;
    unsigned Border = 0;
    unsigned BorderColor = 0;

private:
    enum PassRule { PassLeftThru, PassRightThru, PassBothThru, PassTransparentOnly };
    bool Passes(PassRule rule) const;
    static bool TakeOrPass(TAVUFrame* frame, const TAVUElementWatch& watch, bool taken,
                           PassRule rule, unsigned code, size_t value);
};
