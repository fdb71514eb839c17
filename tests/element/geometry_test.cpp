#include "TAVUFactory.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {
std::vector<std::string> g_Resized;

// Records each SizeRecalculated call as "Name:changed" or "Name:same".
class SizedElement : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    void SizeRecalculated(bool changed) override {
        g_Resized.push_back(std::string(Name) + (changed ? ":changed" : ":same"));
    }
};
TAVUFactory<SizedElement> g_SizedFactory("sized");

ElementPosition Pixels(int value) {
    return {ElementPosition::Absolute, {.Pixels = value}};
}
ElementPosition Fraction(float factor) {
    return {ElementPosition::Fraction, {.Factor = factor}};
}
ElementPosition FromFarEdge(int value) {
    return {ElementPosition::FarEdge, {.Pixels = value}};
}
} // namespace

class Geometry : public ToolkitTest {
protected:
    void SetUp() override {
        ToolkitTest::SetUp();
        g_Resized.clear();
        Parent = Sized("parent", g_UIManager.Screen);
        Parent->Width = 101;
        Parent->Height = 50;
    }
    TAVUElement* Sized(const char* name, TAVUElement* parent) {
        return g_SizedFactory.CreateUIElement(parent, name);
    }
    // Where an element stands on its parent and how big it is, as "x,y wxh".
    static std::string Box(const TAVUElement* e) {
        return std::to_string(e->X) + "," + std::to_string(e->Y) + " " + std::to_string(e->Width) +
               "x" + std::to_string(e->Height);
    }
    static std::string At(const TAVUElement* e) {
        return std::to_string(e->AbsolutePosition.x) + "," + std::to_string(e->AbsolutePosition.y);
    }
    TAVUElement* Parent = nullptr;
};

TEST_F(Geometry, EachPositionFormResolvesAgainstTheParent) {
    TAVUElement* child = Sized("child", Parent);
    child->X = 7;
    child->XPosition = Pixels(3); // absolute: the integer stands as it is
    child->WidthPosition = Fraction(1.0f / 3.0f);
    child->YPosition = FromFarEdge(-5);
    child->HeightPosition = Fraction(-0.5f);
    child->RecalculateSize(false);
    // The width truncated towards zero, Y past the far edge, and a negative
    // factor stays negative.
    EXPECT_EQ(Box(child), "7,55 33x-25");
    int x, y;
    unsigned width, height;
    ASSERT_TRUE(child->GetStoragePosition(x, y, width, height));
    EXPECT_EQ(std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) + "x" +
                  std::to_string(height),
              "7,55 33x" + std::to_string(unsigned(-25)));
}

TEST_F(Geometry, AChangeAnywhereResolvesTheRestAndWalksDownOnlyWhenAsked) {
    TAVUElement* child = Sized("child", Parent);
    child->YPosition = FromFarEdge(10);
    child->HeightPosition = FromFarEdge(20);
    TAVUElement* grandchild = Sized("grandchild", child);
    grandchild->HeightPosition = Fraction(0.5f);

    child->RecalculateSize(true); // only Y and Height depend on the parent's height
    EXPECT_EQ(Box(child) + " " + Box(grandchild), "0,40 0x30 0,0 0x15");
    EXPECT_EQ(g_Resized, (std::vector<std::string>{"child:changed", "grandchild:changed"}));

    g_Resized.clear();
    child->RecalculateSize(true);
    EXPECT_EQ(g_Resized, (std::vector<std::string>{"child:same"})); // the walk stops here

    g_Resized.clear();
    Parent->Height = 60;
    child->RecalculateSize(false);
    EXPECT_EQ(Box(child) + " " + Box(grandchild), "0,50 0x40 0,0 0x15"); // not asked to recurse
    EXPECT_EQ(g_Resized, (std::vector<std::string>{"child:changed"}));
}

TEST_F(Geometry, AResizedParentReachesFractionalChildrenButNotAbsoluteSiblings) {
    TAVUElement* stretched = Sized("stretched", Parent);
    stretched->WidthPosition = Fraction(0.5f);
    TAVUElement* fixed = Sized("fixed", Parent);
    fixed->Width = 20;
    TAVUElement* below = Sized("below", fixed);
    below->WidthPosition = Fraction(1.0f);
    Parent->RecalculateChildrenSize();
    EXPECT_EQ(stretched->Width, 50);
    EXPECT_EQ(below->Width, 0); // its parent did not change, so it was not visited
    EXPECT_EQ(g_Resized, (std::vector<std::string>{"stretched:changed", "fixed:same"}));
}

TEST_F(Geometry, AbsolutePositionsReachTheWholeSubtreeWhateverItsVisibility) {
    TAVUElement* child = Sized("child", Parent);
    child->X = 5;
    child->Y = 6;
    child->Visible = false;
    TAVUElement* grandchild = Sized("grandchild", child);
    grandchild->X = 1;
    grandchild->Y = 2;
    _Point2i origin{100, 200};
    Parent->SetAbsolutePosition(origin);
    EXPECT_EQ(At(Parent) + " " + At(child) + " " + At(grandchild), "100,200 105,206 106,208");
}
