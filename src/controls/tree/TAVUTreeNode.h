// One row of a tree: a plain object, not an element, owned by its parent node
// and at the top by the tree's hidden Root. Script holds nodes by address, so
// the tree keeps a register of the living ones to prove a handle before use.
//
// Easy to get wrong: trees may nest thousands deep, so nothing here recurses
// over nodes, and every change of shape keeps the row counts (ChildRows) up
// to date all the way up, since drawing and hit testing trust them.
#pragma once

#include "TavuExport.h"
#include "utf8string.h"
#include "utf8stringnocase.h"

#include <cstdint>
#include <map>

class TAVUTexture;
class TAVUTree;

class TAVU_API TAVUTreeNode {
public:
    // A node of tree with copies of the tree's three images, expanded.
    TAVUTreeNode(TAVUTree* tree, const char* text, unsigned textColor);
    // Frees what the node owns; unlinking and its children are Remove's work.
    ~TAVUTreeNode();
    TAVUTreeNode(const TAVUTreeNode&) = delete;
    TAVUTreeNode& operator=(const TAVUTreeNode&) = delete;

    // Each takes a script's arguments, (text) or (text, colour in hex), and
    // answers the new node; null for no arguments, and the siblings' forms
    // give null on the Root.
    TAVUTreeNode* AddChild(int argc, char** argv);
    TAVUTreeNode* InsertSiblingBefore(int argc, char** argv);
    TAVUTreeNode* InsertSiblingAfter(int argc, char** argv);
    // Deletes the node with all below it. A selection among them is let go
    // first, which runs the tree's OnDeSelect.
    void Remove();
    void RemoveChildren();

    void Expand() { SetExpanded(true); }
    void Collapse() { SetExpanded(false); }
    void ToggleExpand() { SetExpanded(!Expanded); }
    void SetText(const char* text);
    void SetTextColor(unsigned color) { TextColor = color; }
    void Select();

    // Null when the node has no such key; keys ignore case.
    const char* GetMetadata(const char* key) const;
    bool SetMetadata(const char* key, const char* value);
    // False when the node never had metadata.
    bool UnsetMetadata(const char* key);

    // The row after node in display order: its first child when it has one
    // and all is set or the node is expanded, else its next sibling, else the
    // next sibling of the nearest ancestor that has one. Null at the end.
    static TAVUTreeNode* NextRow(TAVUTreeNode* node, bool all);

    // The rows this node shows: itself, and its children's when expanded.
    unsigned Rows() const { return 1 + (Expanded ? ChildRows : 0); }
    bool IsRoot() const { return Parent == nullptr; }

    TAVUTreeNode* Parent = nullptr;
    TAVUTreeNode* FirstChild = nullptr;
    TAVUTreeNode* LastChild = nullptr; // so that appending a child costs no walk
    TAVUTreeNode* Previous = nullptr;
    TAVUTreeNode* Next = nullptr;
    TAVUTexture* Image = nullptr;
    TAVUTexture* ImageCollapsible = nullptr;
    TAVUTexture* ImageCollapsed = nullptr;
    char* Text = nullptr;
    bool Expanded = true;
    unsigned TextColor = 0;
    TAVUTree* Tree;
    std::map<utf8stringnocase, utf8string>* Metadata = nullptr;
    // The sum of the children's Rows, whether or not this node is expanded.
    unsigned ChildRows = 0;

private:
    friend class TAVUTree;

    // A node made from a script's arguments; null for none.
    TAVUTreeNode* NewFromArgs(int argc, char** argv);
    void SetExpanded(bool expanded);
    // Adds delta to ChildRows here and to every ancestor whose own count of
    // rows changes with it.
    void ChildRowsChanged(int64_t delta);
    // Links this unlinked node under parent, before `before` (null: last).
    void LinkUnder(TAVUTreeNode* parent, TAVUTreeNode* before);
    void Unlink();
};
