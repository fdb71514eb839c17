#include "ScriptTypeTest.h"
#include "TAVUMap.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"

using MapTypes = ScriptTypeTest;

// Every name of the map's tables is walked end to end (tavuhost's
// map_members case). What a script cannot see: the clipping flags, which no
// member reads, and the value that "ZClipping" and "Origin" leave behind as
// they fail.
TEST_F(MapTypes, ClippingTogglesAndTheValuesFailingMembersLeave) {
    auto* map = static_cast<TAVUMap*>(g_UIManager.LoadElement(g_UIManager.Screen, "map", "Radar"));
    ASSERT_NE(map, nullptr);
    for (const char* method :
         {"ClipZ", "UnclipZ", "ToggleZClipping", "ClipText", "UnclipText", "ToggleTextClipping"})
        EXPECT_EQ(Method(pTAVUMapType, map, method), 1) << method;
    EXPECT_TRUE(map->ZClipping && map->ClipText);
    EXPECT_EQ(Member(pTAVUMapType, map, "ZClipping"), 0);
    EXPECT_EQ(Result.Value.UInt64, 1u); // the flag is left in the value
    EXPECT_EQ(Member(pTAVUMapType, map, "Origin"), 0);
    EXPECT_EQ(Result.Value.Pointer, &map->Origin);
}
