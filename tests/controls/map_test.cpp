#include "ControlTest.h"
#include "TAVUFont.h"
#include "TAVUMap.h"
#include "TAVUMapBlip.h"
#include "TAVUMapBlipView.h"
#include "TAVUMapView.h"
#include "TAVUTooltip.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>

namespace {
const float kNaN = std::numeric_limits<float>::quiet_NaN();
const float kInf = std::numeric_limits<float>::infinity();
const float kPi = 3.14159265f;

// One world position projected into a map 200 wide (and as high as the row
// says) with a 10 x 10 blip, around the origin (0,0,0).
struct ProjectionRow {
    const char* Case;
    bool Radial;
    bool Rotation;
    float Angle;
    float SizeX, SizeY;
    _Point3f Location;
    int MapHeight;
    bool Shown;
    int X, Y;
};
} // namespace

TEST(MapProjection, WorldPositionsLandWhereTheMapPutsThem) {
    const int kOff = INT32_MIN;
    const ProjectionRow rows[] = {
        {"box centre", false, false, 0, 100, 100, {0, 0, 0}, 200, true, 95, 95},
        {"box edges are in", false, false, 0, 100, 100, {100, -100, 0}, 200, true, 195, -5},
        {"box just outside", false, false, 0, 100, 100, {100.5f, 0, 0}, 200, false, 0, 0},
        {"box at the same place is in", false, false, 0, 100, 100, {100, 0, 0}, 200, true, 195, 95},
        {"radial at the radius", true, false, 0, 100, 100, {100, 0, 0}, 200, false, 0, 0},
        {"radial stretches a wide map", true, false, 0, 100, 100, {50, 0, 0}, 100, true, 145, 45},
        {"radial ignores the Y extent", true, false, 0, 100, 10, {0, 50, 0}, 200, true, 95, 145},
        {"turned at 0: a quarter turn", false, true, 0, 100, 100, {50, 0, 0}, 200, true, 95, 45},
        {"rotation at 90 degrees", false, true, kPi / 2, 100, 100, {50, 0, 0}, 200, true, 45, 95},
        {"turned corner is in", false, true, kPi / 4, 100, 100, {100, 100, 0}, 200, true, 95, -46},
        {"negative radius mirrors", true, false, 0, -100, 100, {50, 0, 0}, 200, true, 45, 95},
        {"negative box extent hides all", false, false, 0, -100, 100, {0, 0, 0}, 200, false, 0, 0},
        {"zero X extent in a box", false, false, 0, 0, 100, {0, 0, 0}, 200, true, kOff, 95},
        {"NaN passes the box test", false, false, 0, 100, 100, {kNaN, 0, 0}, 200, true, kOff, 95},
        {"NaN fails the radius test", true, false, 0, 100, 100, {kNaN, 0, 0}, 200, false, 0, 0},
        {"infinity is out of the box", false, false, 0, 100, 100, {0, -kInf, 0}, 200, false, 0, 0},
        {"huge extents", false, false, 0, 3e38f, 3e38f, {0, 0, 0}, 200, true, -5, -5},
        {"on the height band's top", false, false, 0, 100, 100, {0, 0, 10}, 200, true, 95, 95},
        {"on its bottom, radial", true, false, 0, 100, 100, {0, 0, -10}, 200, true, 95, 95},
        {"above the band", false, false, 0, 100, 100, {0, 0, 10.01f}, 200, false, 0, 0},
        {"NaN height is in the band", true, false, 0, 100, 100, {0, 0, kNaN}, 200, true, 95, 95},
    };
    for (const ProjectionRow& row : rows) {
        SCOPED_TRACE(row.Case);
        TAVUMapArea area;
        area.Radial = row.Radial;
        area.Rotation = row.Rotation;
        area.RotationAngle = row.Angle;
        area.MapSizeX = row.SizeX;
        area.MapSizeY = row.SizeY;
        area.ZClipping = true; // the band is 10 either side of the origin's height
        _Point2i at{7, 7};
        ASSERT_EQ(area.Project(row.Location, 200, row.MapHeight, 10, 10, at), row.Shown);
        if (row.Shown) {
            EXPECT_EQ(at.x, row.X);
            EXPECT_EQ(at.y, row.Y);
        }
    }
}

