#include "ToolkitTest.h"

#include "Module.h"
#include "Platform.h"
#include "TAVUFactory.h"
#include "TAVUScreen.h"
#include "XMLNode.h"

#include <new>

namespace {
// Plain elements made by tests are deleted through this factory.
TAVUFactory<TAVUElement> g_TestElementFactory("testelement");
} // namespace

void ResetToolkit() {
    auto factories = g_UIManager.Factories;
    g_UIManager.~CUIManager();
    g_pHost = nullptr;
    g_pHostScript = nullptr;
    new (&g_UIManager) CUIManager();
    for (auto& entry : factories)
        if (entry.second) g_UIManager.Factories.insert(entry);
}

void ToolkitTest::SetUp() {
    TavuDriveClock(kStartTick);
    ResetToolkit();
    F1(&Host);
    g_UIManager.Initialize();
}

void ToolkitTest::TearDown() {
    g_UIManager.Shutdown();
    ResetToolkit();
    TavuReleaseClock();
}

TAVUElement* ToolkitTest::MakeElement(const char* name, TAVUElement* parent) {
    return g_TestElementFactory.CreateUIElement(parent ? parent : g_UIManager.Screen, name);
}

TAVUElement* ToolkitTest::MakeBox(const char* name, int x, int y, int w, int h,
                                  TAVUElement* parent) {
    TAVUElement* element = MakeElement(name, parent);
    element->X = x, element->Y = y, element->Width = w, element->Height = h;
    return element;
}

XMLNode* ToolkitTest::Parse(const std::string& text) {
    Documents.push_back(std::make_unique<XMLParser>());
    XMLParser& document = *Documents.back();
    EXPECT_TRUE(document.ParseBuffer(text.data(), text.size())) << text;
    XMLNode* node = document.Root ? document.Root->FirstChild : nullptr;
    while (node && node->Type != XMLNode::Element)
        node = node->Next;
    return node;
}
