#include "XMLArena.h"

#include <cstdlib>

struct XMLArena::Chunk {
    size_t Live;  // objects carved and not yet freed
    bool Retired; // no longer carved from: freed with its last object
    char* Free;   // next free byte
    char* End;
};

namespace {

// Nodes and attributes hold pointers and 32-bit numbers at most.
constexpr size_t kAlignment = alignof(void*);
constexpr size_t kLargestChunk = 65536;

constexpr size_t RoundUp(size_t bytes) {
    return (bytes + kAlignment - 1) & ~(kAlignment - 1);
}

// Each object is preceded by one header slot that names its chunk.
constexpr size_t kHeader = RoundUp(sizeof(void*));

} // namespace

void* XMLArena::AllocateLoose(size_t bytes) {
    char* block = static_cast<char*>(malloc(kHeader + bytes));
    if (!block) return nullptr;
    *reinterpret_cast<Chunk**>(block) = nullptr;
    return block + kHeader;
}

void* XMLArena::Allocate(size_t bytes) {
    size_t needed = kHeader + RoundUp(bytes);
    // Large objects would waste the rest of a chunk: they stand alone.
    if (needed > kLargestChunk / 8) return AllocateLoose(bytes);
    if (!Current || size_t(Current->End - Current->Free) < needed) {
        Retire();
        size_t size = NextChunkBytes;
        if (NextChunkBytes < kLargestChunk) NextChunkBytes *= 2;
        if (size < RoundUp(sizeof(Chunk)) + needed) size = RoundUp(sizeof(Chunk)) + needed;
        char* memory = static_cast<char*>(malloc(size));
        if (!memory) return AllocateLoose(bytes);
        Current = reinterpret_cast<Chunk*>(memory);
        Current->Live = 0;
        Current->Retired = false;
        Current->Free = memory + RoundUp(sizeof(Chunk));
        Current->End = memory + size;
    }
    char* block = Current->Free;
    Current->Free += needed;
    ++Current->Live;
    *reinterpret_cast<Chunk**>(block) = Current;
    return block + kHeader;
}

void XMLArena::Retire() {
    if (!Current) return;
    if (Current->Live == 0)
        free(Current);
    else
        Current->Retired = true;
    Current = nullptr;
}

void XMLArena::Release(void* object) {
    if (!object) return;
    char* block = static_cast<char*>(object) - kHeader;
    Chunk* chunk = *reinterpret_cast<Chunk**>(block);
    if (!chunk) {
        free(block);
        return;
    }
    if (--chunk->Live == 0 && chunk->Retired) free(chunk);
}
