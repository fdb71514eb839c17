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

// Freed chunks of the largest size wait here for the next parse instead of
// going back to the heap, up to a bound: a large tree is deleted and another
// built chunk by chunk, and memory the heap gave back to the system costs a
// page fault for each of its pages when it is taken again.
struct SpareChunks {
    static constexpr size_t kMost = 512; // 32 MB
    void* Chunks[kMost];
    size_t Count = 0;
    ~SpareChunks() {
        while (Count > 0)
            free(Chunks[--Count]);
    }
};
thread_local SpareChunks t_Spare;

void* TakeChunk(size_t size) {
    if (size == kLargestChunk && t_Spare.Count > 0) return t_Spare.Chunks[--t_Spare.Count];
    return malloc(size);
}

void GiveBackChunk(void* memory, size_t size) {
    if (size == kLargestChunk && t_Spare.Count < SpareChunks::kMost)
        t_Spare.Chunks[t_Spare.Count++] = memory;
    else
        free(memory);
}

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
        char* memory = static_cast<char*>(TakeChunk(size));
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
        GiveBackChunk(Current, size_t(Current->End - reinterpret_cast<char*>(Current)));
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
    if (--chunk->Live == 0 && chunk->Retired)
        GiveBackChunk(chunk, size_t(chunk->End - reinterpret_cast<char*>(chunk)));
}
