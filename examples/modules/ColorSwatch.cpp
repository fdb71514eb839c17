// An element type of your own, in a module of your own.
//
// A "colorswatch" is a square of one colour with a border that lights up
// while the pointer is over it, and it tells its parent when it is clicked.
// The module links against the toolkit (Tavukit.dll or libtavukit.so) and is
// loaded by the host after it: its factory registers the type name while the
// module loads, and from then on interface files can use <colorswatch>.
//
// A right click opens the swatch's context menu: a menu handler of the
// module's own, held by the swatch, fills the rows and acts on the choice.
#include "CContextMenuHandler.h"
#include "CUIManager.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUFactory.h"
#include "TAVUKeyRegistry.h"
#include "XMLHelper.h"

#include <cstdio>

namespace {

class ColorSwatch;

// The submenu: colours to take by name.
class NamedColorMenu : public CContextMenuHandler {
public:
    explicit NamedColorMenu(ColorSwatch* owner) : Owner(owner) {}
    void OnCreate(unsigned) override {
        AddItem("White", 1);
        AddItem("Black", 2);
    }
    void OnClick(unsigned id) override;
    ColorSwatch* Owner;
};

// The swatch's own menu. Rows and check marks exist only while it is open,
// so the lock's mark is set each time it opens.
class SwatchMenu : public CContextMenuHandler {
public:
    enum : unsigned { Lighter = 1, Darker, Locked, Named };
    explicit SwatchMenu(ColorSwatch* owner) : Owner(owner), NamedColors(owner) {}
    void OnCreate(unsigned) override;
    void OnClick(unsigned id) override;
    ColorSwatch* Owner;
    NamedColorMenu NamedColors;
};

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

    // Takes the right button too, and opens the menu where it was released.
    bool OnRMouseDown(_Point2i& point) override {
        TAVUElement::OnRMouseDown(point);
        return true;
    }
    bool OnRMouseUp(_Point2i& point) override {
        TAVUElementWatch watch(this);
        TAVUElement::OnRMouseUp(point);
        if (watch.Alive()) Menu.Create(point.x, point.y);
        return true;
    }

    // A new colour, unless the swatch is locked; says what happened through
    // the host's script, as an interface's own events would.
    void TakeColor(unsigned color) {
        if (!Locked) Color = color;
        char line[128];
        snprintf(line, sizeof(line), Locked ? "echo %s is locked" : "echo %s is now %08X", Name,
                 Color);
        TAVUControlHelpers::RunCommand(line, nullptr);
    }

    unsigned Color = 0xFF808080;
    unsigned BorderColor = 0xFFFFFFFF;
    bool Locked = false;
    SwatchMenu Menu{this};
};

void NamedColorMenu::OnClick(unsigned id) {
    Owner->TakeColor(id == 1 ? 0xFFFFFFFF : 0xFF000000);
}

void SwatchMenu::OnCreate(unsigned) {
    AddItem("Lighter", Lighter);
    AddItem("Darker", Darker);
    AddSeparator();
    AddItem("Locked", Locked);
    SetItemCheck(Locked, Owner->Locked);
    AddSubMenu("Named colour", &NamedColors, Named);
}

// Each colour channel halfway to white, or halved.
void SwatchMenu::OnClick(unsigned id) {
    if (id == Locked) {
        Owner->Locked = !Owner->Locked;
        char line[128];
        snprintf(line, sizeof(line), "echo %s is %s", Owner->Name,
                 Owner->Locked ? "locked" : "unlocked");
        TAVUControlHelpers::RunCommand(line, nullptr);
        return;
    }
    unsigned color = Owner->Color & 0xFF000000;
    for (int shift = 0; shift < 24; shift += 8) {
        unsigned channel = (Owner->Color >> shift) & 0xFF;
        channel = id == Lighter ? (channel + 255) / 2 : channel / 2;
        color |= channel << shift;
    }
    Owner->TakeColor(color);
}

TAVUFactory<ColorSwatch> g_ColorSwatchFactory("colorswatch");

// The keys FromXML reads beside every element's, so that a host's linter
// checks them and its schema offers them (see docs/modules.md).
const TAVUKeyInfo kSwatchKeys[] = {
    {"Color", TAVUKeyColor, "The fill colour, hexadecimal ARGB."},
    {"BorderColor", TAVUKeyColor, "The colour of the border."},
};
const TAVUKeyType kSwatchType = {"colorswatch", "element", kSwatchKeys,
                                 sizeof(kSwatchKeys) / sizeof(kSwatchKeys[0]),
                                 "A square of one colour that tells its parent when clicked."};
TAVUKeyTypeRegistration g_ColorSwatchKeys(kSwatchType);

} // namespace