class MapTest : public ControlTest {
protected:
    TAVUMap* Map(const char* xml) {
        TAVUMap* map = Load<TAVUMap>("map", "Radar", xml);
        if (map) {
            map->Width = 200;
            map->Height = 200;
        }
        return map;
    }
    unsigned Add(TAVUMap* map, const char* name, float x, float y, const char* label = nullptr) {
        _Point3f at{x, y, 0};
        return map->AddBlip(name, at, 10, label, nullptr, nullptr);
    }
};

// How the keys read, and sizes a file leaves out, are tavuhost's map_keys case.
TEST_F(MapTest, BlipsAreAddedReplacedByNameAndRemoved) {
    TAVUMap* map = Map("<map/>");
    ASSERT_NE(map, nullptr);
    map->MapSizeX = map->MapSizeY = 100;
    unsigned first = Add(map, "Alpha", 0, 0, "A");
    unsigned other = Add(map, "Beta", 50, 50);
    ASSERT_TRUE(first && other);
    EXPECT_STREQ(map->FindBlip("Alpha")->Label, "A");
    unsigned again = Add(map, "Alpha", 10, 10);
    EXPECT_NE(again, first); // replaced: a new blip with a new ID
    EXPECT_EQ(map->BlipsByID.count(first), 0u);
    EXPECT_EQ(map->FindBlip("Alpha")->Label, nullptr);
    EXPECT_EQ(map->BlipCount, 3u); // a replacement counts as one more blip

    map->RemoveBlip(other);
    EXPECT_EQ(map->FindBlip("Beta"), nullptr);
    EXPECT_EQ(map->BlipCount, 2u);
    map->RemoveBlip(12345); // unknown: nothing, but the look-up leaves an empty slot
    _Point3f away{1, 2, 3};
    map->UpdateBlip(777, away);
    EXPECT_EQ(map->BlipCount, 2u);

    // A blip deleted by any other path leaves the registries with it.
    TAVUMapBlip* alpha = map->FindBlip("Alpha");
    map->DeleteChild(alpha);
    EXPECT_EQ(map->FindBlip("Alpha"), nullptr);
    EXPECT_EQ(map->BlipCount, 1u);
    RenderFrame(); // walks over the empty slots

    Add(map, "Gamma", 0, 0);
    map->ClearBlips();
    EXPECT_EQ(map->BlipCount, 0u);
    EXPECT_TRUE(map->BlipsByID.empty());
    EXPECT_EQ(map->FirstChild, nullptr);
    // A factory that makes no blip: nothing is added, and nothing is left.
    strcpy(map->BlipFactory, "frame");
    EXPECT_EQ(Add(map, "Bad", 0, 0), 0u);
    EXPECT_EQ(map->FirstChild, nullptr);
}

TEST_F(MapTest, AFrameMovesAndHidesTheBlipsAndDrawsTheirLabels) {
    TAVUMap* map = Map("<map><ShowLabels>1</ShowLabels></map>");
    ASSERT_NE(map, nullptr);
    map->MapSizeX = map->MapSizeY = 100;
    Add(map, "In", 50, 0, "in");
    Add(map, "Out", 500, 0, "out");
    Add(map, "Lost", kNaN, kInf, "lost");
    TAVUMapBlip* in = map->FindBlip("In");
    in->BackgroundColor = 0xFF00FF00;
    in->Font = TAVUFont::New(in, "Face", 12, false, false);
    TAVUMapBlip* out = map->FindBlip("Out");
    out->Font = TAVUFont::New(out, "Face", 12, false, false);
    RenderFrame();
    EXPECT_EQ((std::pair<int, int>(in->X, in->Y)), (std::pair<int, int>(145, 95)));
    EXPECT_TRUE(in->Visible);
    EXPECT_FALSE(map->FindBlip("Out")->Visible);
    EXPECT_FALSE(map->FindBlip("Lost")->Visible);
    ASSERT_EQ(Host.Texts.size(), 1u);
    // Right of the blip by 2; the font is taller than the blip, so no centring.
    EXPECT_EQ(Host.Texts[0].Value, "in");
    EXPECT_EQ(Host.Texts[0].Rect.left, 157);
    EXPECT_EQ(Host.Texts[0].Rect.top, 95);

    _Point3f back{0, 0, 0};
    map->UpdateBlip(map->FindBlip("Out")->ID, back); // moved back into range
    map->ShowLabels = false;
    RenderFrame();
    EXPECT_TRUE(map->FindBlip("Out")->Visible);
    EXPECT_TRUE(Host.Texts.empty());
}

