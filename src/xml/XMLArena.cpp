#include "XMLArena.h"

#include <cstdlib>

struct XMLArena::Chunk {
    size_t Live;      // objects carved and not yet freed
    XMLArena* Holder; // the arena while it holds the chunk, else null
    Chunk* Newer;     // the next chunk in the holder's list
    char* Free;       // next free byte
    char* End;
};

namespace {

// Nodes and attributes hold pointers and 32-bit numbers at most.
constexpr size_t kAlignment = alignof(void*);
constexpr size_t kLargestChunk = 65536;

constexpr size_t RoundUp(size_t bytes) {
    return (bytes + kAlignment - 1) & ~(kAlignment - 1);
}

// The first object of a chunk stands behind the chunk's own fields, so no
// object has the place 0.
constexpr size_t kChunkFields = 48;

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

// The object whose destructor has just run, and its place.
struct PendingRelease {
    const void* Object = nullptr;
    uint16_t Place = 0;
};
thread_local PendingRelease t_Pending;

} // namespace

static_assert(kLargestChunk / kAlignment <= 0xFFFF, "a place must fit 16 bits");

XMLArena::Chunk* XMLArena::ChunkOf(const void* object, uint16_t place) {
    if (!object || place == 0) return nullptr;
    return reinterpret_cast<Chunk*>(
        const_cast<char*>(static_cast<const char*>(object) - size_t(place) * kAlignment));
}

uint16_t XMLArena::PlaceOf(const void* object) const {
    const char* at = static_cast<const char*>(object);
    const char* chunk = reinterpret_cast<const char*>(Current);
    if (!Current || at < chunk || at >= Current->End) return 0;
    return uint16_t(size_t(at - chunk) / kAlignment);
}

void* XMLArena::AllocateLoose(size_t bytes) {
    return malloc(bytes);
}

void* XMLArena::Allocate(size_t bytes) {
    static_assert(sizeof(Chunk) <= kChunkFields, "chunk fields grew");
    size_t needed = RoundUp(bytes);
    // Large objects would waste the rest of a chunk: they stand alone, and a
    // loose object among the held ones has to be freed on its own.
    if (needed > kLargestChunk / 8) {
        Changed = true;
        return AllocateLoose(bytes);
    }
    if (!Current || size_t(Current->End - Current->Free) < needed) {
        Retire();
        size_t size = NextChunkBytes;
        if (NextChunkBytes < kLargestChunk) NextChunkBytes *= 2;
        if (size < kChunkFields + needed) size = kChunkFields + needed;
        char* memory = static_cast<char*>(TakeChunk(size));
        if (!memory) {
            Changed = true;
            return AllocateLoose(bytes);
        }
        Current = reinterpret_cast<Chunk*>(memory);
        Current->Live = 0;
        Current->Holder = this;
        Current->Newer = nullptr;
        Current->Free = memory + kChunkFields;
        Current->End = memory + size;
        if (Newest)
            Newest->Newer = Current;
        else
            Oldest = Current;
        Newest = Current;
    }
    char* block = Current->Free;
    Current->Free += needed;
    ++Current->Live;
    return block;
}

void XMLArena::Retire() {
    Current = nullptr;
}

// Oldest first, as a tree freed node by node gives them back: the spares are
// then the chunks lowest in the heap, and the heap can return what lies above
// them to the system.
void XMLArena::FreeAll() {
    while (Oldest) {
        Chunk* chunk = Oldest;
        Oldest = chunk->Newer;
        GiveBackChunk(chunk, size_t(chunk->End - reinterpret_cast<char*>(chunk)));
    }
    Newest = Current = nullptr;
    Changed = false;
}

void XMLArena::LetGo() {
    while (Oldest) {
        Chunk* chunk = Oldest;
        Oldest = chunk->Newer;
        chunk->Holder = nullptr;
        if (chunk->Live == 0)
            GiveBackChunk(chunk, size_t(chunk->End - reinterpret_cast<char*>(chunk)));
    }
    Newest = Current = nullptr;
    Changed = false;
}

void XMLArena::WillRelease(const void* object, uint16_t place) {
    t_Pending.Object = object;
    t_Pending.Place = place;
}

void XMLArena::Release(void* object) {
    if (!object) return;
    uint16_t place = 0;
    if (object == t_Pending.Object) {
        place = t_Pending.Place;
        t_Pending.Object = nullptr;
    }
    Chunk* chunk = ChunkOf(object, place);
    if (!chunk) {
        free(object);
        return;
    }
    --chunk->Live;
    // A held chunk stays with its arena, which learns that its objects can no
    // longer be freed all at once.
    if (chunk->Holder)
        chunk->Holder->Changed = true;
    else if (chunk->Live == 0)
        GiveBackChunk(chunk, size_t(chunk->End - reinterpret_cast<char*>(chunk)));
}

void XMLArena::NoteChange(const void* object, uint16_t place) {
    Chunk* chunk = ChunkOf(object, place);
    if (chunk && chunk->Holder) chunk->Holder->Changed = true;
}
