// Types that modules add to the key registry: read like the toolkit's own,
// refused when they would clash or overflow, gone once removed.
#include "TAVUKeyRegistry.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

const TAVUKeyInfo kDialKeys[] = {{"Needle", TAVUKeyColor, "The needle's colour."}};
const TAVUKeyType kDial = {"dial", "frame", kDialKeys, 1, "A round gauge."};

TEST(KeyRegistryModules, AnAddedTypeReadsItsOwnKeysAndItsBases) {
    unsigned before = TAVUKeyRegistry::TypeCount();
    {
        TAVUKeyTypeRegistration registration(kDial);
        int dial = TAVUKeyRegistry::FindType("DIAL");
        ASSERT_EQ(dial, int(before));
        EXPECT_EQ(TAVUKeyRegistry::TypeCount(), before + 1);
        EXPECT_TRUE(TAVUKeyRegistry::MadeFromFiles(unsigned(dial)));
        EXPECT_EQ(TAVUKeyRegistry::KeyCount(unsigned(dial)), 1u);
        EXPECT_EQ(TAVUKeyRegistry::FindKey(unsigned(dial), "needle"), &kDialKeys[0]);
        const TAVUKeyInfo* border = TAVUKeyRegistry::FindKey(unsigned(dial), "BorderColor");
        ASSERT_NE(border, nullptr); // the frame's
        EXPECT_EQ(TAVUKeyRegistry::FindKey(unsigned(dial), "OnLoad")->Kind, TAVUKeyScript);
        EXPECT_EQ(TAVUKeyRegistry::NearestKey(unsigned(dial), "Neddle"), &kDialKeys[0]);
        EXPECT_EQ(TAVUKeyRegistry::FindKey(unsigned(dial), "Dial"), nullptr);
    }
    EXPECT_EQ(TAVUKeyRegistry::FindType("dial"), -1);
    EXPECT_EQ(TAVUKeyRegistry::TypeCount(), before);
    EXPECT_EQ(TAVUKeyRegistry::TypeName(before), nullptr);
}

TEST(KeyRegistryModules, RefusesTypesThatWouldClash) {
    const TAVUKeyType kRefused[] = {
        {nullptr, "frame", kDialKeys, 1, "no name"},
        {"", "frame", kDialKeys, 1, "empty name"},
        {"BUTTON", "frame", kDialKeys, 1, "the toolkit's name"},
        {"dial2", "nosuchtype", kDialKeys, 1, "unknown base"},
        {"dial3", nullptr, kDialKeys, 1, "no base"},
        {"dial4", "frame", nullptr, 3, "keys missing"},
    };
    unsigned before = TAVUKeyRegistry::TypeCount();
    for (const TAVUKeyType& type : kRefused) {
        EXPECT_FALSE(TAVUKeyRegistry::AddType(&type)) << type.Documentation;
        EXPECT_EQ(TAVUKeyRegistry::TypeCount(), before) << type.Documentation;
    }
    EXPECT_FALSE(TAVUKeyRegistry::AddType(nullptr));
    ASSERT_TRUE(TAVUKeyRegistry::AddType(&kDial));
    EXPECT_FALSE(TAVUKeyRegistry::AddType(&kDial)); // its name is taken now
    TAVUKeyRegistry::RemoveType(&kDial);
    TAVUKeyRegistry::RemoveType(&kDial); // a second removal does nothing
    EXPECT_EQ(TAVUKeyRegistry::TypeCount(), before);
}

TEST(KeyRegistryModules, TheRoomForModulesTypesIsBounded) {
    enum : unsigned { Room = TAVUKeyRegistry::MaxAddedTypes };
    std::vector<std::string> names;
    for (unsigned at = 0; at <= Room; ++at)
        names.push_back("moduletype" + std::to_string(at));
    std::vector<TAVUKeyType> types;
    for (const std::string& name : names)
        types.push_back({name.c_str(), "element", nullptr, 0, ""});
    for (unsigned at = 0; at < Room; ++at)
        EXPECT_TRUE(TAVUKeyRegistry::AddType(&types[at])) << at;
    EXPECT_FALSE(TAVUKeyRegistry::AddType(&types[Room]));
    EXPECT_EQ(TAVUKeyRegistry::FindType(names[Room].c_str()), -1);
    // A type in the middle goes; those after it are still found.
    TAVUKeyRegistry::RemoveType(&types[1]);
    EXPECT_EQ(TAVUKeyRegistry::FindType("moduletype1"), -1);
    EXPECT_GE(TAVUKeyRegistry::FindType("moduletype2"), 0);
    for (const TAVUKeyType& type : types)
        TAVUKeyRegistry::RemoveType(&type);
    EXPECT_EQ(TAVUKeyRegistry::FindType("moduletype0"), -1);
}

} // namespace