TEST_F(MapTest, HoverFillsTheTooltipThroughTheBlipsScript) {
    TAVUMap* map = Map("<map><Children><tooltip Name='Tooltip'/></Children></map>");
    ASSERT_NE(map, nullptr);
    ASSERT_NE(map->Tooltip, nullptr);
    g_UIManager.AddTemplate("tipped", "<Template><OnSetTooltip>fill</OnSetTooltip></Template>");
    _Point3f at{0, 0, 0};
    unsigned tipped = map->AddBlip("Tipped", at, 10, nullptr, "tipped", nullptr);
    unsigned plain = Add(map, "Plain", 0, 0);
    RenderFrame();
    TAVUMapBlip* blip = map->FindBlip("Tipped");
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun& run) {
        static_cast<TAVUTooltip*>(map->Tooltip)->Print(("for " + run.Args[0]).c_str());
        return 0;
    };
    blip->OnMouseEnter(Point);
    EXPECT_EQ(map->HoverBlipID, tipped);
    EXPECT_TRUE(map->Tooltip->Visible);
    EXPECT_EQ((std::pair<int, int>(map->Tooltip->X, map->Tooltip->Y)),
              (std::pair<int, int>(blip->X + 10, blip->Y + 12)));
    EXPECT_EQ(std::string(map->Tooltip->GetLine(1)->Text),
              "for " + std::to_string(map->Tooltip->ID));
    blip->OnMouseExit(nullptr);
    EXPECT_EQ(map->HoverBlipID, 0u);
    EXPECT_FALSE(map->Tooltip->Visible);

    // Without a script nothing shows, and leaving still hides the tooltip.
    map->Tooltip->Show(true);
    map->FindBlip("Plain")->OnMouseEnter(Point);
    EXPECT_EQ(map->HoverBlipID, plain);
    map->FindBlip("Plain")->OnMouseExit(nullptr);
    EXPECT_FALSE(map->Tooltip->Visible);
}

TEST_F(MapTest, ABlipRemovedFromItsOwnEventOrTheMapWithItLeavesNothingBehind) {
    TAVUMap* map = Map("<map><Children><tooltip Name='Tooltip'/></Children></map>");
    ASSERT_NE(map, nullptr);
    g_UIManager.AddTemplate("clicky", "<Template><BackgroundColor>FF00FF00</BackgroundColor>"
                                      "<OnLeftClick>go</OnLeftClick>"
                                      "<OnSetTooltip>go</OnSetTooltip></Template>");
    _Point3f at{0, 0, 0};
    unsigned id = map->AddBlip("Self", at, 10, nullptr, "clicky", nullptr);
    map->AddBlip("Whole", at, 10, nullptr, "clicky", nullptr);
    RenderFrame();
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        map->RemoveBlip(id);
        return 0;
    };
    EXPECT_TRUE(map->FindBlip("Self")->OnLMouseUp(Point)); // under ASan
    EXPECT_EQ(map->FindBlip("Self"), nullptr);
    EXPECT_EQ(map->BlipCount, 1u);

    // The tooltip script deletes the whole map while it is asked to hover.
    Host.OnExecuteAtom = [&](const FakeHost::AtomRun&) {
        Parent->DeleteChild(map);
        return 0;
    };
    map->FindBlip("Whole")->OnMouseEnter(Point);
    EXPECT_EQ(Parent->FirstChild, nullptr);
}

TEST_F(MapTest, AViewFollowsTheBlipsOfAnotherMapUntilTheyGo) {
    TAVUMap* map = Map("<map/>");
    auto* view = Load<TAVUMapView>("mapview", "Mini",
                                   "<mapview><MapSizeX>400</MapSizeX>"
                                   "<MapSizeY>400</MapSizeY></mapview>");
    ASSERT_TRUE(map && view);
    view->Width = view->Height = 100;
    EXPECT_EQ(Load("mapblipview", "FromFile", "<mapblipview/>"), nullptr);
    Add(map, "Ship", 100, 0);
    TAVUMapBlipView* shown = view->AddView(map->FindBlip("Ship"));
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(view->AddView(map->FindBlip("Ship")), shown);
    RenderFrame();
    EXPECT_TRUE(shown->Visible);
    EXPECT_EQ((std::pair<int, int>(shown->X, shown->Y)), (std::pair<int, int>(70, 45)));
    map->ClearBlips();
    RenderFrame();
    EXPECT_FALSE(shown->Visible);
    view->DeleteChild(shown);
    EXPECT_TRUE(view->Views.empty());
}
