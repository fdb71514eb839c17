#include "ScriptTypeTest.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"
#include "TAVUSkin.h"
#include "TAVUTexture.h"
#include "TAVUTopLevelObjects.h"

#include <gtest/gtest.h>

namespace {
TAVUFactory<TAVUElement> g_PanelFactory("panel");
} // namespace

class ScriptTypes : public ScriptTypeTest {
protected:
    TAVUElement* Panel(const char* name, TAVUElement* parent = nullptr) {
        return g_PanelFactory.CreateUIElement(parent ? parent : g_UIManager.Screen, name);
    }
};

// Registering the types, the persistent class, the objects and the commands,
// and removing them all at shutdown, are checked end to end by tavuhost's
// trace cases; what the host cannot see is the toolkit's own pointer.
TEST_F(ScriptTypes, ShutdownLeavesNoTypePointerDangling) {
    ASSERT_NE(pTAVUElementType, nullptr);
    g_UIManager.Shutdown();
    EXPECT_EQ(pTAVUElementType, nullptr);
}

// A script reaches an object only through a member that found one, so no
// script asks a name of no object; the toolkit's own callers can. Every name
// of every type refuses it, with no arguments and with many: the tavuhost
// cases that walk the tables (NAME_members) cover the live objects.
TEST_F(ScriptTypes, EveryNameOfEveryTypeRefusesNoObject) {
    const std::vector<std::string> many(8, "1");
    for (const TAVUScriptTypeSlot& slot : g_TAVUScriptTypes) {
        RXTypeDefinition* type = *slot.Global;
        if (!type) continue;
        for (CIndex<_RXTypeMember*>* table : {&type->Members, &type->Methods})
            for (unsigned place = 0; place < table->GetSize(); ++place) {
                _RXTypeMember* record = table->Get(place);
                if (!record) continue;
                for (const auto& args : {std::vector<std::string>{}, many}) {
                    bool isMember = table == &type->Members;
                    int answer = isMember ? Member(type, nullptr, record->Name, args)
                                          : Method(type, nullptr, record->Name, args);
                    EXPECT_EQ(answer, 0) << slot.Name << (isMember ? "." : ":") << record->Name
                                         << " with " << args.size() << " arguments";
                }
            }
    }
}

// Versions, element members and methods read or driven one at a time are
// checked end to end by tavuhost's elements case; these are the rest.
TEST_F(ScriptTypes, TheToolkitObjectAnswersWhatItKnowsAndNoMore) {
    _RXTypeVar tavukit{};
    ASSERT_TRUE(TavukitObject(0, nullptr, tavukit));
    EXPECT_EQ(tavukit.Type, pTAVUKitType);
    void* kit = tavukit.Value.Pointer;
    EXPECT_EQ(Get(pTAVUKitType, kit, "CurrentSkin"), "0"); // none current
    EXPECT_EQ(Get(pTAVUKitType, kit, "NoSuchThing"), "-1");
    EXPECT_EQ(Method(pTAVUKitType, kit, "Version"), -1);
    char text[16] = "unchanged";
    RXObjectData object{};
    object.Value.UInt64 = 1;
    EXPECT_FALSE(pTAVUKitType->ToTextSized(object, text, sizeof(text)));
}

TEST_F(ScriptTypes, UIElementFindsByNameAndNumbersAsIDs) {
    TAVUElement* named = Panel("MainWindow");
    Panel("123");
    std::string id = std::to_string(named->ID);
    struct Case {
        std::string Argument;
        bool Found;
    } cases[] = {{"mainwindow", true},
                 {"00" + id, true},
                 {id + ".5", true}, // read as the whole ID
                 {"123", false}};   // digits are an ID, never a name
    for (Case& c : cases) {
        _RXTypeVar found{};
        char* argv[] = {c.Argument.data()};
        ASSERT_EQ(UIElementObject(1, argv, found), c.Found) << c.Argument;
        if (!c.Found) continue;
        EXPECT_EQ(found.Value.Pointer, named) << c.Argument;
        EXPECT_EQ(found.Type, pTAVUElementType) << c.Argument;
    }
    _RXTypeVar none{};
    EXPECT_FALSE(UIElementObject(0, nullptr, none));
}

