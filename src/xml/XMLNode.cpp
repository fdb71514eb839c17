#include "XMLNode.h"

#include "StringHelpers.h"
#include "XMLArena.h"
#include "XMLAttribute.h"

#include <cstdlib>
#include <cstring>

namespace {

char* DuplicateBytes(const char* text, size_t length) {
    char* copy = static_cast<char*>(malloc(length + 1));
    if (!copy) return nullptr;
    if (length) memcpy(copy, text, length);
    copy[length] = 0;
    return copy;
}

} // namespace

// The flags fill the room behind Type: a node is no larger than its fields.
static_assert(sizeof(void*) != 8 || sizeof(XMLNode) == 72, "XMLNode grew");

XMLNode::XMLNode(XMLNode* parent, const char* name, uint32_t type) : XMLNode(parent, type, false) {
    Name = DuplicateBytes(name ? name : "", name ? strlen(name) : 0);
}

XMLNode::XMLNode(XMLNode* parent, uint32_t type, bool sameArena) : Name(nullptr), Type(type) {
    if (parent) AppendTo(parent, sameArena);
}

XMLNode* XMLNode::Create(XMLNode* parent, const char* name, size_t nameLength, uint32_t type,
                         XMLArena* arena) {
    if (!name) {
        name = "";
        nameLength = 0;
    }
    XMLNode* node = new (nameLength + 1, arena) XMLNode(parent, type, arena != nullptr);
    if (!node) return nullptr;
    if (arena) node->Place = arena->LastPlace;
    if (node->Place) {
        node->Name = arena->KeepText(name, nameLength);
    } else {
        node->NameInBlock = true;
        node->Name = node->BlockName();
        if (nameLength) memcpy(node->Name, name, nameLength);
        node->Name[nameLength] = 0;
    }
    return node;
}

void* XMLNode::operator new(size_t size) noexcept {
    return XMLArena::AllocateLoose(size);
}
void* XMLNode::operator new(size_t size, size_t extraBytes, XMLArena* arena) noexcept {
    return arena ? arena->Allocate(size, extraBytes) : XMLArena::AllocateLoose(size + extraBytes);
}
void XMLNode::operator delete(void* block) noexcept {
    XMLArena::Release(block);
}
void XMLNode::operator delete(void* block, size_t, XMLArena*) noexcept {
    XMLArena::Release(block);
}

bool XMLNode::NameStoredWithNode() const {
    if (Place) return XMLArena::InChunk(this, Place, Name);
    return NameInBlock && Name == reinterpret_cast<const char*>(this + 1);
}

XMLNode::~XMLNode() {
    if (!NameStoredWithNode()) StrFree(Name);
    for (XMLAttribute* attribute = FirstAttribute; attribute;) {
        XMLAttribute* next = attribute->Next;
        delete attribute;
        attribute = next;
    }
    // The subtree is taken apart as one list, never by recursion, so that a
    // very deep document cannot exhaust the stack: before a node is deleted,
    // its own children are spliced into the list in its place.
    XMLNode* pending = FirstChild;
    FirstChild = LastChild = nullptr;
    while (pending) {
        XMLNode* node = pending;
        if (node->FirstChild) {
            node->LastChild->Next = node->Next;
            pending = node->FirstChild;
            node->FirstChild = node->LastChild = nullptr;
        } else {
            pending = node->Next;
        }
        delete node;
    }
    XMLArena::WillRelease(this, Place);
}

void XMLNode::SetName(const char* name) {
    NoteChange();
    if (!NameStoredWithNode()) StrFree(Name);
    Name = StrDuplicate(name ? name : "");
}

void XMLNode::Destroy() {
    delete this;
}

void XMLNode::NoteChange() const {
    if (Place) XMLArena::NoteChange(this, Place);
}

// A node linked under a parent from another arena, or from none, has to be
// freed on its own when the parent's tree goes.
void XMLNode::AppendTo(XMLNode* parent, bool sameArena) {
    if (!sameArena) parent->NoteChange();
    Parent = parent;
    Prev = parent->LastChild;
    if (parent->LastChild)
        parent->LastChild->Next = this;
    else
        parent->FirstChild = this;
    parent->LastChild = this;
}

XMLAttribute* XMLNode::FindAttribute(const char* name) const {
    for (XMLAttribute* attribute = FirstAttribute; attribute; attribute = attribute->Next)
        if (StrEqualNoCase(attribute->Name, name)) return attribute;
    return nullptr;
}

void XMLNode::SetAttribute(const char* name, const char* value) {
    NoteChange();
    XMLAttribute* last = nullptr;
    for (XMLAttribute* attribute = FirstAttribute; attribute; attribute = attribute->Next) {
        if (StrCompareNoCase(attribute->Name, name) == 0) {
            attribute->SetValue(value);
            return;
        }
        last = attribute;
    }
    XMLAttribute* added = XMLAttribute::Create(name, value);
    if (last)
        last->Next = added;
    else
        FirstAttribute = added;
}

XMLNode* XMLNode::CloneShallow(XMLNode* newParent) const {
    XMLNode* copy = Create(newParent, Name, Name ? strlen(Name) : 0, Type);
    for (XMLAttribute* attribute = FirstAttribute; attribute; attribute = attribute->Next)
        copy->SetAttribute(attribute->Name, attribute->Value);
    return copy;
}

bool XMLNode::Contains(const XMLNode* node) const {
    for (; node; node = node->Parent)
        if (node == this) return true;
    return false;
}

// Copies the subtree in document order with a walk instead of recursion, so
// that the depth of a document does not matter.
XMLNode* XMLNode::CloneDetached() const {
    XMLNode* root = CloneShallow(nullptr);
    const XMLNode* source = FirstChild;
    XMLNode* target = root;
    while (source) {
        XMLNode* copy = source->CloneShallow(target);
        if (source->FirstChild) {
            source = source->FirstChild;
            target = copy;
            continue;
        }
        while (source != this && !source->Next) {
            source = source->Parent;
            target = target->Parent;
        }
        source = source == this ? nullptr : source->Next;
    }
    return root;
}

XMLNode* XMLNode::Clone(XMLNode* newParent) {
    XMLNode* copy = CloneDetached();
    // Attaching only after the copy is complete keeps a clone into this very
    // subtree from copying its own growing end.
    if (newParent) copy->AppendTo(newParent, false);
    return copy;
}
