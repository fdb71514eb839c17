// Where a parse puts its nodes and attributes: large chunks carved in order,
// instead of one heap block each, since a document holds many small objects
// that are built together and mostly freed together.
//
// An object knows its place in its chunk (0 outside any), which leads to the
// chunk without a header in front of every object. The texts of a chunk's
// objects (names and values) are carved from the chunk's other end, so a
// text goes with the chunk of the object that owns it. Each object keeps
// texts of its own, never shared with another, even where a document repeats
// a name thousands of times: the tree's texts are open to whoever holds a
// node, and a change made in place to one must not show in another (sharing
// equal short texts within a chunk measured no faster anyway). While the arena
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
    ~XMLArena();

    // Room for an object of that size, or null when there is no memory. With
    // textBytes, the chunk also keeps that much room for the object's texts,
    // to be filled with KeepText right away; an object that gets no place
    // (see LastPlace) has those bytes behind it instead.
    void* Allocate(size_t bytes, size_t textBytes = 0) {
        size_t needed = RoundUp(bytes);
        if (Current && size_t(Current->Tail - Current->Free) >= needed + textBytes)
            return Carve(needed);
        return AllocateInNewChunk(bytes, textBytes);
    }
    // A zero-terminated copy of the text in the chunk of the object just
    // allocated, within the room reserved.
    char* KeepText(const char* text, size_t length);
    // The place of the object allocated last, for the object to keep: small
    // enough for the spare bytes of a node or an attribute; 0 when it stands
    // outside the chunks.
    uint16_t LastPlace = 0;
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
    // Whether a text lies in the chunk of the object at that place, which
    // frees it with the object's chunk.
    static bool InChunk(const void* object, uint16_t place, const void* text);
    // Tells the arena that holds the object, if any, that it was changed in a
    // way that freeing its chunks at once would miss.
    static void NoteChange(const void* object, uint16_t place);

    static constexpr size_t kAlignment = alignof(void*);
    static constexpr size_t kLargestChunk = 65536;
    // The first object of a chunk stands behind the chunk's own fields, so
    // no object has the place 0.
    static constexpr size_t kChunkFields = 48;

private:
    struct Chunk {
        size_t Live;      // objects carved and not yet freed
        XMLArena* Holder; // the arena while it holds the chunk, else null
        Chunk* Newer;     // the next chunk in the holder's list
        char* Free;       // next free byte for objects, carved upwards
        char* Tail;       // first byte of the texts, carved downwards from End
        char* End;
    };
    Chunk* Current = nullptr; // carved from
    Chunk* Oldest = nullptr;  // every chunk still held, oldest first
    Chunk* Newest = nullptr;
    size_t NextChunkBytes = 4096;
    bool Changed = false;

    static Chunk* ChunkOf(const void* object, uint16_t place);
    static constexpr size_t RoundUp(size_t bytes) {
        return (bytes + kAlignment - 1) & ~(kAlignment - 1);
    }
    // Room for the next object in Current, which has it.
    void* Carve(size_t roundedBytes) {
        char* block = Current->Free;
        LastPlace = uint16_t(size_t(block - reinterpret_cast<char*>(Current)) / kAlignment);
        Current->Free += roundedBytes;
        ++Current->Live;
        return block;
    }
    void* AllocateInNewChunk(size_t bytes, size_t textBytes);
};
