// "button": a caption over a fill or a texture, with looks for pressed and
// hover. It takes left clicks and tells its parent of each press and release.
#pragma once

#include "TAVUCreateHead.h"
#include "TAVUElement.h"
#include "TAVUFont.h"
#include "TAVUPreParse.h"

struct _CreateButton : _CreateHead {
    const char* Text = nullptr;
    _CreateFont Font{};
    unsigned BackgroundColor = 0;
    unsigned UseTemplateTextures = 0; // non-zero: the three textures come from the template
    unsigned Border = 0;
    unsigned BorderColor = 0;
};

class TAVU_API TAVUButton : public TAVUElement {
public:
    TAVUButton(const char* type, TAVUElement* parent, const char* name);

    ~TAVUButton() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    RXTypeDefinition* GetRXType() override;

    // A button made by code. Colours left at 0 come from the template (the
    // "button" template when none is given), as do the textures if asked for.
    void Create(_CreateButton& create, XMLNode* templateNode);

    // The texture the button shows now: pressed and hover looks apply only
    // to a button that has a plain Texture at all.
    TAVUTexture* ChooseTexture();

    TAVUPreParse Text;
    TAVUFont* Font = nullptr;
    unsigned BackgroundColor = 0;
    unsigned Border = 0;
    unsigned BorderColor = 0;
    TAVUTexture* Texture = nullptr;
    TAVUTexture* TexturePressed = nullptr;
    TAVUTexture* TextureHover = nullptr;
    bool Pressed = false;
};
