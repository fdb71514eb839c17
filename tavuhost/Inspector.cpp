#include "Inspector.h"

#include "HostText.h"
#include "OverlayPainter.h"
#include "ScriptEngine.h"
#include "TavukitModule.h"

#include <algorithm>
#include <cstdio>

namespace {

const uint32_t OutlineColor = 0xC000C8FF;
const uint32_t HiddenColor = 0x90A0A0A0;
const uint32_t HoverColor = 0xFFFFD000;
const uint32_t SelectedColor = 0xFFFF40FF;
const uint32_t PanelColor = 0xE0202028;
const uint32_t TextColor = 0xFFF0F0F0;
const uint32_t BeaconColor = 0xFFFF8000;
const size_t LogShown = 8;

std::string YesNo(bool value) {
    return value ? "yes" : "no";
}

std::string Or(const std::string& text, const char* otherwise) {
    return text.empty() ? otherwise : text;
}

std::string NameAndType(const ElementFacts& facts) {
    return (facts.FullName.empty() ? facts.Name : facts.FullName) + " (" + facts.Type + ")";
}

// Every element under the root, parents before children and each child list
// in drawing order, so that a later element lies on top of an earlier one.
// A walk by the links rather than by recursion costs no stack however deep the tree.
template <typename Visit> void WalkTree(TAVUElement* root, Visit visit) {
    TAVUElement* element = ElementAccess::FirstChild(root);
    while (element) {
        visit(element);
        if (TAVUElement* child = ElementAccess::FirstChild(element)) {
            element = child;
            continue;
        }
        while (element && element != root && !ElementAccess::Next(element))
            element = ElementAccess::Parent(element);
        element = element && element != root ? ElementAccess::Next(element) : nullptr;
    }
}

bool Contains(const ElementFacts& facts, int x, int y) {
    return x >= facts.X && y >= facts.Y && int64_t(x) < int64_t(facts.X) + facts.Width &&
           int64_t(y) < int64_t(facts.Y) + facts.Height;
}

void PrintLines(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
        fwrite(line.data(), 1, line.size(), stdout);
        fputc('\n', stdout);
    }
    fflush(stdout);
}

} // namespace

Inspector::Inspector(TavukitModule& module, ScriptEngine& engine, HostInput& host,
                     const std::string& prefix)
    : Module(module), Engine(engine), Host(host), Sources(prefix) {
    Engine.AddCommand("inspector",
                      [this](int argc, char* argv[]) { return InspectorCommand(argc, argv); });
    Engine.AddCommand("inspect",
                      [this](int argc, char* argv[]) { return InspectCommand(argc, argv); });
}

Inspector::~Inspector() {
    Engine.RemoveCommand("inspector");
    Engine.RemoveCommand("inspect");
}

CUIManager* Inspector::Manager() const {
    return Module.GetManager();
}

void Inspector::SetOpen(bool open) {
    if (Open == open) return;
    Open = open;
    Armed = true;
    if (Open) Unseen = 0;
    // The interface learns where the pointer went while it could not see it.
    if (!Open && PointerX >= 0) Host.PointerMoved(PointerX, PointerY);
}

// ---- the event log ----

void Inspector::AddToLog(const std::string& line) {
    Log.push_back(line);
    if (Log.size() > LogLines) Log.pop_front();
    if (!Open) ++Unseen;
}

void Inspector::Heard(const std::string& line) {
    AddToLog(line);
}

void Inspector::EventStarted(TAVUElement* element, unsigned atom) {
    std::string event = ElementAccess::EventOfAtom(element, atom);
    // Drawing events fire every frame and would bury everything else.
    if (event == "OnRender") return;
    ElementFacts facts = ElementAccess::Facts(Manager(), element);
    AddToLog((event.empty() ? "event" : event) + " " + NameAndType(facts));
}

// ---- element info ----

std::vector<std::string> Inspector::DescribeFacts(TAVUElement* element) {
    ElementFacts facts = ElementAccess::Facts(Manager(), element);
    std::vector<std::string> lines;
    lines.push_back("Element " + NameAndType(facts));
    lines.push_back("  position " + std::to_string(facts.X) + "," + std::to_string(facts.Y) +
                    "  size " + std::to_string(facts.Width) + "x" + std::to_string(facts.Height));
    lines.push_back("  visible " + YesNo(facts.Visible) + "  shown " + YesNo(facts.Shown) +
                    "  focused " + YesNo(facts.Focused) + "  under the mouse " +
                    YesNo(facts.MouseOver));
    lines.push_back("  skin " + Or(facts.Skin, "none"));
    std::string ancestors;
    TAVUElement* screen = ElementAccess::Screen(Manager());
    for (TAVUElement* up = ElementAccess::Parent(element); up && up != screen;
         up = ElementAccess::Parent(up))
        ancestors +=
            (ancestors.empty() ? "" : " < ") + NameAndType(ElementAccess::Facts(Manager(), up));
    lines.push_back("  ancestors: " + Or(ancestors, "none"));
    std::string children;
    for (TAVUElement* child = ElementAccess::FirstChild(element); child;
         child = ElementAccess::Next(child))
        children +=
            (children.empty() ? "" : ", ") + NameAndType(ElementAccess::Facts(Manager(), child));
    lines.push_back("  children: " + Or(children, "none"));
    return lines;
}

