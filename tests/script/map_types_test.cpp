#include "ScriptTypeTest.h"
#include "TAVUMap.h"
#include "TAVUMapBlip.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"

#include <cmath>
#include <string>
#include <vector>

class MapTypes : public ScriptTypeTest {
protected:
    struct Row {
        const char* Name;
        std::vector<std::string> Args;
        int Answer;                   // of the dispatch on a live object
        const char* Result = nullptr; // the member's value as text, or null
    };

    // Every row of a type's table: each name answers as the row says on a
    // live object and 0 on no object, and no name lacks a row.
    void Walk(RXTypeDefinition* type, void* object, const std::vector<Row>& members,
              const std::vector<Row>& methods) {
        EXPECT_EQ(size_t(type->Members.Count()), members.size());
        EXPECT_EQ(size_t(type->Methods.Count()), methods.size());
        for (const Row& row : members) {
            SCOPED_TRACE(row.Name);
            EXPECT_EQ(Member(type, nullptr, row.Name, row.Args), 0);
            EXPECT_EQ(Member(type, object, row.Name, row.Args), row.Answer);
            if (row.Result) {
                EXPECT_EQ(ResultText(), row.Result);
            }
        }
        for (const Row& row : methods) {
            SCOPED_TRACE(row.Name);
            EXPECT_EQ(Method(type, nullptr, row.Name, row.Args), 0);
            EXPECT_EQ(Method(type, object, row.Name, row.Args), row.Answer);
        }
    }

    TAVUMap* NewMap() {
        return static_cast<TAVUMap*>(g_UIManager.LoadElement(g_UIManager.Screen, "map", "Radar"));
    }
};

TEST_F(MapTypes, EveryNameOfBothTablesAnswers) {
    TAVUMap* map = NewMap();
    ASSERT_NE(map, nullptr);
    Walk(pTAVUMapType, map,
         {{"BlipFactory", {}, 1, "mapblip"},
          {"BlipTemplate", {}, 0, nullptr},
          {"Origin", {}, 0, nullptr},
          {"Rotation", {}, 0, nullptr},
          {"MapSizeX", {}, 1, "100.00"},
          {"MapSizeY", {}, 1, "100.00"},
          {"Radial", {}, 1, "FALSE"},
          {"ZClipping", {}, 0, nullptr},
          {"xShowLabels", {}, 1, "TRUE"},
          {"Blips", {}, 1, "0"},
          {"Blip", {}, 0, nullptr},
          {"NextBlip", {"a"}, 0, nullptr}},
         {{"AddBlip", {"Ship", "1", "2", "3", "8", "Home", "", "mapblip"}, 1},
          {"SetOrigin", {}, 1},
          {"SetRotation", {"90"}, 1},
          {"SetMapSize", {"40"}, 1},
          {"ClipZ", {}, 1},
          {"UnclipZ", {}, 1},
          {"ToggleZClipping", {}, 1},
          {"ClipText", {}, 1},
          {"UnclipText", {}, 1},
          {"ToggleTextClipping", {}, 1},
          {"ShowLabels", {}, 1},
          {"HideLabels", {}, 1},
          {"ToggleLabels", {}, 1},
          {"EnableRotation", {}, 1},
          {"DisableRotation", {}, 1},
          {"ToggleRotation", {}, 1}});
    // What the methods left behind, read back through the members.
    EXPECT_EQ(Get(pTAVUMapType, map, "Rotation"), "1 90.00");
    EXPECT_EQ(Get(pTAVUMapType, map, "MapSizeY"), "1 40.00");
    EXPECT_EQ(Get(pTAVUMapType, map, "xShowLabels"), "1 TRUE");
    EXPECT_EQ(Get(pTAVUMapType, map, "Blip"), "1 ship");
    EXPECT_TRUE(map->ZClipping && map->ClipText);
    EXPECT_EQ(Member(pTAVUMapType, map, "ZClipping"), 0);
    EXPECT_EQ(Result.Value.UInt64, 1u); // the flag is left in the value
    EXPECT_EQ(Member(pTAVUMapType, map, "Origin"), 0);
    EXPECT_EQ(Result.Value.Pointer, &map->Origin);

    TAVUMapBlip* blip = map->FindBlip("Ship");
    ASSERT_NE(blip, nullptr);
    EXPECT_EQ(blip->Label, nullptr); // an empty seventh argument drops the label
    EXPECT_EQ(blip->Width, 8);
    Walk(pTAVUMapBlipType, blip,
         {{"Location", {}, 1, "point3f"},
          {"Custom", {}, 0, nullptr},
          {"Label", {}, 0, nullptr},
          {"Font", {}, 1, "tavufont"}},
         {{"SetType", {}, 0}, {"SetLabel", {"Home"}, 1}, {"SetCustom", {}, 1}, {"Remove", {}, 0}});
    EXPECT_EQ(map->FindBlip("Ship"), nullptr); // Remove took it away
    EXPECT_EQ(map->BlipCount, 0u);
}

