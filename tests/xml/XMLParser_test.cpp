#include "XMLTestTree.h"

#include <gtest/gtest.h>

#include <string>

using xmltest::ParseText;

TEST(XMLParser, WellFormedTextBuildsItsTree) {
    const struct {
        std::string Text, Tree;
    } cases[] = {
        {"<a x=\"1\" y='2'><b/>hi<c>t</c></a>", "e:a x=1 y=2\n  e:b\n  t:hi\n  e:c\n    t:t\n"},
        {"<a>  <b/>  </a>", "e:a\n  t:  \n  e:b\n  t:  \n"},
        {"<a>x\r\n\ty</a>", "e:a\n  t:x\r\n\ty\n"},
        {"<a/><b/>\n<!-- c --><?pi?>", "e:a\ne:b\nc:c \np:pi\n"},
        {"< a ><  /a>", "e:a\n"},
        {"<A></a>", "e:A\n"},
        {"<a / b=\"1\">", "e:a b=1\n"},
        {"<a b=\"1\"c=\"2\"/>", "e:a b=1 c=2\n"},
        {"<a b = \"1\" />", "e:a b=1\n"},
        // The token after a closing name is stepped over unseen, so the ">" of
        // "</b >" becomes text of the enclosing element.
        {"<a><b></b >x</a>", "e:a\n  e:b\n  t:>x\n"},
        {"<a v=\"x<y>'z\" w='say \"hi\"'/>", "e:a v=x<y>'z w=say \"hi\"\n"},
        {"<a v=\"&lt;&#65;&nope;\"/>", "e:a v=<AUNKNOWN-ENTITY\n"},
        {"<a v=\"\"/>", "e:a v=\n"},
        {"<a>&lt;&gt;&amp;&apos;&quot;</a>", "e:a\n  t:<>&'\"\n"},
        {"<a>&nope;</a>", "e:a\n  t:UNKNOWN-ENTITY\n"},
        {"<a>&LT;</a>", "e:a\n  t:UNKNOWN-ENTITY\n"},
        {"<a>&#65;&#x41;&#X41;</a>", "e:a\n  t:AA\n"},
        {"<a>&#233;</a>", "e:a\n  t:\xE9\n"},
        {"<a>&#x1F600;x</a>", "e:a\n  t:x\n"},
        {"<a>&#x4A;&#xff41;&#321;</a>", "e:a\n  t:JAA\n"},
        {"<a>&#0;</a>", "e:a\n"},
        {"<a><![CDATA[x<y]]></a>", "e:a\n  t:<![CDATA[x<y\n"},
        {"<a>p<![CDATA[&amp;]]>q</a>", "e:a\n  t:p<![CDATA[&amp;q\n"},
        {"<a><![CDATA[]]]]></a>", "e:a\n  t:<![CDATA[]]\n"},
        {"<a><![CDATA[]]></a>", "e:a\n  t:<![CDATA[\n"},
        {"<!--  lead kept? no, trail yes  -->", "c:lead kept? no, trail yes  \n"},
        {"<!--a-b--c-->", "c:abc\n"},
        {"<!---->", "c:\n"},
        {"<a><!-- x --></a>", "e:a\n  c:x \n"},
        {"<!DOCTYPE html SYSTEM \"about:legacy\"><a/>",
         "d:html type=SYSTEM SystemLiteral=about:legacy\ne:a\n"},
        {"<!doctype x public \"p 1\" s\">", "d:x type=PUBLIC PubidLiteral=p 1 SystemLiteral=s\n"},
        {"<!DOCTYPE x SYSTEM \"s\" NDATA gif>", "d:x type=SYSTEM SystemLiteral=s NDATA=gif\n"},
        {"<?xml version=\"1.0\" encoding='latin1'?>\n<a/>",
         "p:xml version=1.0 encoding=latin1\ne:a\n"},
        {"<a><?go now=\"1\"></a>", "e:a\n  p:go now=1\n"},
        {"<a>\xFF</a>", "e:a\n  t:\xEF\xBF\xBD\n"},
        {"<a v=\"\xC3\"/>", "e:a v=\xEF\xBF\xBD\n"},
        {"<a>\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80</a>",
         "e:a\n  t:\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\n"},
        // Whitespace alone is a document with a root and nothing in it.
        {" \n", ""},
        // A repeated attribute keeps its first place and name, and its last value.
        {"<a b=\"1\" b=\"2\"/>", "e:a b=2\n"},
        {"<a B=\"1\" c=\"x\" b=\"2\"/>", "e:a B=2 c=x\n"},
        {"<a v=\"" + std::string(4095, 'v') + "\"/>", "e:a v=" + std::string(4095, 'v') + "\n"},
        // A zero byte ends the document, in CDATA too.
        {std::string("<a/>\0junk", 9), "e:a\n"},
        {std::string("<a><![CDATA[x\0y]]>z</a>", 23), "e:a\n  t:<![CDATA[xz\n"},
    };
    for (const auto& c : cases) {
        auto parsed = ParseText(c.Text);
        EXPECT_TRUE(parsed.Ok) << c.Text << "\n" << parsed.Error;
        EXPECT_EQ(parsed.Tree, c.Tree) << c.Text;
    }
}

