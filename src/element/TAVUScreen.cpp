#include "TAVUScreen.h"

#include "CUIManager.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "StringHelpers.h"

#include <cstdint>

TAVUScreen::TAVUScreen() : TAVUElement(nullptr, nullptr, "Screen") {
    Height = 600;
    Width = 800;
    HeightPosition.Type = ElementPosition::Fraction;
    HeightPosition.Value.Factor = 1.0f;
    WidthPosition.Type = ElementPosition::Fraction;
    WidthPosition.Value.Factor = 1.0f;
    Visible = true;
}

bool TAVUScreen::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, "screen") == 0 || TAVUElement::IsTypeOf(type);
}

void TAVUScreen::RecalculateSize(bool) {
    uint64_t displayWidth = 0, displayHeight = 0;
    if (!g_pHost->GetDisplaySize(&displayWidth, &displayHeight)) return;
    int width = TruncateToInt(float(displayWidth) * WidthPosition.Value.Factor);
    int height = TruncateToInt(float(displayHeight) * HeightPosition.Value.Factor);
    bool changed = width != Width || height != Height;
    Width = width;
    Height = height;
    if (!changed) return;
    for (TAVUElement* child = FirstChild; child; child = child->Next)
        child->RecalculateSize(true);
}

bool TAVUScreen::OnLMouseDown(_Point2i&) {
    g_UIManager.SetFocusElement(g_UIManager.GetMouseOverElement());
    return false;
}
