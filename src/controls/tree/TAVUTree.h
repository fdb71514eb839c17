// "tree": rows of TAVUTreeNode under a hidden Root, indented by depth, with
// per-node images for expanded and collapsed rows, one selection and a
// vertical scroll bar. Nodes are not elements; script reaches them by address
// and GetNode proves such an address against the register of living nodes.
//
// A frame costs in proportion to the rows shown, however big the tree: the
// count of rows is kept up to date by the nodes, whole subtrees above the
// window are skipped by their counts, and the first row shown is remembered
// until the tree's shape or the scroll offset changes.
#pragma once

#include "TAVUFrame.h"

#include <cstdint>
#include <set>

class TAVUFont;
class TAVUScrollBar;
class TAVUTreeNode;

class TAVU_API TAVUTree : public TAVUFrame {
public:
    TAVUTree(const char* type, TAVUElement* parent, const char* name);

    ~TAVUTree() override;
    bool FromXML(XMLNode* node, XMLNode* templateNode) override;
    bool IsTypeOf(const char* type) override;
    void Render() override;
    bool OnLMouseUp(_Point2i& point) override;
    bool OnLMouseDown(_Point2i& point) override;
    bool OnRMouseUp(_Point2i& point) override;
    bool OnRMouseDown(_Point2i& point) override;
    bool OnLMouseDoubleClick(_Point2i& point) override;
    bool OnMouseMove(_Point2i& point) override;
    bool OnMouseWheel(int offset) override;
    void OnNotify(TAVUElement* source, unsigned code, size_t value) override;
    RXTypeDefinition* GetRXType() override;

    // The node at that address if it lives in this tree, else null.
    TAVUTreeNode* GetNode(uint64_t handle) const;
    // OnDeSelect for the old selection (still selected while it runs), then
    // OnSelect for the new one. Selecting the selected node does nothing.
    void Select(TAVUTreeNode* node);
    // The first node, in the register's order, for which the host's query
    // holds; null when none does or the query does not compile.
    TAVUTreeNode* FindNode(const char* query);
    // The row under a point and whether the point is on its image (or the
    // margin after it); null for no row.
    TAVUTreeNode* NodeFromPoint(int x, int y, bool& onImage);
    // Rows shown with everything expanded so far: the count the scroll bar
    // is fitted to.
    unsigned VisibleRowCount() const;

    TAVUFont* Font = nullptr;
    TAVUTexture* ImageTexture = nullptr;
    TAVUTexture* ImageTextureCollapsible = nullptr;
    TAVUTexture* ImageTextureCollapsed = nullptr;
    unsigned ScrollOffset = 0;
    unsigned IndentPerDepth = 0;
    unsigned ImageSize = 16;
    unsigned ImageBorder = 0;
    unsigned TextMargin = 5;
    unsigned DefaultTextColor = 0; // the font's colour once loaded
    unsigned ItemHeight = 0;
    unsigned SelectionBackgroundColor = 0;
    unsigned SelectionTextColor = 0;
    TAVUTreeNode* Root = nullptr;
    TAVUScrollBar* ScrollBar = nullptr;
    TAVUEmbeddedScript* OnSelect = nullptr;
    TAVUEmbeddedScript* OnDeSelect = nullptr;
    TAVUTreeNode* Selection = nullptr;
    std::set<TAVUTreeNode*> Nodes;

private:
    friend class TAVUTreeNode;

    void ReadKeys(XMLNode* node, XMLNode* templateNode);
    bool LoadScrollBar(XMLNode* node, XMLNode* templateNode);
    // Shows the scroll bar when the rows overflow avail pixels, with the range
    // they need; false when a script run by the scroll bar deleted the tree.
    bool FitScrollBar(int64_t avail);
    bool PressRow(_Point2i& point);
    void DrawRows(int left, int top, int bottom, int right);
    void DrawRow(TAVUTreeNode* node, int left, int top, int right);
    // The row at a place of the display order with its depth, from the cache
    // when the shape and the place are as last time.
    TAVUTreeNode* RowAt(uint64_t place, unsigned& depth);
    TAVUTreeNode* FindRowAt(uint64_t place, unsigned& depth) const;
    // The first row after node's subtree, climbing (and counting depth down)
    // as needed; null past the last row.
    TAVUTreeNode* AfterSubtree(TAVUTreeNode* node, unsigned& depth) const;
    // The place of the first row shown: the offset, or 0 when the offset
    // reads as negative.
    uint64_t FirstPlace() const;

    // Called by nodes.
    void Register(TAVUTreeNode* node);
    void Forget(TAVUTreeNode* node);
    void ShapeChanged() { ++ShapeVersion; }
    // Lets a selection in top's subtree go, running OnDeSelect; false when the
    // script deleted the tree or top meanwhile. withTop counts top itself.
    bool ReleaseSelectionIn(TAVUTreeNode* top, bool withTop);
    // Deletes every node below top, leaves first, without any script.
    void DeleteDescendants(TAVUTreeNode* top);

    bool Deselecting = false;
    // Bumped at every change of the tree's shape, for the cache of RowAt.
    uint64_t ShapeVersion = 1;
    uint64_t CachedVersion = 0;
    uint64_t CachedPlace = 0;
    TAVUTreeNode* CachedRow = nullptr;
    unsigned CachedDepth = 0;
    // Bumped at every removal from Nodes: a walk over the register finds its
    // place again after one.
    uint64_t Removals = 0;
};
