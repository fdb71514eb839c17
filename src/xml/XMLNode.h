// A node of a parsed document: an element, a run of text, a comment, a
// processing instruction, a DOCTYPE or the root of the whole document.
#pragma once

#include "TavuExport.h"

#include <cstddef>
#include <cstdint>

class XMLArena;
class XMLAttribute;

class TAVU_API XMLNode {
public:
    enum : uint32_t {
        DocumentRoot = 0,
        Element = 1,
        Comment = 2,
        Text = 3,
        ProcessingInstruction = 4,
        Doctype = 6,
    };

    // Copies the name (null becomes empty) and, with a parent, appends the new
    // node at the end of the parent's children.
    XMLNode(XMLNode* parent, const char* name, uint32_t type);
    // The same for a name of a known length, which need not be terminated;
    // the name shares the node's allocation, which makes a document's many
    // nodes cheaper to build and to free.
    // With an arena, the node is carved from it, its name is kept in the same
    // chunk, and the parent must be null or a node carved from the same arena.
    static XMLNode* Create(XMLNode* parent, const char* name, size_t nameLength, uint32_t type,
                           XMLArena* arena = nullptr);
    XMLNode(const XMLNode&) = delete;
    XMLNode& operator=(const XMLNode&) = delete;
    // Frees the name, the attributes and the whole subtree. The node is not
    // unlinked from its parent: whoever deletes a child fixes the chain.
    virtual ~XMLNode();
    // Deletes the node through its destructor.
    virtual void Destroy();
    // Sets an attribute, looked up ignoring case: a found one keeps its place
    // and name and takes the new value, otherwise a new one goes at the end.
    virtual void SetAttribute(const char* name, const char* value);
    // Copies this node, its attributes and its whole subtree under newParent
    // (null for a tree of its own) and answers the copy.
    virtual XMLNode* Clone(XMLNode* newParent);

    // Nodes come from the heap or from an arena, some with room for the name
    // behind them; delete gives either back.
    static void* operator new(size_t size) noexcept;
    static void* operator new(size_t size, size_t extraBytes, XMLArena* arena) noexcept;
    static void operator delete(void* block) noexcept;
    static void operator delete(void* block, size_t extraBytes, XMLArena* arena) noexcept;

    // Replaces the name with a copy of the given one. Name belongs to the
    // node and may share its allocation: it is never freed by anyone else.
    void SetName(const char* name);

    // The attribute of that name, ignoring case, or null.
    XMLAttribute* FindAttribute(const char* name) const;

    char* Name;
    uint32_t Type;

private:
    // Kept in the room behind Type, so that a node takes no more than its
    // public fields. Place is the node's place in its arena chunk, 0 for a
    // node of its own; NameInBlock is set when such a node's name started out
    // in its own block. A name found anywhere but there or in the node's
    // chunk is a heap copy (whoever replaces Name with one of their own gets
    // it freed as usual).
    bool NameInBlock = false;
    uint16_t Place = 0;

public:
    XMLAttribute* FirstAttribute = nullptr;
    XMLNode* Parent = nullptr;
    XMLNode* FirstChild = nullptr;
    XMLNode* LastChild = nullptr;
    XMLNode* Next = nullptr;
    XMLNode* Prev = nullptr;

private:
    XMLNode(XMLNode* parent, uint32_t type, bool sameArena);
    char* BlockName() { return reinterpret_cast<char*>(this + 1); }
    // Whether Name lies in storage that goes with the node itself.
    bool NameStoredWithNode() const;
    void AppendTo(XMLNode* parent, bool sameArena);
    // Tells the arena that holds this node, if any, that freeing it with its
    // chunks would miss something.
    void NoteChange() const;
    XMLNode* CloneShallow(XMLNode* newParent) const;
    XMLNode* CloneDetached() const;
    bool Contains(const XMLNode* node) const;
};
