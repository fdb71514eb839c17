#include "RXTypeDefinition.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

enum : uint32_t { MemberWidth = 1, MemberFails = 2 };

// A small value type in the toolkit's manner: its handler switches on the ID
// and a null object fails.
class GadgetType : public RXTypeDefinition {
public:
    using RXTypeDefinition::RXTypeDefinition;

    bool GetMember(RXObjectData& object, _RXTypeMember* member, int argc, char* argv[],
                   _RXTypeVar& result) override {
        LastMemberID = member->ID;
        if (!object.Value.Pointer) return false;
        switch (member->ID) {
        case MemberWidth:
            result.Type = this;
            result.Value.Int = 42;
            return true;
        default:
            return false;
        }
    }
    uint32_t LastMemberID = 0;
};

// Records what the base operations pass on to the overridable ones.
class ProbeType : public RXTypeDefinition {
public:
    ProbeType() : RXTypeDefinition("probe") {}
    bool ParseText(RXObjectData& object, const char* text) override {
        Parsed = text;
        return true;
    }
    bool GetMemberByName(RXObjectData& object, const char* name, int argc, char* argv[],
                         _RXTypeVar& result) override {
        ByName = name;
        return true;
    }
    bool GetMethodByName(RXObjectData& object, const char* name, int argc, char* argv[]) override {
        ByName = name;
        return true;
    }
    std::string Parsed;
    std::string ByName;
};

RXObjectData ObjectOf(void* pointer) {
    RXObjectData object{};
    object.Value.Pointer = pointer;
    return object;
}

int ChainLength(_RXTypeMember* head) {
    int length = 0;
    for (; head; head = head->Next)
        ++length;
    return length;
}

_RXTypeMember* MemberChain(RXTypeDefinition& type, const char* name) {
    auto entry = type.MemberNames.find(name);
    return entry == type.MemberNames.end() ? nullptr : type.Members.Get(entry->second - 1);
}

bool RecordingMember(RXTypeDefinition* type, RXObjectData& object, int argc, char* argv[],
                     _RXTypeVar& result) {
    result.Type = type;
    result.Value.Int = argc;
    return true;
}

int dummyHandlerA, dummyHandlerB;

} // namespace

TEST(RXTypeDefinition, TypeNameIsCutTo31Characters) {
    RXTypeDefinition type("abcdefghijklmnopqrstuvwxyz0123456789");
    EXPECT_STREQ("abcdefghijklmnopqrstuvwxyz01234", type.TypeName);
    EXPECT_STREQ("abcdefghijklmnopqrstuvwxyz01234", type.GetName());
    EXPECT_EQ(&type, type.GetVariableType());
}

TEST(RXTypeDefinition, ExplicitIdsRaiseTheNextAutomaticIdAndNamesMatchExactly) {
    RXTypeDefinition type("t");
    EXPECT_EQ(1u, type.NextMemberID);
    for (uint32_t id : {0, 1, 3})
        EXPECT_TRUE(type.AddMember(id, ("M" + std::to_string(id)).c_str(), nullptr)) << id;
    EXPECT_EQ(4u, type.NextMemberID);
    EXPECT_TRUE(type.AddMember(2, "M2", nullptr)) << "a lower ID leaves the counter alone";
    EXPECT_TRUE(type.AddMember("Auto", nullptr));
    EXPECT_EQ(4u, MemberChain(type, "Auto")->ID);
    EXPECT_EQ(5u, type.NextMemberID);
    EXPECT_EQ(1u, type.NextMethodID) << "members and methods count separately";
    EXPECT_TRUE(type.AddMember(7, "m2", nullptr)) << "another case is another name";
    EXPECT_EQ(7u, MemberChain(type, "m2")->ID);
    // One name with one handler is refused a second time, whatever the ID.
    EXPECT_FALSE(type.AddMember(2, "M2", nullptr));
    EXPECT_FALSE(type.AddMember(9, "M2", nullptr));
    EXPECT_EQ(1, ChainLength(MemberChain(type, "M2")));
    EXPECT_EQ(6u, type.MemberNames.size());
}

