#include "XMLArena.h"

#include <cstdlib>
#include <cstring>

namespace {

constexpr size_t kAlignment = XMLArena::kAlignment;
constexpr size_t kLargestChunk = XMLArena::kLargestChunk;
constexpr size_t kChunkFields = XMLArena::kChunkFields;

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

XMLArena::~XMLArena() {
    LetGo();
}

void* XMLArena::AllocateLoose(size_t bytes) {
    return malloc(bytes);
}

// Current has no room: a new chunk, or a block of its own for an object that
// would waste the rest of one (a loose object among the held ones has to be
// freed on its own).
void* XMLArena::AllocateInNewChunk(size_t bytes, size_t textBytes) {
    static_assert(sizeof(Chunk) <= kChunkFields, "chunk fields grew");
    size_t needed = RoundUp(bytes);
    LastPlace = 0;
    if (needed + textBytes > kLargestChunk / 8) {
        Changed = true;
        return AllocateLoose(bytes + textBytes);
    }
    Retire();
    size_t size = NextChunkBytes;
    if (NextChunkBytes < kLargestChunk) NextChunkBytes *= 2;
    if (size < kChunkFields + needed + textBytes) size = kChunkFields + needed + textBytes;
    char* memory = static_cast<char*>(TakeChunk(size));
    if (!memory) {
        Changed = true;
        return AllocateLoose(bytes + textBytes);
    }
    Current = reinterpret_cast<Chunk*>(memory);
    Current->Live = 0;
    Current->Holder = this;
    Current->Newer = nullptr;
    Current->Free = memory + kChunkFields;
    Current->Tail = Current->End = memory + size;
    if (Newest)
        Newest->Newer = Current;
    else
        Oldest = Current;
    Newest = Current;
    return Carve(needed);
}

char* XMLArena::KeepText(const char* text, size_t length) {
    Current->Tail -= length + 1;
    char* kept = Current->Tail;
    if (length) memcpy(kept, text, length);
    kept[length] = 0;
    return kept;
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

bool XMLArena::InChunk(const void* object, uint16_t place, const void* text) {
    Chunk* chunk = ChunkOf(object, place);
    const char* at = static_cast<const char*>(text);
    return chunk && at >= reinterpret_cast<const char*>(chunk) && at < chunk->End;
}

void XMLArena::NoteChange(const void* object, uint16_t place) {
    Chunk* chunk = ChunkOf(object, place);
    if (chunk && chunk->Holder) chunk->Holder->Changed = true;
}