// Reads the interface files again: done once per selection, not per frame.
std::vector<std::string> Inspector::DescribeSource(TAVUElement* element) {
    ElementFacts facts = ElementAccess::Facts(Manager(), element);
    using RegistryFunction = const TAVUKeyRegistryTable* (*)();
    auto registry = reinterpret_cast<RegistryFunction>(Module.Find("TavuKeyRegistry"));
    return Sources.Describe(registry ? registry() : nullptr, facts.FullName, facts.Type,
                            [this](const std::string& name) {
                                return ElementAccess::SkinnedTemplate(Manager(), name);
                            });
}

void Inspector::Select(TAVUElement* element) {
    SelectedID = element ? ElementAccess::Facts(Manager(), element).ID : 0;
    SelectedSource.clear();
    if (!element) return;
    std::vector<std::string> lines = DescribeFacts(element);
    SelectedSource = DescribeSource(element);
    lines.insert(lines.end(), SelectedSource.begin(), SelectedSource.end());
    PrintLines(lines);
}

TAVUElement* Inspector::ElementAt(int x, int y) {
    TAVUElement* found = nullptr;
    WalkTree(ElementAccess::Screen(Manager()), [&](TAVUElement* element) {
        ElementFacts facts = ElementAccess::Facts(Manager(), element);
        if (facts.Visible && Contains(facts, x, y)) found = element;
    });
    return found;
}

TAVUElement* Inspector::FindByName(const std::string& fullName) {
    TAVUElement* found = nullptr;
    WalkTree(ElementAccess::Screen(Manager()), [&](TAVUElement* element) {
        if (!found && SameName(ElementAccess::FullName(element), fullName)) found = element;
    });
    return found;
}

// ---- commands ----

int Inspector::InspectorCommand(int argc, char* argv[]) {
    static const char* const syntax =
        "Syntax: inspector on|off | inspector hidden on|off | inspector log [COUNT]";
    Arm();
    std::string action = argc > 1 ? argv[1] : "";
    std::string value = argc > 2 ? argv[2] : "";
    bool onOff = SameName(value, "on") || SameName(value, "off");
    if (argc == 2 && (SameName(action, "on") || SameName(action, "off"))) {
        SetOpen(SameName(action, "on"));
        return 0;
    }
    if (argc == 3 && SameName(action, "hidden") && onOff) {
        ShowHidden = SameName(value, "on");
        return 0;
    }
    double count = double(Log.size());
    if (SameName(action, "log") && (argc == 2 || (argc == 3 && ParseNumber(argv[2], count)))) {
        // Compared as a double first: a huge count does not fit a size_t.
        size_t shown = count <= 0 ? 0 : count >= double(Log.size()) ? Log.size() : size_t(count);
        PrintLines(std::vector<std::string>(Log.end() - long(shown), Log.end()));
        return 0;
    }
    Engine.Print(syntax);
    return -1;
}

int Inspector::InspectCommand(int argc, char* argv[]) {
    if (argc != 2) {
        Engine.Print("Syntax: inspect NAME");
        return -1;
    }
    TAVUElement* element = FindByName(argv[1]);
    if (!element) {
        Engine.Print(std::string("inspect: no element named '") + argv[1] + "'");
        return -1;
    }
    Select(element);
    return 0;
}

// ---- input: the inspector's while it is open ----

void Inspector::PointerMoved(int x, int y) {
    PointerX = x;
    PointerY = y;
    if (!Open) Host.PointerMoved(x, y);
}

void Inspector::ButtonChanged(bool left, bool down) {
    if (!Open) return Host.ButtonChanged(left, down);
    if (left && down) Select(ElementAt(PointerX, PointerY));
}

void Inspector::WheelTurned(int offset) {
    if (!Open) Host.WheelTurned(offset);
}