TEST(RXTypeDefinition, SameNameWithOtherHandlersFormsAChainWithTheNewestFirst) {
    RXTypeDefinition type("t");
    EXPECT_TRUE(type.AddMember(7, "Size", nullptr));
    EXPECT_TRUE(type.AddMember("Size", &dummyHandlerA));
    EXPECT_TRUE(type.AddMember("Size", &dummyHandlerB));
    _RXTypeMember* head = MemberChain(type, "Size");
    ASSERT_EQ(3, ChainLength(head));
    EXPECT_EQ(&dummyHandlerB, head->Handler);
    EXPECT_EQ(nullptr, head->Previous);
    EXPECT_EQ(head, head->Next->Previous);
    EXPECT_EQ(&dummyHandlerA, head->Next->Handler);
    EXPECT_EQ(nullptr, head->Next->Next->Handler);
    // The automatic form reuses the ID of the name it joins.
    for (_RXTypeMember* record = head; record; record = record->Next) {
        EXPECT_EQ(7u, record->ID);
        EXPECT_STREQ("Size", record->Name);
    }
    EXPECT_EQ(1u, type.Members.Count());
}

TEST(RXTypeDefinition, TablesGrowByTenAndSlotsAreReused) {
    RXTypeDefinition type("t");
    for (uint32_t id = 1; id <= 11; ++id)
        ASSERT_TRUE(type.AddMember(id, ("M" + std::to_string(id)).c_str(), nullptr));
    EXPECT_EQ(20u, type.Members.GetSize());
    EXPECT_TRUE(type.RemoveMember("M3", nullptr));
    EXPECT_EQ(type.MemberNames.end(), type.MemberNames.find("M3"));
    EXPECT_FALSE(type.RemoveMember("M3", nullptr));
    EXPECT_TRUE(type.AddMember(50, "Fresh", nullptr));
    EXPECT_EQ(3u, type.MemberNames["Fresh"]) << "the freed third slot is taken again";
}

TEST(RXTypeDefinition, RemoveUnlinksOnlyTheRecordWithThatHandler) {
    GadgetType type("t");
    type.AddMember(1, "Width", nullptr);
    type.AddMember(1, "Width", &dummyHandlerA);
    EXPECT_FALSE(type.RemoveMember("Width", &dummyHandlerB));
    EXPECT_FALSE(type.RemoveMember("Missing", nullptr));
    EXPECT_TRUE(type.RemoveMember("Width", &dummyHandlerA));
    ASSERT_EQ(1, ChainLength(MemberChain(type, "Width")));
    EXPECT_EQ(nullptr, MemberChain(type, "Width")->Previous);

    RXObjectData object = ObjectOf(&type);
    _RXTypeVar result{};
    EXPECT_EQ(1, type.DispatchMember(object, "Width", 0, nullptr, result));
    EXPECT_TRUE(type.RemoveMember("Width", nullptr));
    EXPECT_EQ(-1, type.DispatchMember(object, "Width", 0, nullptr, result));
    EXPECT_EQ(0u, type.Members.Count());
}

TEST(RXTypeDefinition, DispatchMemberAnswersOneZeroOrMinusOne) {
    GadgetType type("gadget");
    type.AddMember(MemberWidth, "Width", nullptr);
    type.AddMember(MemberFails, "Fails", nullptr);
    RXObjectData object = ObjectOf(&type);
    _RXTypeVar result{};

    EXPECT_EQ(1, type.DispatchMember(object, "Width", 0, nullptr, result));
    EXPECT_EQ(&type, result.Type);
    EXPECT_EQ(42, result.Value.Int);
    EXPECT_EQ(0, type.DispatchMember(object, "Fails", 0, nullptr, result));
    EXPECT_EQ(MemberFails, type.LastMemberID);
    EXPECT_EQ(-1, type.DispatchMember(object, "width", 0, nullptr, result));
    EXPECT_EQ(-1, type.DispatchMember(object, nullptr, 0, nullptr, result));

    RXObjectData nothing = ObjectOf(nullptr);
    EXPECT_EQ(0, type.DispatchMember(nothing, "Width", 0, nullptr, result))
        << "a known member on a null object fails rather than being unknown";
}

TEST(RXTypeDefinition, ARecordWithItsOwnHandlerIsCalledDirectly) {
    GadgetType type("gadget");
    type.AddMember(MemberWidth, "Width", reinterpret_cast<void*>(&RecordingMember));
    RXObjectData object = ObjectOf(nullptr);
    _RXTypeVar result{};
    char a[] = "a", b[] = "b";
    char* argv[] = {a, b};
    EXPECT_EQ(1, type.DispatchMember(object, "Width", 2, argv, result));
    EXPECT_EQ(2, result.Value.Int);
    EXPECT_EQ(0u, type.LastMemberID) << "GetMember is bypassed";
}

