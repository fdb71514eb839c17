#include "StringHelpers.h"
#include "XMLCodePage.h"
#include "XMLEscape.h"

#include <gtest/gtest.h>

#include <string>

TEST(XMLEscape, ReplacesMarkupAndRepeatedBlanks) {
    std::string out = "keep:";
    XMLEscape("a \"b\" & <c>  d   e\t'f'", out);
    EXPECT_EQ(out, "keep:a &quot;b&quot; &amp; &lt;c&gt; &#32;d &#32;&#32;e\t'f'");
    std::string empty;
    XMLEscape("", empty);
    XMLEscape(nullptr, empty);
    EXPECT_EQ(empty, "");
}

TEST(XMLEscape, BufferFormIsBoundedAndTerminated) {
    char buffer[16];
    EXPECT_EQ(XMLEscapeToBuffer("a<b", buffer, sizeof buffer), 7u);
    EXPECT_STREQ(buffer, "a&lt;b");
    // An entity that does not fit whole is left out with all that follows.
    char small[6] = {'x', 'x', 'x', 'x', 'x', 'x'};
    EXPECT_EQ(XMLEscapeToBuffer("ab&cd", small, 5), 3u);
    EXPECT_STREQ(small, "ab");
    EXPECT_EQ(small[5], 'x');
    EXPECT_EQ(XMLEscapeToBuffer("abcdef", small, 4), 4u);
    EXPECT_STREQ(small, "abc");
    EXPECT_EQ(XMLEscapeToBuffer("abc", small, 0), 0u);
    EXPECT_EQ(XMLEscapeToBuffer("", small, 4), 1u);
    EXPECT_STREQ(small, "");
}

TEST(XMLCodePage, ConvertsBetweenSystemCodePageAndUtf8) {
    char* utf8 = XMLAnsiToUtf8("caf\xE9");
    ASSERT_NE(utf8, nullptr);
    EXPECT_STREQ(utf8, "caf\xC3\xA9");
    char* ansi = XMLUtf8ToAnsi(utf8);
    ASSERT_NE(ansi, nullptr);
    EXPECT_STREQ(ansi, "caf\xE9");
    StrFree(utf8);
    StrFree(ansi);
    EXPECT_EQ(XMLAnsiToUtf8(nullptr), nullptr);
}
