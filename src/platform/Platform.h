// The operating-system calls the toolkit makes, under their Windows names.
//
// On Windows these are the real KERNEL32 and USER32 functions. Elsewhere this
// folder supplies functions with the same names and the same meaning, so that
// toolkit code reads the same on both. The one difference on every platform is
// the tick clock, which a test or a deterministic host can drive (see
// TavuDriveClock below).
#pragma once

#include "TavuExport.h"

#include <cstddef>
#include <cstdint>

#if defined(_WIN32)

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
// HostRenderer has an operation called DrawText; keep the Win32 macro of that name away.
#ifndef NODRAWTEXT
#define NODRAWTEXT
#endif
#include <windows.h>

#else // every other system

#define WINAPI
#define CALLBACK

typedef int BOOL;
typedef unsigned char BYTE;
typedef unsigned short WORD;
typedef uint32_t DWORD;
typedef int32_t LONG;
typedef uint32_t UINT;
typedef int16_t SHORT;
typedef char16_t WCHAR;
typedef char CHAR;
typedef WORD* LPWORD;
typedef const BYTE* PBYTE_CONST;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef WCHAR* LPWSTR;
typedef const WCHAR* LPCWSTR;
typedef BOOL* LPBOOL;
typedef void* HANDLE;
typedef void* HMODULE;
typedef void* HINSTANCE;
typedef void* HWND;
typedef void* HGLOBAL;
typedef void* LPVOID;
typedef size_t SIZE_T;

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif

#define CP_ACP 0
#define CP_UTF8 65001
#define CF_TEXT 1
#define GMEM_FIXED 0x0000
#define GMEM_MOVEABLE 0x0002
#define GMEM_ZEROINIT 0x0040
#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1
#define DLL_THREAD_ATTACH 2
#define DLL_THREAD_DETACH 3

typedef struct tagRECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
} RECT;

// A recursive lock, as a Windows critical section is. The storage holds a
// std::recursive_mutex, constructed in place by InitializeCriticalSection.
typedef struct _CRITICAL_SECTION {
    alignas(16) unsigned char Storage[64];
} CRITICAL_SECTION, *LPCRITICAL_SECTION;

extern "C" {
DWORD GetTickCount();

void InitializeCriticalSection(LPCRITICAL_SECTION section);
void EnterCriticalSection(LPCRITICAL_SECTION section);
void LeaveCriticalSection(LPCRITICAL_SECTION section);
void DeleteCriticalSection(LPCRITICAL_SECTION section);

// Writes the text to standard error, where a debugger's output window would be.
void OutputDebugStringA(LPCSTR text);

// A null module is the running program; any other is an address inside a loaded
// module (its base, as on Windows). Cuts at size - 1 and then answers size.
DWORD GetModuleFileNameA(HMODULE module, LPSTR buffer, DWORD size);

// Code page 65001 is UTF-8; CP_ACP is the system code page, Windows-1252 here.
// Malformed UTF-8 becomes U+FFFD, as on Windows without MB_ERR_INVALID_CHARS.
int MultiByteToWideChar(UINT codePage, DWORD flags, LPCSTR multiByte, int byteCount, LPWSTR wide,
                        int wideCount);
int WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR wide, int wideCount, LPSTR multiByte,
                        int byteCount, LPCSTR defaultChar, LPBOOL usedDefaultChar);

HGLOBAL GlobalAlloc(UINT flags, SIZE_T bytes);
LPVOID GlobalLock(HGLOBAL memory);
BOOL GlobalUnlock(HGLOBAL memory);
HGLOBAL GlobalFree(HGLOBAL memory);
SIZE_T GlobalSize(HGLOBAL memory);

// An in-process clipboard that holds format 1 (plain text) only.
BOOL OpenClipboard(HWND owner);
BOOL CloseClipboard();
BOOL EmptyClipboard();
HANDLE GetClipboardData(UINT format);
HANDLE SetClipboardData(UINT format, HANDLE memory);

// Bit 0x8000 down, bit 1 toggled (Caps Lock, Num Lock). A host without a system
// keyboard state of its own reports it through TavuSetKeyState.
SHORT GetKeyState(int virtualKey);

// Translates a virtual key with a 256-byte key state into a character, with a
// US keyboard layout. Answers the number of characters written (0 or 1).
int ToAscii(UINT virtualKey, UINT scanCode, const BYTE* keyState, LPWORD character, UINT flags);
}

#endif

extern "C" {
// The tick clock. Once driven, GetTickCount answers the driven tick, which only
// moves by TavuDriveClock and TavuAdvanceClock, until TavuReleaseClock gives the
// real clock back. Tests and hosts that need the same output for the same input
// use it; the module exports these three with plain names.
TAVU_API void TavuDriveClock(DWORD tick);
TAVU_API void TavuAdvanceClock(DWORD milliseconds);
TAVU_API void TavuReleaseClock();

// Opens the clipboard that the toolkit's own clipboard calls reach: the
// system's on Windows, the module's own elsewhere. A host's OpenClipboard
// answers with it, so that the toolkit's copy and paste find it open.
TAVU_API BOOL TavuOpenClipboard();

// Sets what GetKeyState answers for a key on systems where the toolkit cannot
// ask the operating system (bit 0x8000 down, bit 1 toggled). No effect on Windows.
TAVU_API void TavuSetKeyState(int virtualKey, SHORT state);

#if defined(_WIN32)
// The clock that toolkit code reaches under the name GetTickCount.
TAVU_API DWORD WINAPI TavuGetTickCount();
#endif
}

#if defined(_WIN32)
// Windows' own headers map names the same way (MessageBox to MessageBoxA).
#define GetTickCount TavuGetTickCount
#endif
