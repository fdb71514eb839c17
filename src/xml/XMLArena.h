// Where a parse puts its nodes and attributes: large chunks carved in order,
// instead of one heap block each, since a document holds many small objects
// that are built together and mostly freed together.
//
// An object knows its place in its chunk (0 outside any), which leads to the
// chunk without a header in front of every object. While the arena
// holds its document, the chunks stay with it, and a tree that nobody changed
// since the parse is freed chunk by chunk without visiting a node. Once the
// arena lets go (a tree kept after its parser is gone, or one that was
// changed), a chunk counts its live objects and goes back to the heap with the
// last one. An object made without an arena has no chunk and is a heap block
// of its own.
#pragma once

#include <cstddef>
#include <cstdint>

class XMLArena {
public:
    XMLArena() = default;
    XMLArena(const XMLArena&) = delete;
    XMLArena& operator=(const XMLArena&) = delete;
    ~XMLArena() { LetGo(); }

    // Room for an object of that size, or null when there is no memory.
    void* Allocate(size_t bytes);
    // The place of an object just allocated, for the object to keep: small
    // enough for the spare bytes of a node or an attribute.
    uint16_t PlaceOf(const void* object) const;
    // Stops carving from the current chunk; the next object starts a new one.
    void Retire();
    // Whether every object carved since the last FreeAll or LetGo is still
    // as it was made: no heap copy hung on it, no object from elsewhere
    // linked to it, none of them freed alone.
    bool Unchanged() const { return !Changed; }
    // Frees every chunk at once, with all objects in them. Only for objects
    // that nobody may use any more, and only while Unchanged.
    void FreeAll();
    // Hands the chunks over to their objects: each chunk goes back to the
    // heap when its last object is freed.
    void LetGo();

    // Room for an object outside any arena.
    static void* AllocateLoose(size_t bytes);
    // The last words of an object's destructor: the deallocation that follows
    // gives the object back as its place says. An object's fields are gone
    // by the time its deallocation runs, so the place is handed over here.
    static void WillRelease(const void* object, uint16_t place);
    // Frees an object made by either of the two.
    static void Release(void* object);
    // Tells the arena that holds the object, if any, that it was changed in a
    // way that freeing its chunks at once would miss.
    static void NoteChange(const void* object, uint16_t place);

private:
    struct Chunk;
    Chunk* Current = nullptr; // carved from
    Chunk* Oldest = nullptr;  // every chunk still held, oldest first
    Chunk* Newest = nullptr;
    size_t NextChunkBytes = 4096;
    bool Changed = false;

    static Chunk* ChunkOf(const void* object, uint16_t place);
};
