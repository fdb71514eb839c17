// "tabcontrol": a strip of named tabs above a stack of pages, one page shown
// at a time. Tabs keep a stable ID while their order changes by dragging or
// by script; when the strip is too narrow, two buttons scroll it.
#pragma once

#include "CIndex.h"
#include "CTAVUTab.h"
#include "TAVUElement.h"

class TAVUButton;
class TAVUEmbeddedScript;

class TAVU_API TAVUTabControl : public TAVUElement {
public:
    TAVUTabControl(const char* type, TAVUElement* parent, const char* name);

    ~TAVUTabControl() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void RecalculateSize(bool recurse) override;
    void SizeRecalculated(bool changed) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    bool OnMouseMove(_Point2i& point) override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    RXTypeDefinition* GetRXType() override;

    // A tab with its page, whose children load from the sibling chain that
    // starts at firstChild. The new tab's ID, or 0 for a name already taken.
    virtual unsigned AddTab(const char* name, XMLNode* firstChild, const char* frameName,
                            const char* ignored);
    virtual void RemoveTab(unsigned id);
    // The ID of the tab under a screen point, or 0.
    virtual unsigned GetTabFromPoint(_Point2i& point);
    // The order a tab dragged to a screen point takes.
    virtual unsigned GetOrderFromPoint(_Point2i& point);
    // Shows the tab's page and runs "OnSelect"; an unknown ID only clears.
    virtual void SelectTab(unsigned id);
    virtual void ClearSelection();

    // Names are compared ignoring case.
    CTAVUTab* GetTabFromName(const char* name);
    // Moves a tab to a place in the order, the last place at most.
    void MoveTab(CTAVUTab* tab, unsigned order);

    TAVUFont* Font = nullptr;
    TAVUTexture* TabTexture = nullptr;
    TAVUTexture* TabSelectedTexture = nullptr;
    TAVUTexture* FrameTexture = nullptr;
    unsigned FrameBackgroundColor = 0;
    unsigned FrameBorder = 0;
    unsigned FrameBorderColor = 0;
    unsigned TabHeight = 0;
    unsigned TabBorder = 0;
    unsigned SelectedTextColor = 0;
    bool Draggable = false;
    TAVUEmbeddedScript* OnSelect = nullptr;
    TAVUButton* LeftButton = nullptr;
    TAVUButton* RightButton = nullptr;
    unsigned FirstVisible = 0;
    unsigned Selected = 0;
    CIndex<CTAVUTab*> Tabs;
    CIndex<CTAVUTab*> Ordered;
    unsigned TabCount = 0;
    unsigned DragTab = 0;

    // Where a scroll button's settings are: its child, its element name, the
    // keys of this control's textures for it, and whether it reads twice.
    struct ScrollButtonKeys {
        const char* Child;
        const char* Name;
        const char* Textures[3];
        bool ReadTwice;
    };

private:
    TAVUButton* ButtonFromXML(XMLNode* node, XMLNode* templateNode, const ScrollButtonKeys& keys);
    void TabsFromXML(XMLNode* node);
    TAVUFrame* CreatePage(const char* frameName);
    void LoadPageChildren(TAVUFrame* page, XMLNode* firstChild);
    // Slides the tab to place, moving those between one step towards its old
    // place; the place is not checked.
    void ShiftTab(CTAVUTab* tab, unsigned place);
    // The strip position of a screen point: an offset past the left button
    // into the tabs from FirstVisible on, or false off the strip.
    bool StripOffset(_Point2i& point, unsigned& offset);
    CTAVUTab* TabAtOffset(unsigned offset);
    void ForgetPart(TAVUElement* part);
    void SelectFirstSilently();
    void RenderTabs();
    void RenderTab(CTAVUTab* tab, tagRECT& rect, int textY);
};
