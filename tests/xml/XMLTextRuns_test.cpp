// Runs of text are scanned several bytes at a time, a closing name equal to
// its element's is stepped over without a token, and short names and values
// are kept once per arena chunk: none of it may change what a document reads
// as.
#include "XMLTestTree.h"

#include <gtest/gtest.h>

#include <string>

using xmltest::ParseText;

namespace {

// Text of the given length in bytes, mixing plain bytes, blanks and other
// one-character tokens with, unless asciiOnly, two-byte characters whose
// second byte differs from "<" or "&" only in its top bit.
std::string MixedText(size_t bytes, size_t seed, bool asciiOnly) {
    static const char* const kPieces[] = {"x",  " ",        "=",        "-",
                                          "\t", "\xC3\xA9", "\xC2\xBC", "\xC2\xA6"};
    size_t pieces = asciiOnly ? 5 : 8;
    std::string text;
    for (size_t i = 0; text.size() < bytes; ++i)
        text += kPieces[(i * 7 + seed) % pieces];
    return text;
}

} // namespace

TEST(XMLTextRuns, StopAtTheFirstMarkupByteWhereverItStands) {
    for (size_t bytes = 1; bytes < 40; ++bytes) {
        std::string text = MixedText(bytes, bytes, false);
        auto parsed = ParseText("<a>" + text + "<b/>" + text + "&amp;" + text + "</a>");
        ASSERT_TRUE(parsed.Ok) << parsed.Error;
        EXPECT_EQ(parsed.Tree, "e:a\n  t:" + text + "\n  e:b\n  t:" + text + "&" + text + "\n")
            << "length " << bytes;
    }
    // The first piece read is 4096 bytes: the text runs across its end at
    // every position (a character cut there would read as replacements).
    for (size_t pad = 4050; pad < 4100; ++pad) {
        std::string text = std::string(pad, 'p') + MixedText(60, pad, true);
        auto parsed = ParseText("<a>" + text + "<b/></a>");
        ASSERT_TRUE(parsed.Ok) << parsed.Error;
        EXPECT_EQ(parsed.Tree, "e:a\n  t:" + text + "\n  e:b\n") << "padding " << pad;
    }
}

// Every node and attribute owns its texts, however often a document repeats
// them: a change made in place to one shows in no other.
TEST(XMLTextRuns, RepeatedTextsAreEachTheirOwn) {
    std::string text = "<r>";
    for (int i = 0; i < 50; ++i)
        text += "<item k=\"v\">24</item>\n";
    text += "</r>";
    XMLParser parser;
    ASSERT_TRUE(parser.ParseBuffer(text.data(), text.size()));
    XMLNode* first = parser.Root->FirstChild->FirstChild;
    first->Name[0] = 'X';
    first->FirstAttribute->Name[0] = 'X';
    first->FirstAttribute->Value[0] = 'X';
    first->FirstChild->Name[0] = 'X';
    first->Next->Name[0] = 'X'; // the blank behind the first item
    for (XMLNode* node = first->Next->Next; node; node = node->Next) {
        if (node->Type == XMLNode::Text) {
            ASSERT_STREQ(node->Name, "\n");
            continue;
        }
        ASSERT_STREQ(node->Name, "item");
        ASSERT_STREQ(node->FirstAttribute->Name, "k");
        ASSERT_STREQ(node->FirstAttribute->Value, "v");
        ASSERT_STREQ(node->FirstChild->Name, "24");
    }
}

// A tree kept after its parser is gone goes node by node, and each chunk with
// its last node: every name and value must belong to its own node's chunk.
TEST(XMLTextRuns, TextsGoWithTheirChunk) {
    std::string text = "<r>";
    for (int i = 0; i < 3000; ++i)
        text += "<item k=\"v\">24</item>\n";
    text += "</r>";
    XMLNode* root = nullptr;
    {
        XMLParser parser(true);
        ASSERT_TRUE(parser.ParseBuffer(text.data(), text.size()));
        root = parser.Root;
    }
    XMLNode* r = root->FirstChild;
    while (XMLNode* child = r->FirstChild) {
        r->FirstChild = child->Next;
        if (r->FirstChild)
            r->FirstChild->Prev = nullptr;
        else
            r->LastChild = nullptr;
        child->Destroy();
        XMLNode* last = r->LastChild ? r->LastChild->Prev : nullptr;
        if (!last) continue;
        ASSERT_STREQ(last->Name, "item");
        ASSERT_STREQ(last->FirstAttribute->Value, "v");
        ASSERT_STREQ(last->FirstChild->Name, "24");
    }
    root->Destroy();
}

TEST(XMLTextRuns, NamesReadAsTokensWould) {
    const struct {
        const char* Text;
        bool Ok;
        const char* Result; // the tree, or the error
    } cases[] = {
        {"<a></A>", true, "e:a\n"},
        {"<ab></a>", false, "Closing element a, expected ab"},
        {"<a></ab>", false, "Closing element ab, expected a"},
        {"<a></a-b>", false, "Bad text outside elements: b"},
        {"<a>x</a", false, "Unknown Error"},
    };
    for (const auto& c : cases) {
        auto parsed = ParseText(c.Text);
        EXPECT_EQ(parsed.Ok, c.Ok) << c.Text;
        EXPECT_EQ(c.Ok ? parsed.Tree : parsed.Error, c.Result) << c.Text;
    }
    // A name cut by the end of the first piece read is not taken for the
    // part in front of the cut. (A "<" makes sure that twelve more
    // characters are held, so only a longer name can reach the cut.)
    const std::string name = "abcdefghijklmnop";
    for (size_t pad = 4040; pad < 4080; ++pad) {
        auto parsed = ParseText("<r><" + name + ">" + std::string(pad, ' ') + "</" + name + "q></" +
                                name + "></r>");
        EXPECT_EQ(parsed.Error, "Closing element " + name + "q, expected " + name)
            << "padding " << pad;
        // The same for an opening name.
        auto opened = ParseText("<r>" + std::string(pad, ' ') + "<" + name + "/></r>");
        EXPECT_EQ(opened.Tree, "e:r\n  t:" + std::string(pad, ' ') + "\n  e:" + name + "\n")
            << "padding " << pad;
    }
}
