// The key registry against the readers: every type's reader is run over a
// bare node and over a node that carries each listed key, and the keys it
// looks up on that node must be exactly the ones its row (with its bases)
// lists.
#include "TAVUElementFactory.h"
#include "TAVUKeyRegistry.h"
#include "TAVUScreen.h"
#include "ToolkitTest.h"
#include "XMLHelper.h"

#include <cctype>
#include <set>
#include <string>

namespace {

std::string Lower(const char* text) {
    std::string lower(text);
    for (char& c : lower)
        c = char(std::tolower((unsigned char)c));
    return lower;
}

class KeyRecorder : public XMLKeyWatcher {
public:
    void OnKeyLookup(const XMLNode* node, const char* name) override {
        if (node && (node == Watched || node == WatchedTemplate)) Keys.insert(Lower(name));
    }
    const XMLNode* Watched = nullptr;
    const XMLNode* WatchedTemplate = nullptr;
    std::set<std::string> Keys;
};

std::set<std::string> ListedKeys(unsigned type) {
    std::set<std::string> keys;
    for (int at = int(type); at >= 0;
         at = TAVUKeyRegistry::FindType(TAVUKeyRegistry::BaseType(at))) {
        for (unsigned i = 0; i < TAVUKeyRegistry::KeyCount(unsigned(at)); ++i)
            keys.insert(Lower(TAVUKeyRegistry::Key(unsigned(at), i)->Name));
        if (!TAVUKeyRegistry::BaseType(at)) break;
    }
    return keys;
}

// A node of the type that carries every listed key, each empty.
std::string FullNode(unsigned type) {
    std::string attributes, children;
    for (int at = int(type); at >= 0;
         at = TAVUKeyRegistry::FindType(TAVUKeyRegistry::BaseType(at))) {
        for (unsigned i = 0; i < TAVUKeyRegistry::KeyCount(unsigned(at)); ++i) {
            const TAVUKeyInfo* key = TAVUKeyRegistry::Key(unsigned(at), i);
            if (key->Kind == TAVUKeyAttribute)
                attributes += std::string(" ") + key->Name + "=\"\"";
            else if (key->Kind == TAVUKeyTexture) // a texture that loads, so its mask is read
                children += std::string("<") + key->Name + " Filename=\"t.png\"/>";
            else
                children += std::string("<") + key->Name + "/>";
        }
        if (!TAVUKeyRegistry::BaseType(at)) break;
    }
    const char* name = TAVUKeyRegistry::TypeName(type);
    return std::string("<") + name + attributes + ">" + children + "</" + name + ">";
}

class KeyRegistryTest : public ToolkitTest {
protected:
    void TearDown() override {
        XMLHelper::SetKeyWatcher(nullptr);
        ToolkitTest::TearDown();
    }

    // Loads an element of the type from the XML, with the same XML as its
    // template when asked (some keys are read from the template alone), and
    // records what it looked up on either.
    void Record(unsigned type, const std::string& xml, const char* name, bool withTemplate) {
        XMLNode* node = Parse(xml);
        ASSERT_NE(node, nullptr) << xml;
        Recorder.Watched = node;
        Recorder.WatchedTemplate =
            withTemplate ? g_UIManager.AddTemplate(name, Parse(xml)) : nullptr;
        XMLHelper::SetKeyWatcher(&Recorder);
        g_UIManager.LoadElement(g_UIManager.Screen, TAVUKeyRegistry::TypeName(type), name, node,
                                withTemplate ? name : nullptr);
        XMLHelper::SetKeyWatcher(nullptr);
    }

    KeyRecorder Recorder;
};

// Keys that a reader reaches only past a part the empty keys of the test
// cannot make: the combo box's items go into a list that must load first, a
// scroll bar's buttons come from a template whose buttons load, and only
// then does a window's or combo box's loader reach the children.
const std::set<std::string> kReadOnlyPastAPart = {"combobox.items",
                                                  "combobox.children",
                                                  "window.children",
                                                  "scrollbar.upbutton",
                                                  "scrollbar.downbutton",
                                                  "scrollbar.uptexture",
                                                  "scrollbar.uptexturehover",
                                                  "scrollbar.uptexturepressed",
                                                  "scrollbar.downtexture",
                                                  "scrollbar.downtexturehover",
                                                  "scrollbar.downtexturepressed"};

TEST_F(KeyRegistryTest, EachTypeReadsExactlyTheKeysItsRowLists) {
    for (unsigned type = 1; type < TAVUKeyRegistry::TypeCount(); ++type) {
        if (!TAVUKeyRegistry::MadeFromFiles(type)) continue; // no row to drift
        SCOPED_TRACE(TAVUKeyRegistry::TypeName(type));
        Recorder.Keys.clear();
        std::string name = std::string("bare") + TAVUKeyRegistry::TypeName(type);
        Record(type, std::string("<") + TAVUKeyRegistry::TypeName(type) + "/>", name.c_str(),
               false);
        name = std::string("full") + TAVUKeyRegistry::TypeName(type);
        Record(type, FullNode(type), name.c_str(), true);

        std::set<std::string> listed = ListedKeys(type);
        for (const std::string& key : Recorder.Keys)
            EXPECT_TRUE(listed.count(key)) << "read but not listed: " << key;
        // The file loader reads the name before any type's reader.
        Recorder.Keys.insert("name");
        std::string prefix = std::string(TAVUKeyRegistry::TypeName(type)) + ".";
        for (const std::string& key : listed)
            EXPECT_TRUE(Recorder.Keys.count(key) || kReadOnlyPastAPart.count(prefix + key))
                << "listed but never read: " << key;
    }
}

TEST_F(KeyRegistryTest, EveryFactoryHasARowAndEveryRowAFactory) {
    for (const auto& entry : g_UIManager.Factories) {
        const char* type = entry.second->TypeName;
        // The fixture types of this test program have no row.
        static const std::set<std::string> kFixtures = {"notifiedparent", "recording", "sized",
                                                        "testclient", "testelement"};
        if (!type || kFixtures.count(Lower(type))) continue;
        EXPECT_GE(TAVUKeyRegistry::FindType(type), 0) << type;
    }
    for (unsigned type = 1; type < TAVUKeyRegistry::TypeCount(); ++type)
        EXPECT_NE(g_UIManager.FindFactory(TAVUKeyRegistry::TypeName(type)), nullptr)
            << TAVUKeyRegistry::TypeName(type);
}

TEST_F(KeyRegistryTest, NearestKeySuggestsTyposOnly) {
    const int button = TAVUKeyRegistry::FindType("Button");
    ASSERT_GE(button, 0);
    const struct {
        const char* Typed;
        const char* Suggested; // null: nothing is near enough
    } kCases[] = {
        {"Widht", "Width"}, {"texturehovr", "TextureHover"},
        {"Txt", "Text"},    {"OnLeftClik", "OnLeftClick"},
        {"Zebra", nullptr}, {"", nullptr},
    };
    for (const auto& c : kCases) {
        const TAVUKeyInfo* found = TAVUKeyRegistry::NearestKey(unsigned(button), c.Typed);
        EXPECT_STREQ(found ? found->Name : nullptr, c.Suggested) << c.Typed;
    }
    EXPECT_EQ(TAVUKeyRegistry::FindKey(unsigned(button), "WIDTH")->Kind, TAVUKeyPosition);
    EXPECT_EQ(TAVUKeyRegistry::FindKey(unsigned(button), "Range"), nullptr);
}

} // namespace
