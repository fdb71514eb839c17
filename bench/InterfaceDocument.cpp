#include "InterfaceDocument.h"

#include <string>

namespace {

const char* const kControls[] = {"Button", "Text", "CheckBox", "Slider", "ListBox", "Frame"};

void Indent(std::string& out, int depth) {
    out.append(size_t(depth) * 2, ' ');
}

void AppendValue(std::string& out, int depth, const char* name, const std::string& value) {
    Indent(out, depth);
    out += "<" + std::string(name) + ">" + value + "</" + name + ">\n";
}

} // namespace

void InterfaceDocument::AppendControl(std::string& out, unsigned window, unsigned index,
                                      int depth) {
    const char* type = kControls[(window + index) % 6];
    std::string name = std::to_string(window) + "_" + std::to_string(index);
    Indent(out, depth);
    out += "<" + std::string(type) + " name=\"" + type + name + "\" Template=\"Default" + type +
           "\">\n";
    AppendValue(out, depth + 1, "X", std::to_string(10 + index * 4));
    AppendValue(out, depth + 1, "Y", index % 3 ? "r" + std::to_string(index) : "50%");
    AppendValue(out, depth + 1, "Width", std::to_string(120 + index));
    AppendValue(out, depth + 1, "Height", "24");
    AppendValue(out, depth + 1, "TextColor", "FFE0E0E0");
    if (index % 4 == 0) AppendValue(out, depth + 1, "Visible", "1");
    AppendValue(out, depth + 1, "Text", "Label " + name + " &amp; more");
    if (index % 5 == 0) {
        Indent(out, depth + 1);
        out += "<!-- " + name + " acts on the selection -->\n";
        AppendValue(out, depth + 1, "OnLeftClick", "UIElement[\"Main" + name + "\"].Show();");
    }
    Indent(out, depth);
    out += "</" + std::string(type) + ">\n";
}

void InterfaceDocument::AppendWindow(std::string& out, unsigned index) {
    std::string name = "Window" + std::to_string(index);
    out += "  <!-- " + name + ": generated -->\n";
    out += "  <Window name=\"" + name + "\" Template=\"DefaultWindow\">\n";
    AppendValue(out, 2, "X", std::to_string(index % 800));
    AppendValue(out, 2, "Y", "r" + std::to_string(index % 600));
    AppendValue(out, 2, "Width", "40%");
    AppendValue(out, 2, "Height", "0.5");
    AppendValue(out, 2, "Title", "Window " + std::to_string(index));
    out += "    <Children>\n";
    for (unsigned control = 0; control < 12; ++control)
        AppendControl(out, index, control, 3);
    out += "      <Frame name=\"" + name + "Inner\">\n        <Children>\n";
    for (unsigned control = 12; control < 16; ++control)
        AppendControl(out, index, control, 5);
    out += "        </Children>\n      </Frame>\n";
    out += "    </Children>\n  </Window>\n";
}

std::string InterfaceDocument::Generate(size_t targetBytes) {
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<UI>\n";
    for (unsigned window = 0; out.size() < targetBytes; ++window)
        AppendWindow(out, window);
    out += "</UI>\n";
    return out;
}
