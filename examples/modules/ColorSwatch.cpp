// An element type of your own, in a module of your own.
//
// A "colorswatch" is a square of one colour with a border that lights up
// while the pointer is over it, and it tells its parent when it is clicked.
// The module links against the toolkit (Tavukit.dll or libtavukit.so) and is
// loaded by the host after it: its factory registers the type name while the
// module loads, and from then on interface files can use <colorswatch>.
#include "CUIManager.h"
#include "StringHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "XMLHelper.h"

namespace {

class ColorSwatch : public TAVUElement {
public:
    using TAVUElement::TAVUElement;

    // Reads the common keys first, then its own: node over template over default.
    bool FromXML(XMLNode* node, XMLNode* templateNode) override {
        if (!TAVUElement::FromXML(node, templateNode)) return false;
        Color = XMLHelper::GetHexValue(node, "Color",
                                       XMLHelper::GetHexValue(templateNode, "Color", Color));
        BorderColor = XMLHelper::GetHexValue(
            node, "BorderColor", XMLHelper::GetHexValue(templateNode, "BorderColor", BorderColor));
        return true;
    }

    bool IsTypeOf(const char* type) override {
        return StrCompareNoCase(type, "colorswatch") == 0 || TAVUElement::IsTypeOf(type);
    }

    // Draws itself, then lets the base draw the children on top.
    void Render() override {
        tagRECT box{AbsolutePosition.x, AbsolutePosition.y, AbsolutePosition.x + Width,
                    AbsolutePosition.y + Height};
        FillRectBordered(box, Color, IsMouseOver() ? 3 : 1, BorderColor);
        TAVUElement::Render();
    }

    // Takes the click even without an "OnLeftClick" script, and tells the parent.
    bool OnLMouseDown(_Point2i& point) override {
        TAVUElement::OnLMouseDown(point);
        return true;
    }
    bool OnLMouseUp(_Point2i& point) override {
        TAVUElementWatch watch(this);
        TAVUElement::OnLMouseUp(point); // the script may delete this element
        if (watch.Alive()) OnNotify(this, TAVU_NOTIFY_LEFT_UP, 0);
        return true;
    }

    unsigned Color = 0xFF808080;
    unsigned BorderColor = 0xFFFFFFFF;
};

TAVUFactory<ColorSwatch> g_ColorSwatchFactory("colorswatch");

} // namespace
