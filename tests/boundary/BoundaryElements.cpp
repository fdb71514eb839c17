// A module of another author, as the boundary program loads it beside the
// toolkit: it derives an element type, registers it through TAVUFactory while
// it loads, and builds a small tree of it on request.
#include "CUIManager.h"
#include "TAVUFactory.h"
#include "TAVUScreen.h"

#if defined(_WIN32)
#define BOUNDARY_EXPORT extern "C" __declspec(dllexport)
#else
#define BOUNDARY_EXPORT extern "C" __attribute__((visibility("default")))
#endif

namespace {
int g_Renders = 0;

class BoundaryBox : public TAVUElement {
public:
    using TAVUElement::TAVUElement;
    void Render() override {
        ++g_Renders;
        TAVUElement::Render();
    }
};

TAVUFactory<BoundaryBox> g_BoundaryBoxFactory("boundarybox");
} // namespace

// Three boxes: a panel with two children, one of them hidden.
BOUNDARY_EXPORT int BoundaryBuildTree() {
    TAVUElementFactory* factory = g_UIManager.FindFactory("BoundaryBox");
    if (!factory || !g_UIManager.Screen) return 0;
    TAVUElement* panel = factory->CreateUIElement(g_UIManager.Screen, "Panel");
    panel->Width = 200;
    panel->Height = 100;
    factory->CreateUIElement(panel, "Left")->Width = 50;
    factory->CreateUIElement(panel, "Hidden")->Visible = false;
    return 3;
}

BOUNDARY_EXPORT int BoundaryRenderCount() {
    return g_Renders;
}
