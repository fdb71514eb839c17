#include "PathHelpers.h"
#include "StringHelpers.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/stat.h>

// The quick first-byte answer must agree with the full comparison for every
// pair of first bytes, letters or not (0x40 and 0x60 differ in the case bit
// alone, yet are different characters).
TEST(StringHelpers, EqualNoCaseAgreesWithCompareForEveryFirstByte) {
    for (int a = 1; a < 256; ++a) {
        for (int b = 1; b < 256; ++b) {
            const char left[] = {char(a), 'k', 0};
            const char right[] = {char(b), 'K', 0};
            ASSERT_EQ(StrEqualNoCase(left, right), StrCompareNoCase(left, right) == 0)
                << a << " " << b;
        }
    }
    const struct {
        const char *A, *B;
        bool Equal;
    } cases[] = {{nullptr, "", true},
                 {"", nullptr, true},
                 {nullptr, "x", false},
                 {"OnLeftClick", "onleftclick", true},
                 {"Item1", "Item10", false}};
    for (const auto& item : cases)
        EXPECT_EQ(StrEqualNoCase(item.A, item.B), item.Equal) << (item.A ? item.A : "null");
}

#if !defined(_WIN32)
// A path is cut at 511 characters before it is looked for, ASCII or not: a
// 512-byte path whose first 511 bytes name a file finds that file.
TEST(PathHelpers, CutAtTheSameLengthWhateverTheBytes) {
    char folder[] = "/tmp/tavu-pathXXXXXX";
    ASSERT_NE(mkdtemp(folder), nullptr);
    std::string first = std::string(folder) + "/" + std::string(200, 'a');
    std::string second = first + "/" + std::string(200, 'b');
    ASSERT_EQ(mkdir(first.c_str(), 0700), 0);
    ASSERT_EQ(mkdir(second.c_str(), 0700), 0);
    std::string file = second + "/" + std::string(511 - second.size() - 1, 'c');
    ASSERT_EQ(file.size(), 511u);
    FILE* created = fopen(file.c_str(), "wb");
    ASSERT_NE(created, nullptr);
    fclose(created);
    std::string accented = second + "/\xC3\xA9t\xC3\xA9";
    created = fopen(accented.c_str(), "wb");
    ASSERT_NE(created, nullptr);
    fclose(created);

    EXPECT_TRUE(PathFileExists(file.c_str()));
    EXPECT_TRUE(PathFileExists((file + "z").c_str()));
    EXPECT_FALSE(PathFileExists((file.substr(0, 510)).c_str()));
    EXPECT_TRUE(PathFileExists(accented.c_str()));
    EXPECT_FALSE(PathFileExists(second.c_str()));

    remove(accented.c_str());
    remove(file.c_str());
    rmdir(second.c_str());
    rmdir(first.c_str());
    rmdir(folder);
}
#endif
