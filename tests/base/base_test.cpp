#include "CIndex.h"
#include "CWinLock.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"
#include "utf8stringnocase.h"

#include <gtest/gtest.h>

#include <map>

TEST(StringHelpers, CompareIgnoresAsciiCaseOnly) {
    EXPECT_EQ(StrCompareNoCase("Button", "bUTTON"), 0);
    EXPECT_LT(StrCompareNoCase("abc", "ABD"), 0);
    EXPECT_GT(StrCompareNoCase("abcd", "ABC"), 0);
    EXPECT_EQ(StrCompareNoCase(nullptr, ""), 0);
    EXPECT_NE(StrCompareNoCase("\xC3\x89", "\xC3\xA9"), 0); // no case folding beyond ASCII
    EXPECT_EQ(StrCompareNoCaseN("Tavukit", "TAVUkat", 4), 0);
}

TEST(StringHelpers, BoundedCopyCutsAndTerminates) {
    char buffer[5] = {'x', 'x', 'x', 'x', 'x'};
    EXPECT_EQ(StrCopyBounded(buffer, "abcdefgh", sizeof(buffer)), 4u);
    EXPECT_STREQ(buffer, "abcd");
    EXPECT_EQ(StrCopyBounded(buffer, nullptr, sizeof(buffer)), 0u);
    EXPECT_STREQ(buffer, "");
    char* lowered = StrLower(StrDuplicate("MiXeD-Case 1"));
    EXPECT_STREQ(lowered, "mixed-case 1");
    StrFree(lowered);
    EXPECT_EQ(StrDuplicate(nullptr), nullptr);
}

TEST(Utf8String, CopiesOwnTheirText) {
    utf8string a("hello");
    utf8string b = a;
    a = "changed";
    EXPECT_STREQ(b.c_str(), "hello");
    EXPECT_EQ(b.Length(), 5u);
    utf8string moved = std::move(a);
    EXPECT_STREQ(moved.c_str(), "changed");
    EXPECT_STREQ(a.c_str(), "");
    EXPECT_TRUE(utf8string().Empty());
    EXPECT_TRUE(utf8string("a") < utf8string("b"));
    EXPECT_FALSE(utf8string("A") == utf8string("a"));
}

TEST(Utf8StringNoCase, KeysAMapWithoutRegardToCase) {
    std::map<utf8stringnocase, int> map;
    map[utf8stringnocase("MainWindow")] = 1;
    map[utf8stringnocase("MAINWINDOW")] = 2;
    EXPECT_EQ(map.size(), 1u);
    EXPECT_EQ(map[utf8stringnocase("mainwindow")], 2);
    EXPECT_TRUE(utf8stringnocase("Alpha") == "ALPHA");
    // Through the base class the comparison is still the case-blind one.
    const utf8string& base = map.begin()->first;
    EXPECT_EQ(base.Compare("mainWINDOW"), 0);
}

TEST(CIndex, ReusesTheFirstFreePlaceAndGrowsByTen) {
    CIndex<int*> index;
    int values[12] = {};
    EXPECT_EQ(index.GetSize(), 0u);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(index.Add(&values[i]), i);
    EXPECT_EQ(index.GetSize(), 10u);
    EXPECT_EQ(index.Add(&values[10]), 10);
    EXPECT_EQ(index.GetSize(), 20u);
    index.Remove(3);
    index.Remove(7);
    EXPECT_EQ(index[3], nullptr);
    EXPECT_EQ(index.Add(&values[11]), 3);
    EXPECT_EQ(index[3], &values[11]);
    EXPECT_EQ(index.Count(), 10u);
    EXPECT_EQ(index[99], nullptr); // out of range reads as free
    index.Clear();
    EXPECT_EQ(index.Count(), 0u);
    EXPECT_EQ(index.GetSize(), 20u);
}

TEST(CWinLock, UnlocksWhatItStillHoldsWhenItGoes) {
    CRITICAL_SECTION section;
    InitializeCriticalSection(&section);
    {
        CWinLock lock(&section, true);
        EXPECT_TRUE(lock.IsLocked());
        lock.Lock(); // a second Lock is not a second entry
        lock.Unlock();
        EXPECT_FALSE(lock.IsLocked());
        lock.Lock();
    }
    // The destructor left the section: locking it again from a fresh lock works
    // and leaves the count balanced for DeleteCriticalSection.
    CPortableLock* portable = new CWinLock();
    portable->SetLockObject(&section);
    portable->Lock();
    EXPECT_TRUE(portable->IsLocked());
    delete portable;
    DeleteCriticalSection(&section);
}

TEST(NumberHelpers, OutOfRangeTruncationIsDefined) {
    EXPECT_EQ(TruncateToInt(12.9f), 12);
    EXPECT_EQ(TruncateToInt(-12.9f), -12);
    EXPECT_EQ(TruncateToInt(4294967296.0f), INT32_MIN);
    EXPECT_EQ(TruncateToInt(0.0f / 0.0f), INT32_MIN);
}
