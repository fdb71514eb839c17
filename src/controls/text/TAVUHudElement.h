// "hudelement": one line of live text placed freely on the screen. Its data
// sequences are resolved at most once every UpdateInterval frames and the
// answer is cached and drawn plainly in between, so a costly sequence is not
// paid for in every frame. Dragging with Alt held moves it.
//
// Easy to get wrong: resolving the text runs script, which may delete the
// element; and the word "NULL" (an empty sequence's answer) is never drawn.
#pragma once

#include "TAVUElement.h"
#include "TAVUPreParse.h"

class TAVU_API TAVUHudElement : public TAVUElement {
public:
    // The buffer the text is resolved into; longer answers are cut to it.
    enum : unsigned { BufferSize = 8192 };

    TAVUHudElement(const char* type, TAVUElement* parent, const char* name);

    ~TAVUHudElement() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    bool OnMouseMove(_Point2i& point) override;
    RXTypeDefinition* GetRXType() override;

    // Resolves the text into CachedText now. False when a script run by the
    // text deleted the element.
    virtual bool UpdateText();
    // A new text, resolved at once, whatever the interval.
    virtual void SetText(const char* text);

    void SetGroup(const char* group);

    TAVUPreParse Text;
    char* Group = nullptr;
    TAVUFont* Font = nullptr;
    unsigned UpdateInterval = 0;
    char* CachedText = nullptr;
    unsigned FramesSinceUpdate = 0;
    bool Dragging = false;
    _Point2i DragAnchor{0, 0};
};
