#include "XMLTestTree.h"

#include <gtest/gtest.h>

using xmltest::Dump;

TEST(XMLNode, SetAttributeReplacesIgnoringCaseOrAppends) {
    XMLNode node(nullptr, "n", XMLNode::Element);
    node.SetAttribute("Width", "1");
    node.SetAttribute("height", "2");
    node.SetAttribute("WIDTH", "3");
    node.SetAttribute("x", nullptr);
    XMLNode holder(nullptr, "h", XMLNode::Element);
    node.Clone(&holder);
    EXPECT_EQ(Dump(&holder), "e:n Width=3 height=2 x=\n");
    EXPECT_EQ(node.FindAttribute("HEIGHT"), node.FirstAttribute->Next);
    EXPECT_EQ(node.FindAttribute("depth"), nullptr);
}

TEST(XMLNode, CloneCopiesTheSubtreeInOrder) {
    XMLParser parser;
    ASSERT_TRUE(parser.ParseBuffer("<a k=\"v\"><b>t</b><!--c--><d><e/></d></a>", 0));
    XMLNode* a = parser.Root->FirstChild;
    XMLNode* copy = a->Clone(nullptr);
    EXPECT_EQ(copy->Parent, nullptr);
    XMLNode holder(nullptr, "h", XMLNode::Element);
    copy->Clone(&holder);
    EXPECT_EQ(Dump(&holder), Dump(parser.Root));
    EXPECT_NE(copy->FirstChild, a->FirstChild);
    copy->Destroy();
}

TEST(XMLNode, CloneIntoItsOwnSubtreeCopiesOnlyWhatWasThere) {
    XMLParser parser;
    ASSERT_TRUE(parser.ParseBuffer("<a><b/><c/></a>", 0));
    XMLNode* a = parser.Root->FirstChild;
    a->Clone(a->FirstChild);
    EXPECT_EQ(Dump(parser.Root), "e:a\n  e:b\n    e:a\n      e:b\n      e:c\n  e:c\n");
}

TEST(XMLNode, ParsedNodesOutliveTheirParserAndFreeOneByOne) {
    XMLNode* root = nullptr;
    {
        XMLParser parser(true);
        ASSERT_TRUE(parser.ParseBuffer("<a k=\"v\"><b>text</b><c/></a>", 0));
        root = parser.Root;
    }
    XMLNode* a = root->FirstChild;
    a->SetName("renamed");
    a->FirstAttribute->SetValue("w");
    a->SetAttribute("K", "x");
    a->SetAttribute("added", "y");
    // A child deleted alone, with its chain fixed by hand.
    XMLNode* b = a->FirstChild;
    a->FirstChild = b->Next;
    a->FirstChild->Prev = nullptr;
    b->Destroy();
    EXPECT_EQ(Dump(root), "e:renamed k=x added=y\n  e:c\n");
    root->Destroy();
}
