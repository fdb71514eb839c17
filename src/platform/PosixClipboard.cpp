// Global memory blocks and an in-process clipboard for plain text (format 1),
// where there is no USER32. The clipboard owns what SetClipboardData gives it.
#include "Platform.h"

extern "C" BOOL TavuOpenClipboard() {
    return OpenClipboard(nullptr);
}

#if !defined(_WIN32)
#include <stdlib.h>
#include <string.h>

namespace {

struct GlobalBlock {
    SIZE_T Size;
    int LockCount;
    alignas(16) unsigned char Data[1];
};

GlobalBlock* BlockOf(HGLOBAL memory) {
    return static_cast<GlobalBlock*>(memory);
}

struct Clipboard {
    bool Open = false;
    HGLOBAL Text = nullptr;
    ~Clipboard() { GlobalFree(Text); }
} g_Clipboard;

} // namespace

extern "C" {

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes) {
    size_t total = offsetof(GlobalBlock, Data) + (bytes ? bytes : 1);
    GlobalBlock* block = static_cast<GlobalBlock*>(malloc(total));
    if (!block) return nullptr;
    block->Size = bytes;
    block->LockCount = 0;
    if (flags & GMEM_ZEROINIT) memset(block->Data, 0, bytes);
    return block;
}

LPVOID GlobalLock(HGLOBAL memory) {
    if (!memory) return nullptr;
    ++BlockOf(memory)->LockCount;
    return BlockOf(memory)->Data;
}

BOOL GlobalUnlock(HGLOBAL memory) {
    if (!memory || BlockOf(memory)->LockCount == 0) return FALSE;
    return --BlockOf(memory)->LockCount > 0;
}

HGLOBAL GlobalFree(HGLOBAL memory) {
    free(memory);
    return nullptr;
}

SIZE_T GlobalSize(HGLOBAL memory) {
    return memory ? BlockOf(memory)->Size : 0;
}

// One thread owns everything here, and an owner may open the clipboard again.
BOOL OpenClipboard(HWND) {
    g_Clipboard.Open = true;
    return TRUE;
}

BOOL CloseClipboard() {
    if (!g_Clipboard.Open) return FALSE;
    g_Clipboard.Open = false;
    return TRUE;
}

BOOL EmptyClipboard() {
    if (!g_Clipboard.Open) return FALSE;
    GlobalFree(g_Clipboard.Text);
    g_Clipboard.Text = nullptr;
    return TRUE;
}

HANDLE GetClipboardData(UINT format) {
    if (!g_Clipboard.Open || format != CF_TEXT) return nullptr;
    return g_Clipboard.Text;
}

HANDLE SetClipboardData(UINT format, HANDLE memory) {
    if (!g_Clipboard.Open || format != CF_TEXT || !memory) return nullptr;
    if (g_Clipboard.Text != memory) GlobalFree(g_Clipboard.Text);
    g_Clipboard.Text = memory;
    return memory;
}
}
#endif