// Unknown names climb to the base type's names through the fallbacks of the
// toolkit's own types: the control type tests and tavuhost's cases fail when
// the climb breaks.
TEST(RXTypeDefinition, InheritanceFollowsTheDeclaredBaseOnly) {
    RXTypeDefinition element("element"), frame("frame"), window("window");
    element.AddMember(1, "Name", nullptr);
    element.AddMethod(1, "Show", nullptr);
    frame.AddMember(1, "Border", nullptr);
    frame.Initialize(&element);
    window.Initialize(&frame);
    // Its own names are not inherited; a member name is no method.
    const struct {
        RXTypeDefinition* Type;
        const char* Name;
        bool Member, Method;
    } cases[] = {{&window, "Border", true, false}, {&window, "Name", true, false},
                 {&window, "Show", false, true},   {&window, "Title", false, false},
                 {&frame, "Border", false, false}, {&element, "Name", false, false},
                 {&window, nullptr, false, false}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.Type->TypeName) + " " + (c.Name ? c.Name : "null"));
        EXPECT_EQ(c.Type->InheritsMember(c.Name), c.Member);
        EXPECT_EQ(c.Type->InheritsMethod(c.Name), c.Method);
    }
}

TEST(RXTypeDefinition, BaseOperationsPassOnToTheirNamedForms) {
    ProbeType type;
    type.AddMember(1, "Color", nullptr);
    type.AddMethod(1, "Paint", nullptr);
    RXObjectData object = ObjectOf(&type);
    _RXTypeVar result{};
    EXPECT_EQ(1, type.DispatchMember(object, "Color", 0, nullptr, result));
    EXPECT_EQ("Color", type.ByName);
    EXPECT_EQ(1, type.DispatchMethod(object, "Paint", 0, nullptr));
    EXPECT_EQ("Paint", type.ByName);
    EXPECT_TRUE(type.FromText(object, "12 apples"));
    EXPECT_EQ("12 apples", type.Parsed);

    RXTypeDefinition plain("plain");
    char buffer[8] = "keep";
    EXPECT_FALSE(plain.FromText(object, "x"));
    EXPECT_FALSE(plain.ToTextSized(object, buffer, sizeof(buffer)));
    EXPECT_FALSE(plain.ToText(object, buffer));
    EXPECT_STREQ("keep", buffer);
    EXPECT_EQ(-1, plain.GetIndex(object, 0, nullptr, result));
    plain.AddMember(1, "Color", nullptr);
    EXPECT_EQ(0, plain.DispatchMember(object, "Color", 0, nullptr, result));
}

TEST(RXTypeDefinition, FromArgumentsJoinsWithBlanksWithinItsBuffer) {
    ProbeType type;
    RXObjectData object{};
    char one[] = "1", two[] = "two", three[] = "3.5";
    char* argv[] = {one, two, three};
    EXPECT_TRUE(type.FromArguments(object, 3, argv));
    EXPECT_EQ("1 two 3.5", type.Parsed);
    EXPECT_TRUE(type.FromArguments(object, 0, nullptr));
    EXPECT_EQ("", type.Parsed);

    std::vector<std::string> words(3, std::string(2000, 'w'));
    char* long_argv[] = {words[0].data(), words[1].data(), words[2].data()};
    EXPECT_TRUE(type.FromArguments(object, 3, long_argv));
    EXPECT_EQ(4095u, type.Parsed.size());
    EXPECT_EQ(' ', type.Parsed[2000]);
    EXPECT_EQ(' ', type.Parsed[4001]);
    EXPECT_EQ(std::string(93, 'w'), type.Parsed.substr(4002));
}

TEST(RXTypeDefinition, InitVariableRefusesSubtypesAndClearsTheValue) {
    RXTypeDefinition type("int");
    RXObjectData object{};
    object.Value.UInt64 = 0x1122334455667788ull;
    object.Extra = 99;
    EXPECT_FALSE(type.InitVariable(object, "sub"));
    EXPECT_EQ(0x1122334455667788ull, object.Value.UInt64);
    EXPECT_TRUE(type.InitVariable(object, ""));
    EXPECT_EQ(0u, object.Value.UInt64);
    EXPECT_EQ(99u, object.Extra) << "only the first 8 bytes are the value";
    object.Value.Int = 5;
    EXPECT_TRUE(type.InitVariable(object, nullptr));
    EXPECT_EQ(0, object.Value.Int);
}
