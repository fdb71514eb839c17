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
    EXPECT_EQ(child->X, 7);
    EXPECT_EQ(child->Width, 33);   // truncated towards zero
    EXPECT_EQ(child->Y, 55);       // past the far edge
    EXPECT_EQ(child->Height, -25); // a negative factor stays negative
    int x, y;
    unsigned width, height;
    ASSERT_TRUE(child->GetStoragePosition(x, y, width, height));
    EXPECT_EQ(x, 7);
    EXPECT_EQ(y, 55);
    EXPECT_EQ(width, 33u);
    EXPECT_EQ(height, unsigned(-25));
}

TEST_F(Geometry, AChangeAnywhereResolvesTheRestAndWalksDownOnlyWhenAsked) {
    TAVUElement* child = Sized("child", Parent);
    child->YPosition = FromFarEdge(10);
    child->HeightPosition = FromFarEdge(20);
    TAVUElement* grandchild = Sized("grandchild", child);
    grandchild->HeightPosition = Fraction(0.5f);

    child->RecalculateSize(true); // only Y and Height depend on the parent's height
    EXPECT_EQ(child->Y, 40);
    EXPECT_EQ(child->Height, 30);
    EXPECT_EQ(grandchild->Height, 15);
    EXPECT_EQ(g_Resized, (std::vector<std::string>{"child:changed", "grandchild:changed"}));

    g_Resized.clear();
    child->RecalculateSize(true);
    EXPECT_EQ(g_Resized, (std::vector<std::string>{"child:same"})); // the walk stops here

    g_Resized.clear();
    Parent->Height = 60;
    child->RecalculateSize(false);
    EXPECT_EQ(child->Height, 40);
    EXPECT_EQ(grandchild->Height, 15); // not asked to recurse
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
    EXPECT_EQ(Parent->AbsolutePosition.x, 100);
    EXPECT_EQ(child->AbsolutePosition.x, 105);
    EXPECT_EQ(child->AbsolutePosition.y, 206);
    EXPECT_EQ(grandchild->AbsolutePosition.x, 106);
    EXPECT_EQ(grandchild->AbsolutePosition.y, 208);
}