void Inspector::KeyChanged(unsigned code, bool down) {
    // F12 stays the interface's in runs that have not asked for the inspector.
    if (Armed && code == ToggleKey) {
        if (down) SetOpen(!Open);
        return;
    }
    if (Open && code == HiddenKey) {
        if (down) ShowHidden = !ShowHidden;
        return;
    }
    Host.KeyChanged(code, down);
}

void Inspector::Resized(int width, int height) {
    Host.Resized(width, height);
}

// ---- painting ----

void Inspector::Paint(OverlayPainter& painter) {
    if (!Open) return PaintBeacon(painter);
    PaintOutlines(painter);
    PaintInfo(painter);
    PaintLog(painter);
}

void Inspector::PaintOutlines(OverlayPainter& painter) {
    WalkTree(ElementAccess::Screen(Manager()), [&](TAVUElement* element) {
        ElementFacts facts = ElementAccess::Facts(Manager(), element);
        if (facts.Visible || ShowHidden)
            painter.Outline(facts.X, facts.Y, facts.Width, facts.Height,
                            facts.Visible ? OutlineColor : HiddenColor, 1);
    });
}

void Inspector::PaintInfo(OverlayPainter& painter) {
    const std::string header = std::string("Inspector  F12 closes  F11 hidden outlines: ") +
                               (ShowHidden ? "on" : "off") + "  click selects";
    painter.Panel(0, 0, painter.FitWidth(&header, 1), &header, 1, PanelColor, TextColor);
    TAVUElement* selected = ElementAccess::ByID(Manager(), SelectedID);
    if (selected) {
        ElementFacts facts = ElementAccess::Facts(Manager(), selected);
        painter.Outline(facts.X, facts.Y, facts.Width, facts.Height, SelectedColor, 2);
        std::vector<std::string> lines = DescribeFacts(selected);
        lines.insert(lines.end(), SelectedSource.begin(), SelectedSource.end());
        int top = OverlayPainter::LineHeight + 2 * OverlayPainter::Margin; // below the header
        // Cut to the room above the event log; all of it was printed.
        int room = (painter.Height() - top - LogHeight()) / OverlayPainter::LineHeight - 1;
        size_t fits = size_t(std::max(room, 2));
        if (lines.size() > fits) {
            size_t more = lines.size() - (fits - 1);
            lines.resize(fits - 1);
            lines.push_back("... " + std::to_string(more) + " more lines on standard output");
        }
        int width = painter.FitWidth(lines.data(), lines.size());
        painter.Panel(painter.Width() - width, top, width, lines.data(), lines.size(), PanelColor,
                      SelectedColor);
    }
    TAVUElement* hovered = ElementAt(PointerX, PointerY);
    if (!hovered) return;
    // The hovered element's name goes just below it, or above it at the bottom.
    ElementFacts facts = ElementAccess::Facts(Manager(), hovered);
    painter.Outline(facts.X, facts.Y, facts.Width, facts.Height, HoverColor, 2);
    const std::string label = NameAndType(facts) + "  " + std::to_string(facts.X) + "," +
                              std::to_string(facts.Y) + "  " + std::to_string(facts.Width) + "x" +
                              std::to_string(facts.Height);
    int height = OverlayPainter::LineHeight + 2 * OverlayPainter::Margin;
    int64_t below = int64_t(facts.Y) + facts.Height + 2;
    int top = below + height <= painter.Height() ? int(below) : std::max(facts.Y - height - 2, 0);
    int width = painter.FitWidth(&label, 1);
    int left = std::clamp(facts.X, 0, std::max(painter.Width() - width, 0));
    painter.Panel(left, top, width, &label, 1, PanelColor, HoverColor);
}

int Inspector::LogHeight() const {
    size_t lines = std::min(Log.size(), LogShown) + 1; // with its title
    return int(lines) * OverlayPainter::LineHeight + 2 * OverlayPainter::Margin;
}

void Inspector::PaintLog(OverlayPainter& painter) {
    size_t shown = std::min(Log.size(), LogShown);
    std::vector<std::string> lines(Log.end() - long(shown), Log.end());
    lines.insert(lines.begin(), "Event log (newest last)");
    int height = LogHeight();
    painter.Panel(0, painter.Height() - height, painter.Width(), lines.data(), lines.size(),
                  PanelColor, TextColor);
}

void Inspector::PaintBeacon(OverlayPainter& painter) {
    if (!Armed || Unseen == 0) return;
    const std::string text = std::to_string(Unseen) + " new (F12)";
    int width = painter.FitWidth(&text, 1);
    painter.Panel(painter.Width() - width, 0, width, &text, 1, BeaconColor, 0xFF000000);
}
