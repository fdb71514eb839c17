// Reading in pieces: results must not depend on where a piece ends, and
// hostile input must end in a result or a clear refusal.
#include "XMLTestTree.h"

#include <gtest/gtest.h>

#include <string>

using xmltest::Dump;
using xmltest::ParseText;

namespace {

// The subtree of the last top-level element's last child, as a picture.
std::string LastChildTree(const std::string& text) {
    XMLParser parser;
    EXPECT_TRUE(parser.ParseBuffer(text.data(), text.size())) << parser.ErrorText;
    if (!parser.Root || !parser.Root->LastChild || !parser.Root->LastChild->LastChild) return "";
    XMLNode holder(nullptr, "holder", XMLNode::Element);
    parser.Root->LastChild->LastChild->Clone(&holder);
    return Dump(&holder);
}

} // namespace

TEST(XMLStream, TokensAcrossPieceBoundariesComeOutWhole) {
    const std::string tail = "<b name=\"value &amp; more\">one two\tthree > = ' \" ; # ! ? [ ] / -"
                             "\r\n text&#65;<![CDATA[ c<d ]]>"
                             "<!-- note --></b>";
    const std::string expected = LastChildTree("<r>" + tail + "</r>");
    ASSERT_FALSE(expected.empty());
    // The first piece is 4096 bytes and later ones follow the buffer's growth;
    // blank padding slides every part of the tail across those boundaries.
    for (size_t pad = 4000; pad < 4140; ++pad) {
        std::string text = "<r>" + std::string(pad, ' ') + tail + "</r>";
        ASSERT_EQ(LastChildTree(text), expected) << "padding " << pad;
    }
    for (size_t pad = 8100; pad < 8220; pad += 3) {
        std::string text = "<r>" + std::string(pad, ' ') + tail + "</r>";
        ASSERT_EQ(LastChildTree(text), expected) << "padding " << pad;
    }
}

TEST(XMLStream, ASequenceCutByTheByteCountDecodesToReplacements) {
    // The first read takes 4096 bytes and ends inside the two bytes of "é".
    std::string text = "<a>" + std::string(4092, 'x') + "\xC3\xA9</a>";
    auto parsed = ParseText(text);
    ASSERT_TRUE(parsed.Ok);
    EXPECT_EQ(parsed.Tree, "e:a\n  t:" + std::string(4092, 'x') + "\xEF\xBF\xBD\xEF\xBF\xBD\n");
}

TEST(XMLStream, LongTokensUpToTheBufferLimit) {
    std::string word(1000000, 'w');
    auto parsed = ParseText("<a>" + word + "</a>");
    ASSERT_TRUE(parsed.Ok) << parsed.Error;
    EXPECT_EQ(parsed.Tree, "e:a\n  t:" + word + "\n");
    auto cdata = ParseText("<a><![CDATA[" + word + "]]></a>");
    ASSERT_TRUE(cdata.Ok) << cdata.Error;
    EXPECT_EQ(cdata.Tree.size(), word.size() + 18);
}

TEST(XMLStream, RefusesATokenLongerThanTheBufferLimit) {
    std::string huge(10 << 20, 'w');
    for (const std::string& text :
         {"<a>" + huge + "</a>", "<a/>" + huge, "<a><![CDATA[" + huge + "]]></a>"}) {
        auto parsed = ParseText(text);
        EXPECT_FALSE(parsed.Ok) << text.substr(0, 16);
        EXPECT_EQ(parsed.Error, "Memory allocation failed") << text.substr(0, 16);
    }
}

TEST(XMLStream, DeepNestingParsesClonesAndDeletesWithoutRecursion) {
    const int depth = 100000;
    std::string text;
    for (int i = 0; i < depth; ++i)
        text += "<e>";
    text += "x";
    for (int i = 0; i < depth; ++i)
        text += "</e>";
    XMLParser parser;
    ASSERT_TRUE(parser.ParseBuffer(text.data(), text.size())) << parser.ErrorText;
    XMLNode* copy = parser.Root->Clone(nullptr);
    int levels = 0;
    XMLNode* node = copy;
    while (node->FirstChild) {
        node = node->FirstChild;
        ++levels;
    }
    EXPECT_EQ(levels, depth + 1);
    EXPECT_STREQ(node->Name, "x");
    copy->Destroy();
}

TEST(XMLStream, DeepFailureReportsACutPath) {
    std::string text;
    for (int i = 0; i < 5000; ++i)
        text += "<element>";
    text += "<a b=c";
    XMLParser parser;
    EXPECT_FALSE(parser.ParseBuffer(text.data(), text.size()));
    std::string error = parser.ErrorText;
    EXPECT_EQ(error.size(), XMLParser::ErrorTextSize - 1);
    EXPECT_EQ(error.rfind("a@element@element@", 0), 0u);
}
