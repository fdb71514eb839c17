#include "Platform.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

TEST(TickClock, DrivenClockMovesOnlyWhenTold) {
    TavuDriveClock(5000);
    EXPECT_EQ(GetTickCount(), 5000u);
    TavuAdvanceClock(16);
    EXPECT_EQ(GetTickCount(), 5016u);
    TavuDriveClock(0xFFFFFFF0u);
    TavuAdvanceClock(0x20); // wraps like the real 32-bit tick
    EXPECT_EQ(GetTickCount(), 0x10u);
    TavuReleaseClock();
    TavuAdvanceClock(1000); // no effect on the real clock
    DWORD first = GetTickCount();
    DWORD second = GetTickCount();
    EXPECT_LE(second - first, 1000u);
}

TEST(CodePages, Utf8RoundTripsThroughUtf16WithSurrogates) {
    const char* text = "A\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"; // A é € 😀
    WCHAR wide[16] = {};
    int units = MultiByteToWideChar(CP_UTF8, 0, text, -1, wide, 16);
    ASSERT_EQ(units, 6); // A, é, €, two surrogates, terminator
    EXPECT_EQ(wide[1], 0xE9);
    EXPECT_EQ(wide[2], 0x20AC);
    EXPECT_EQ(wide[3], 0xD83D);
    EXPECT_EQ(wide[4], 0xDE00);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, text, -1, nullptr, 0), 6); // size query
    char back[32] = {};
    int bytes = WideCharToMultiByte(CP_UTF8, 0, wide, -1, back, sizeof(back), nullptr, nullptr);
    EXPECT_EQ(bytes, int(strlen(text)) + 1);
    EXPECT_STREQ(back, text);
}

TEST(CodePages, MalformedInputBecomesReplacementAndTooSmallFails) {
    WCHAR wide[8] = {};
    const char bad[] = {'a', char(0xC3), 'b', char(0xFF)};
    int units = MultiByteToWideChar(CP_UTF8, 0, bad, 4, wide, 8);
    ASSERT_EQ(units, 4);
    EXPECT_EQ(wide[1], 0xFFFD);
    EXPECT_EQ(wide[2], 'b');
    EXPECT_EQ(wide[3], 0xFFFD);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "abcdef", 6, wide, 3), 0);
    const WCHAR lone[] = {0xD800, 'x'};
    char out[8] = {};
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, lone, 2, out, 8, nullptr, nullptr), 4);
    EXPECT_EQ(std::string(out, 4), "\xEF\xBF\xBDx");
}

TEST(CodePages, SystemCodePageIsWindows1252) {
    const char euro[] = {char(0x80), char(0xE9), 0};
    WCHAR wide[4] = {};
    ASSERT_EQ(MultiByteToWideChar(CP_ACP, 0, euro, -1, wide, 4), 3);
    EXPECT_EQ(wide[0], 0x20AC);
    EXPECT_EQ(wide[1], 0xE9);
    const WCHAR unmappable[] = {0x4E2D, 'z', 0};
    char out[4] = {};
    BOOL usedDefault = FALSE;
    EXPECT_EQ(WideCharToMultiByte(CP_ACP, 0, unmappable, -1, out, 4, nullptr, &usedDefault), 3);
    EXPECT_STREQ(out, "?z");
    EXPECT_TRUE(usedDefault);
}

TEST(Clipboard, HoldsPlainTextOnlyWhileOpen) {
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_TRUE(OpenClipboard(nullptr)); // its owner may open it again
    EXPECT_TRUE(EmptyClipboard());
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 6);
    char* text = static_cast<char*>(GlobalLock(memory));
    memcpy(text, "hello", 6);
    GlobalUnlock(memory);
    EXPECT_EQ(SetClipboardData(CF_TEXT, memory), memory);
    EXPECT_EQ(GetClipboardData(13), nullptr); // only format 1
    EXPECT_TRUE(CloseClipboard());
    EXPECT_EQ(GetClipboardData(CF_TEXT), nullptr); // closed

    ASSERT_TRUE(OpenClipboard(nullptr));
    HANDLE data = GetClipboardData(CF_TEXT);
    ASSERT_NE(data, nullptr);
    EXPECT_STREQ(static_cast<char*>(GlobalLock(data)), "hello");
    GlobalUnlock(data);
    EXPECT_TRUE(EmptyClipboard()); // frees the text the clipboard owned
    EXPECT_EQ(GetClipboardData(CF_TEXT), nullptr);
    CloseClipboard();
}

TEST(Keyboard, ToAsciiFollowsAUsLayout) {
    // Key, the one modifier byte set (0 for none) and the character; Caps Lock
    // (0x14) counts when toggled, Control (0x11) gives control codes, and F1
    // (0x70) gives none.
    const struct {
        unsigned Key, Modifier;
        int Count;
        WORD Character;
    } cases[] = {{'A', 0, 1, 'a'},     {'A', 0x10, 1, 'A'}, {'2', 0x10, 1, '@'},
                 {0xBA, 0x10, 1, ':'}, {'Q', 0x14, 1, 'Q'}, {'C', 0x11, 1, 3},
                 {0x0D, 0, 1, '\r'},   {0x70, 0, 0, 0}};
    for (const auto& c : cases) {
        BYTE state[256] = {};
        if (c.Modifier) state[c.Modifier] = c.Modifier == 0x14 ? 1 : 0x80;
        WORD character = 0;
        EXPECT_EQ(ToAscii(c.Key, 0, state, &character, 0), c.Count) << c.Key << "/" << c.Modifier;
        if (c.Count == 0) continue;
        EXPECT_EQ(character, c.Character) << c.Key << "/" << c.Modifier;
    }
}

#if !defined(_WIN32)
TEST(Keyboard, HostReportsToggleStates) {
    TavuSetKeyState(20, 1);
    EXPECT_EQ(GetKeyState(20) & 1, 1);
    TavuSetKeyState(20, 0);
    EXPECT_EQ(GetKeyState(20), 0);
    EXPECT_EQ(GetKeyState(999), 0);
}

TEST(ModuleFile, NamesTheProgramAndCutsToTheBuffer) {
    char path[512] = {};
    DWORD length = GetModuleFileNameA(nullptr, path, sizeof(path));
    ASSERT_GT(length, 0u);
    EXPECT_NE(strstr(path, "tavutest_platform"), nullptr);
    char small[5] = {};
    EXPECT_EQ(GetModuleFileNameA(nullptr, small, sizeof(small)), 5u);
    EXPECT_EQ(strlen(small), 4u);
}
#endif