TEST(XMLParser, IllFormedTextFailsWithItsMessage) {
    const struct {
        std::string Text, Error;
    } cases[] = {
        {"<data-item/>", "Bad token '-' in tag"},
        {"<a -x=\"1\"/>", "Bad token '-' in tag"},
        // Inside an attribute name the hyphen is where "=" should be.
        {"<a data-x=\"1\"/>", "Unknown Error"},
        {"<a></b>", "Closing element b, expected a"},
        {"<a><b></a>", "Closing element a, expected b"},
        {"<a></a >", "Bad text outside elements: >"},
        {"<a b=1/>", "a@DOCUMENT ROOT: Invalid quote type in attribute b"},
        {"<Window><Text width=\"1", "Text@Window@DOCUMENT ROOT: Unexpected end in attribute width"},
        {"<a b", "a@DOCUMENT ROOT: Unexpected end in attribute b"},
        {"<a b=", "a@DOCUMENT ROOT: Unexpected end in attribute b"},
        {"<a b=\"", "a@DOCUMENT ROOT: Unexpected end in attribute b"},
        {"<a b=\"&#", "a@DOCUMENT ROOT: Unexpected end in attribute b"},
        {"<a b=\"&lt", "a@DOCUMENT ROOT: Unexpected end in attribute b"},
        {"<a b=\"&lt x\"/>", "a@DOCUMENT ROOT: Expected ; in XML entity in attribute b"},
        {"<?xml v=1?>", "xml@DOCUMENT ROOT: Invalid quote type in attribute v"},
        // These ends have no message of their own.
        {"<a b=\"&", "Unknown Error"},
        {"<a b ", "Unknown Error"},
        {"<a b c=\"1\"/>", "Unknown Error"},
        {"<a>&lt</a>", "Unknown Error"},
        {"<a>&</a>", "Unknown Error"},
        {"<!-x-->", "Badly formed comment"},
        {"<!-- x", "Unknown Error"},
        // A third hyphen ends the test and is kept, so "--->" does not close.
        {"<!-- x --->", "Unknown Error"},
        {"<![FOO[", "Unrecognized <![ tag: FOO"},
        {"<!FOO>", "Unrecognized <! tag: FOO"},
        {"<!ATTLIST x>", "ParseExAttlist not implemented"},
        {"<!element x>", "ParseExElement not implemented"},
        {"<!ENTITY x>", "ParseExEntity not implemented"},
        {"<!NOTATION x>", "ParseExNotation not implemented"},
        {"<! DOCTYPE x>", "Unknown Error"},
        // The usual second literal is taken as empty and its text then fails.
        {"<!DOCTYPE x PUBLIC \"a\" \"b\">", "Unknown Error"},
        {"<!DOCTYPE html>", "DOCTYPE Unknown DTD type: >"},
        {"<!DOCTYPE x [ ]>", "DOCTYPE internal subset not currently supported"},
        {"<!DOCTYPE x SYSTEM 's'>", "Badly formed DOCTYPE tag"},
        {"<!DOCTYPE x SYSTEM \"" + std::string(3000, 's') + "\">",
         "DOCTYPE literal longer than 2047 bytes"},
        {"<?xml-stylesheet?>", "Bad token in ? Tag: -"},
        {"<? ?>", "Unknown Error"},
        {"x<a/>", "Bad text outside elements: x"},
        {"<a/>&amp;", "Bad text outside elements: &"},
        {"</a>", "Unknown Error"},
        {"<a>", "Unknown Error"},
        {"<=", "Unknown Error"},
        {"<a =>", "Bad token '=' in tag"},
        {"<a v=\"" + std::string(4096, 'v') + "\"/>",
         "a@DOCUMENT ROOT: Value longer than 4095 bytes in attribute v"},
        {"<a v=\"" + std::string(1 << 19, 'v') + "\"/>",
         "a@DOCUMENT ROOT: Value longer than 4095 bytes in attribute v"},
        {std::string("<a>x\0y</a>", 10), "Unknown Error"},
        // An unterminated CDATA too short to be seen whole meets "[" "CDATA"
        // and fails quietly; "]]>" as the very last units is not taken as the end.
        {"<a><![CDATA[x", "Unknown Error"},
        {"<a><![CDATA[xy]", "Unknown Error"},
        {"<a><![CDATA[xyz]", "No end to CDATA tag"},
        {"<a><![CDATA[xy]]>", "No end to CDATA tag"},
        {"<a/><![CDATA[xyzzzz", "No end to CDATA tag"},
    };
    for (const auto& c : cases) {
        auto parsed = ParseText(c.Text);
        EXPECT_FALSE(parsed.Ok) << c.Text;
        EXPECT_EQ(parsed.Error, c.Error) << c.Text;
    }
}