TEST_F(ScriptTypes, UserInputIsTheScriptsTextOrNothing) {
    _RXTypeVar input{};
    EXPECT_FALSE(UserInputObject(0, nullptr, input)); // not in a script
    Host.InScript = true;
    EXPECT_FALSE(UserInputObject(0, nullptr, input)); // no answer yet
    Host.Script.SetUserInput("yes");
    ASSERT_TRUE(UserInputObject(0, nullptr, input));
    EXPECT_STREQ(input.Value.Text, "yes");
    EXPECT_EQ(input.Type, Host.HostTypes["string"]);
}

TEST_F(ScriptTypes, ElementMembersReadFieldsAndTheRequiredGapsStay) {
    TAVUElement* element = Panel("Box");
    element->Strata = -3;
    element->FadeState = 2;
    EXPECT_EQ(Get(pTAVUElementType, element, "Strata"), "1 -3");
    EXPECT_EQ(Get(pTAVUElementType, element, "FadeState"), "1 FADING");
    EXPECT_EQ(Get(pTAVUElementType, element, "Children"), "0"); // none
    EXPECT_EQ(Get(pTAVUElementType, nullptr, "X"), "0");        // known member, no object
    EXPECT_EQ(Get(pTAVUElementType, element, "HitTest", {"1"}), "0");
    EXPECT_EQ(Get(pTAVUElementType, element, "FindChild"), "0");
    char name[4];
    RXObjectData object{};
    object.Value.Pointer = element;
    ASSERT_TRUE(pTAVUElementType->ToTextSized(object, name, sizeof(name)));
    EXPECT_EQ(std::string(name, 3), "box");
}

TEST_F(ScriptTypes, ElementMethodsRefuseMissingArgumentsAndDestroyReportsFailure) {
    TAVUElement* parent = Panel("Parent");
    TAVUElement* child = Panel("Child", parent);
    EXPECT_EQ(Method(pTAVUElementType, child, "SetX"), 0);
    EXPECT_EQ(Method(pTAVUElementType, child, "SetZOrder", {"sideways"}), 0);
    EXPECT_EQ(Method(pTAVUElementType, child, "SetLeftClickThru", {"true"}), 1);
    EXPECT_TRUE(child->LeftClickThru);
    EXPECT_EQ(Method(pTAVUElementType, child, "Destroy"), 0);
    EXPECT_EQ(parent->FirstChild, nullptr);
}

TEST_F(ScriptTypes, AddChildLoadsXmlTextUnderTheElementWithASkin) {
    TAVUElement* parent = Panel("Parent");
    g_UIManager.AddTemplate("Wide", "<Template><Width>300</Width></Template>");
    g_UIManager.AddTemplate("Narrow", "<Template><Width>30</Width></Template>");
    g_UIManager.NewSkin("Slim")->AddTemplate("Wide", "Narrow");
    EXPECT_EQ(Member(pTAVUElementType, parent, "AddChild",
                     {"panel", "Made", "<panel Template=\"Wide\"/>", "Slim"}),
              1);
    EXPECT_EQ(static_cast<TAVUElement*>(Result.Value.Pointer)->Width, 30);
    EXPECT_EQ(g_UIManager.CurrentSkin, nullptr);
    EXPECT_EQ(Method(pTAVUElementType, parent, "AddChild", {"panel", "Other", "<panel/>"}), 1);
    EXPECT_EQ(Method(pTAVUElementType, parent, "AddChild", {"panel", "Bad", "<panel"}), 0);
    EXPECT_EQ(Method(pTAVUElementType, parent, "AddChild", {"panel", "Few"}), 0);
}

// Every name of the texture's and font's tables is walked end to end
// (tavuhost's resource_members case); a script cannot see what a failing or
// boolean member leaves in the value.
TEST_F(ScriptTypes, TextureMembersLeaveTheMaskedWordAndTheBorder) {
    TAVUTexture* texture = TAVUTexture::New("stone.png");
    texture->Border = 4;
    EXPECT_EQ(Method(pTAVUTextureType, texture, "SetAlpha", {"0.5"}), 1);
    EXPECT_EQ(Member(pTAVUTextureType, texture, "HasAlpha"), 1);
    EXPECT_EQ(Result.Value.UInt64, 2u); // the masked word
    EXPECT_EQ(Member(pTAVUTextureType, texture, "Border"), 0);
    EXPECT_EQ(Result.Value.Int, 4); // written all the same
    TAVUTexture::Delete(texture);
}
