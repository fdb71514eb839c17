// "checkbox": a box that toggles on each left click, with a caption beside
// it. Six textures give the looks of unticked and ticked boxes, plain,
// pressed and under the pointer.
#pragma once

#include "TAVUElement.h"
#include "TAVUPreParse.h"

class TAVU_API TAVUCheckBox : public TAVUElement {
public:
    // The side of the box when its texture cannot tell its size.
    enum : int { DefaultBoxSide = 16 };
    // The gap between the box and the caption.
    enum : int { CaptionGap = 4 };

    TAVUCheckBox(const char* type, TAVUElement* parent, const char* name);

    ~TAVUCheckBox() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    RXTypeDefinition* GetRXType() override;

    // The texture the box shows now; null when the box has no plain Texture.
    TAVUTexture* ChooseTexture();

    TAVUPreParse Text;
    TAVUFont* Font = nullptr;
    TAVUTexture* Texture = nullptr;
    TAVUTexture* TexturePressed = nullptr;
    TAVUTexture* TextureHover = nullptr;
    TAVUTexture* TextureChecked = nullptr;
    TAVUTexture* TextureCheckedPressed = nullptr;
    TAVUTexture* TextureCheckedHover = nullptr;
    bool Pressed = false;
    bool Checked = false;
};