TEST(XMLParser, ParsesOnlyOneDocumentUntilReset) {
    XMLParser parser;
    ASSERT_TRUE(parser.ParseBuffer("<a/>", 0));
    XMLNode* first = parser.Root;
    parser.SetErrorText("kept");
    EXPECT_FALSE(parser.ParseBuffer("<b/>", 0));
    EXPECT_EQ(parser.Root, first);
    EXPECT_STREQ(parser.ErrorText, "kept");
    parser.Reset();
    EXPECT_EQ(parser.Root, nullptr);
    EXPECT_STREQ(parser.ErrorText, "Unknown Error");
    ASSERT_TRUE(parser.ParseBuffer("<b/>", 0));
    EXPECT_STREQ(parser.Root->FirstChild->Name, "b");
}

TEST(XMLParser, EmptyOrBlankInputFailsWithoutRoot) {
    XMLParser parser;
    EXPECT_FALSE(parser.ParseBuffer("", 0));
    EXPECT_EQ(parser.Root, nullptr);
    EXPECT_STREQ(parser.ErrorText, "Unknown Error");
    EXPECT_FALSE(parser.ParseBuffer(nullptr, 0));
}

TEST(XMLParser, ManyAttributesKeepTheirPlaces) {
    std::string text = "<a", tree = "e:a";
    for (int i = 0; i < 40; ++i) {
        std::string value = i == 3 ? "last" : i == 39 ? "end" : std::to_string(i);
        text += " k" + std::to_string(i) + "=\"" + std::to_string(i) + "\"";
        tree += " k" + std::to_string(i) + "=" + value;
    }
    EXPECT_EQ(ParseText(text + " K3=\"last\" k39=\"end\"/>").Tree, tree + "\n");
}

TEST(XMLParser, UnterminatedCDATAFailsAtEveryLengthNearTheLookAhead) {
    for (size_t length = 0; length < 40; ++length) {
        std::string text = "<a>" + std::string("<![CDATA[x]]>y").substr(0, length);
        auto parsed = ParseText(text);
        EXPECT_FALSE(parsed.Ok) << text;
    }
}

TEST(XMLParser, FailedParseKeepsTheTreeBuiltSoFar) {
    XMLParser parser;
    EXPECT_FALSE(parser.ParseBuffer("<a><b>text<c x=1/></b></a>", 0));
    EXPECT_EQ(xmltest::Dump(parser.Root), "e:a\n  e:b\n    t:text\n    e:c\n");
}
