// Where a parse puts its nodes and attributes: large chunks carved in order,
// instead of one heap block each, since a document holds many small objects
// that are built together and mostly freed together.
//
// Every object carries a pointer to its chunk in front of it. A chunk counts
// its live objects and goes back to the heap when the last one is freed and
// the arena no longer carves from it, so objects may outlive the arena (a
// tree kept after its parser is gone). An object made without an arena has
// no chunk and is a heap block of its own.
#pragma once

#include <cstddef>

class XMLArena {
public:
    XMLArena() = default;
    XMLArena(const XMLArena&) = delete;
    XMLArena& operator=(const XMLArena&) = delete;
    ~XMLArena() { Retire(); }

    // Room for an object of that size, or null when there is no memory.
    void* Allocate(size_t bytes);
    // Stops carving from the current chunk; the next object starts a new one.
    void Retire();

    // Room for an object outside any arena.
    static void* AllocateLoose(size_t bytes);
    // Frees an object made by either of the two.
    static void Release(void* object);

private:
    struct Chunk;
    Chunk* Current = nullptr;
    size_t NextChunkBytes = 4096;
};
