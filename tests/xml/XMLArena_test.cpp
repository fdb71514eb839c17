// A parser frees a tree that nobody changed chunk by chunk, without visiting
// a node. Every change made after the parse must still be freed, once, when
// the parser goes (the sanitizers report a leak or a double free).
#include "XMLTestTree.h"

#include <gtest/gtest.h>

using xmltest::Dump;

namespace {

void AddNodeOfItsOwn(XMLNode* a) {
    new XMLNode(a, "d", XMLNode::Element);
}

void DeleteFirstChild(XMLNode* a) {
    XMLNode* b = a->FirstChild;
    a->FirstChild = b->Next;
    a->FirstChild->Prev = nullptr;
    b->Destroy();
}

} // namespace

TEST(XMLArena, ChangedTreesAreFreedWithTheirParser) {
    const struct {
        const char* Change;
        void (*Apply)(XMLNode* a);
        const char* Expected;
    } cases[] = {
        {"nothing", [](XMLNode*) {}, "e:a k=v\n  e:b\n  e:c\n"},
        {"attribute added", [](XMLNode* a) { a->SetAttribute("n", "1"); },
         "e:a k=v n=1\n  e:b\n  e:c\n"},
        {"attribute set", [](XMLNode* a) { a->SetAttribute("K", "w"); }, "e:a k=w\n  e:b\n  e:c\n"},
        {"value set", [](XMLNode* a) { a->FirstAttribute->SetValue("w"); },
         "e:a k=w\n  e:b\n  e:c\n"},
        {"renamed", [](XMLNode* a) { a->SetName("r"); }, "e:r k=v\n  e:b\n  e:c\n"},
        {"node of its own added", AddNodeOfItsOwn, "e:a k=v\n  e:b\n  e:c\n  e:d\n"},
        {"clone added", [](XMLNode* a) { a->FirstChild->Clone(a); },
         "e:a k=v\n  e:b\n  e:c\n  e:b\n"},
        {"child deleted", DeleteFirstChild, "e:a k=v\n  e:c\n"},
    };
    for (const auto& c : cases) {
        XMLParser parser;
        ASSERT_TRUE(parser.ParseBuffer("<a k=\"v\"><b/><c/></a>", 0));
        c.Apply(parser.Root->FirstChild);
        EXPECT_EQ(Dump(parser.Root), c.Expected) << c.Change;
        // The same parser reads the next document into chunks of its own.
        parser.Reset();
        ASSERT_TRUE(parser.ParseBuffer("<x y=\"1\">z</x>", 0)) << c.Change;
        EXPECT_EQ(Dump(parser.Root), "e:x y=1\n  t:z\n") << c.Change;
    }
}
