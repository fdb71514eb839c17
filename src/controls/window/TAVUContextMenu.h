// "contextmenu": the on-screen side of an open context menu, a frame under
// the screen that lives from its handler's Create until it closes. It is
// never loaded from a file: only a CContextMenuHandler makes one.
//
// Rows are drawn from one border in, but hovered from two borders in, so the
// hover is off by the border's width. This is deliberate and stays. The width
// follows the longest row one frame late.
#pragma once

#include "TAVUFrame.h"

class CContextMenuHandler;
class TAVUContextMenuNode;
class TAVUFont;

class TAVU_API TAVUContextMenu : public TAVUFrame {
public:
    enum : unsigned { MinimumWidth = 80, RightMargin = 20 };
    static const char TypeWord[];

    TAVUContextMenu(const char* type, TAVUElement* parent, const char* name);

    ~TAVUContextMenu() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    bool OnMouseMove(_Point2i& point) override;
    void OnKeyboardExit(TAVUElement* next) override;
    void OnLMouseDownOther(TAVUElement* other) override;

    // Takes the handler and the looks of its template (the template
    // "contextmenu" when it has none); without a template the menu has no
    // font and no textures.
    void SetUp(CContextMenuHandler* handler, XMLNode* templateNode);
    // The height of one row: the font's height and 2.
    unsigned RowHeight() const;
    // The first row with this ID, null when there is none.
    TAVUContextMenuNode* FindNode(unsigned id) const;
    // The row at index place, counted from FirstNode; null beyond the end.
    TAVUContextMenuNode* NodeAt(unsigned place) const;
    // Draws a row's texture over rect, in nine cells when the texture has a
    // frame; answers that frame's width, 0 when there is no texture.
    unsigned DrawRowTexture(tagRECT& rect, TAVUTexture* texture);

    TAVUFont* Font = nullptr;
    unsigned HighlightColor = 0;
    TAVUTexture* ItemTexture = nullptr;
    TAVUTexture* SubmenuTexture = nullptr;
    TAVUTexture* SeparatorTexture = nullptr;
    TAVUTexture* HighlightItemTexture = nullptr;
    TAVUTexture* HighlightSubmenuTexture = nullptr;
    TAVUTexture* ItemCheckTexture = nullptr;
    unsigned NextItemID = 0;
    TAVUContextMenuNode* FirstNode = nullptr;
    unsigned NodeCount = 0;
    TAVUContextMenuNode* HoverNode = nullptr;
    CContextMenuHandler* Handler = nullptr;

private:
    void ReadLooks(XMLNode* templateNode);
    void SizeToRows();
    void CloseUnlessMenu(TAVUElement* other);
};
