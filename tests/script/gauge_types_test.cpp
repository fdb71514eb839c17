#include "ScriptTypeTest.h"
#include "TAVUGauge.h"
#include "TAVUScreen.h"
#include "TAVUScriptTypes.h"

#include <string>
#include <utility>
#include <vector>

class GaugeTypes : public ScriptTypeTest {};

// What the members and methods do to a gauge and its filler is compared end
// to end in tavuhost's gauge case; this walks the tables.
TEST_F(GaugeTypes, EveryNameOfTheTablesAnswersAndBorderAlwaysFails) {
    auto* gauge = static_cast<TAVUGauge*>(g_UIManager.LoadElement(
        g_UIManager.Screen, "gauge", "Health",
        Parse("<gauge><Range>4</Range><Vertical>1</Vertical><Border>3</Border></gauge>"), nullptr));
    ASSERT_NE(gauge, nullptr);
    gauge->SetValue(2.5f);
    const std::vector<std::pair<const char*, std::string>> members = {
        {"Border", "0"}, // registered here without a case: the frame's is never reached
        {"Vertical", "1 TRUE"},
        {"Range", "1 4.00"},
        {"Value", "1 2.50"}};
    ASSERT_EQ(size_t(pTAVUGaugeType->Members.Count()), members.size());
    for (const auto& [name, answer] : members) {
        EXPECT_EQ(Get(pTAVUGaugeType, gauge, name), answer) << name;
        EXPECT_EQ(Get(pTAVUGaugeType, nullptr, name), "0") << name;
    }
    EXPECT_EQ(Get(pTAVUGaugeType, gauge, "BackgroundColor"), "1 0"); // climbs to tavuframe

    // Each method is refused without its argument or object, and takes any text.
    ASSERT_EQ(pTAVUGaugeType->Methods.Count(), 2);
    for (const char* method : {"SetRange", "SetValue"}) {
        EXPECT_EQ(Method(pTAVUGaugeType, gauge, method), 0) << method;
        EXPECT_EQ(Method(pTAVUGaugeType, nullptr, method, {"1"}), 0) << method;
        for (const char* text : {"banana", "-1e39", "1e999", "nan", "-0", "3"})
            EXPECT_EQ(Method(pTAVUGaugeType, gauge, method, {text}), 1) << text;
    }
    EXPECT_EQ(Get(pTAVUGaugeType, gauge, "Value"), "1 3.00"); // SetValue[3] within SetRange[3]
}