TEST_F(MapTypes, AddBlipArgumentsAndTheWalkOverNames) {
    TAVUMap* map = NewMap();
    ASSERT_NE(map, nullptr);
    EXPECT_EQ(Method(pTAVUMapType, map, "AddBlip", {"b", "1.5", "-2"}), 1);
    EXPECT_EQ(Method(pTAVUMapType, map, "AddBlip", {"a", "0", "0", "0", "20", "Alpha"}), 1);
    EXPECT_EQ(Method(pTAVUMapType, map, "AddBlip", {"c", "nan", "inf", "1e99"}), 1);
    TAVUMapBlip* b = map->FindBlip("B");
    ASSERT_NE(b, nullptr);
    EXPECT_EQ(b->Width, 12); // the size when none is given
    EXPECT_EQ((std::vector<float>{b->Location.X, b->Location.Y, b->Location.Z}),
              (std::vector<float>{1.5f, -2.0f, 0.0f}));
    EXPECT_STREQ(map->FindBlip("a")->Label, "Alpha");
    Get(pTAVUMapType, map, "Blip", {"missing"}); // leaves an empty slot behind
    EXPECT_EQ(Get(pTAVUMapType, map, "Blip"), "1 a");
    EXPECT_EQ(Get(pTAVUMapType, map, "NextBlip", {"a"}), "1 tavumapblip");
    EXPECT_EQ(Result.Value.Pointer, b);
    EXPECT_EQ(Get(pTAVUMapType, map, "NextBlip", {"b"}), "1 tavumapblip"); // over "missing"
    EXPECT_EQ(Get(pTAVUMapType, map, "NextBlip", {"c"}), "0");
    EXPECT_EQ(Get(pTAVUMapType, map, "Blips"), "1 3");

    // A blip reads as its label, else its name; a map has no text form.
    char text[16] = "";
    RXObjectData object{};
    object.Value.Pointer = map->FindBlip("a");
    ASSERT_TRUE(pTAVUMapBlipType->ToTextSized(object, text, sizeof(text)));
    EXPECT_STREQ(text, "Alpha");
    object.Value.Pointer = b;
    ASSERT_TRUE(pTAVUMapBlipType->ToTextSized(object, text, sizeof(text)));
    EXPECT_STREQ(text, "b");
    object.Value.Pointer = map;
    EXPECT_FALSE(pTAVUMapType->ToTextSized(object, text, sizeof(text)));

    // A heading beyond a float's range is stored as an infinity, and read
    // only while rotation is on.
    EXPECT_EQ(Method(pTAVUMapType, map, "SetRotation", {"1e300"}), 1);
    EXPECT_TRUE(std::isinf(map->RotationAngle));
    EXPECT_EQ(Method(pTAVUMapType, map, "DisableRotation"), 1);
    EXPECT_EQ(Get(pTAVUMapType, map, "Rotation"), "0");
    EXPECT_EQ(Get(pTAVUMapType, map, "X"), "1 0");        // climbs to tavuelement
    EXPECT_EQ(Get(pTAVUMapBlipType, b, "Border"), "1 0"); // and a blip to tavuframe
}
