#include "TAVUTreeNode.h"

#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUTexture.h"
#include "TAVUTree.h"

#include <cstdio>

namespace {
TAVUTexture* CopyOf(TAVUTexture* model) {
    return model ? TAVUTexture::New(*model) : nullptr;
}
} // namespace

TAVUTreeNode::TAVUTreeNode(TAVUTree* tree, const char* text, unsigned textColor)
    : Text(StrDuplicate(text)), TextColor(textColor), Tree(tree) {
    Image = CopyOf(tree->ImageTexture);
    ImageCollapsible = CopyOf(tree->ImageTextureCollapsible);
    ImageCollapsed = CopyOf(tree->ImageTextureCollapsed);
    tree->Register(this);
}

TAVUTreeNode::~TAVUTreeNode() {
    TAVUTexture::Delete(Image);
    TAVUTexture::Delete(ImageCollapsible);
    TAVUTexture::Delete(ImageCollapsed);
    delete Metadata;
    StrFree(Text);
}

// A colour that does not read as hexadecimal is the tree's default.
TAVUTreeNode* TAVUTreeNode::NewFromArgs(int argc, char** argv) {
    if (argc < 1) return nullptr;
    unsigned color = Tree->DefaultTextColor;
    if (argc >= 2 && sscanf(argv[1], "%x", &color) != 1) color = Tree->DefaultTextColor;
    return new TAVUTreeNode(Tree, argv[0], color);
}

TAVUTreeNode* TAVUTreeNode::AddChild(int argc, char** argv) {
    TAVUTreeNode* node = NewFromArgs(argc, argv);
    if (node) node->LinkUnder(this, nullptr);
    return node;
}

TAVUTreeNode* TAVUTreeNode::InsertSiblingBefore(int argc, char** argv) {
    if (IsRoot()) return nullptr;
    TAVUTreeNode* node = NewFromArgs(argc, argv);
    if (node) node->LinkUnder(Parent, this);
    return node;
}

TAVUTreeNode* TAVUTreeNode::InsertSiblingAfter(int argc, char** argv) {
    if (IsRoot()) return nullptr;
    TAVUTreeNode* node = NewFromArgs(argc, argv);
    if (node) node->LinkUnder(Parent, Next);
    return node;
}

void TAVUTreeNode::LinkUnder(TAVUTreeNode* parent, TAVUTreeNode* before) {
    Parent = parent;
    Next = before;
    Previous = before ? before->Previous : parent->LastChild;
    (Previous ? Previous->Next : parent->FirstChild) = this;
    (Next ? Next->Previous : parent->LastChild) = this;
    parent->ChildRowsChanged(Rows());
    Tree->ShapeChanged();
}

void TAVUTreeNode::Unlink() {
    if (Parent) Parent->ChildRowsChanged(-int64_t(Rows()));
    TAVUTreeNode* parent = Parent;
    if (parent) {
        (Previous ? Previous->Next : parent->FirstChild) = Next;
        (Next ? Next->Previous : parent->LastChild) = Previous;
    }
    Parent = Previous = Next = nullptr;
    Tree->ShapeChanged();
}

void TAVUTreeNode::ChildRowsChanged(int64_t delta) {
    for (TAVUTreeNode* node = this; node; node = node->Parent) {
        node->ChildRows = unsigned(int64_t(node->ChildRows) + delta);
        if (!node->Expanded) break; // its own count of rows stays
    }
}

void TAVUTreeNode::SetExpanded(bool expanded) {
    if (expanded == Expanded) return;
    Expanded = expanded;
    if (Parent) Parent->ChildRowsChanged(expanded ? int64_t(ChildRows) : -int64_t(ChildRows));
    Tree->ShapeChanged();
}

void TAVUTreeNode::Remove() {
    TAVUTree* tree = Tree;
    if (!tree->ReleaseSelectionIn(this, true)) return;
    tree->DeleteDescendants(this);
    Unlink();
    tree->Forget(this);
    delete this;
}

void TAVUTreeNode::RemoveChildren() {
    if (!Tree->ReleaseSelectionIn(this, false)) return;
    Tree->DeleteDescendants(this);
}

void TAVUTreeNode::SetText(const char* text) {
    TAVUControlHelpers::ReplaceText(Text, text);
}

void TAVUTreeNode::Select() {
    Tree->Select(this);
}

const char* TAVUTreeNode::GetMetadata(const char* key) const {
    if (!Metadata) return nullptr;
    auto found = Metadata->find(utf8stringnocase(key));
    return found == Metadata->end() ? nullptr : found->second.c_str();
}

bool TAVUTreeNode::SetMetadata(const char* key, const char* value) {
    if (!Metadata) Metadata = new std::map<utf8stringnocase, utf8string>;
    (*Metadata)[utf8stringnocase(key)] = value;
    return true;
}

bool TAVUTreeNode::UnsetMetadata(const char* key) {
    if (!Metadata) return false;
    Metadata->erase(utf8stringnocase(key));
    return true;
}

TAVUTreeNode* TAVUTreeNode::NextRow(TAVUTreeNode* node, bool all) {
    if (!node) return nullptr;
    if (node->FirstChild && (all || node->Expanded)) return node->FirstChild;
    for (; node; node = node->Parent)
        if (node->Next) return node->Next;
    return nullptr;
}
