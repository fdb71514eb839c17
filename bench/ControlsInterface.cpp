#include "ControlsInterface.h"

#include <cstdio>
#include <cstdlib>

#define kTextureFile "tavubench-controls.png"

namespace {
void Appendf(std::string& out, const char* format, int a, int b = 0, int c = 0, int d = 0,
             int e = 0) {
    char line[256];
    int length = snprintf(line, sizeof(line), format, a, b, c, d, e);
    if (length > 0)
        out.append(line, size_t(length) < sizeof(line) ? size_t(length) : sizeof(line) - 1);
}
} // namespace

// Spread over the display in a staggered grid, overlapping as real windows do.
ControlsPlace ControlsInterface::Window(int window) {
    int column = window % 10, row = window / 10;
    return {column * 172 + (row % 2) * 40, row * 78, kWindowWidth, kWindowHeight};
}

// Five columns by ten rows under a 24-pixel title band.
ControlsPlace ControlsInterface::Child(int child) {
    return {2 + (child % 5) * 39, 26 + (child / 5) * 27, kChildWidth, kChildHeight};
}

std::string ControlsInterface::Tavukit() {
    // Images as TaharezLook draws them: nine-cell frames and buttons, and a
    // box for each state of a check box.
    std::string out =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<TAVU>\n"
        "  <Template name=\"frame\">\n"
        "    <Texture Filename=\"" kTextureFile "\"><Border>6</Border></Texture>\n"
        "    <Border>6</Border>\n"
        "  </Template>\n"
        "  <Template name=\"button\">\n"
        "    <Width>38</Width>\n    <Height>20</Height>\n"
        "    <Border>3</Border>\n"
        "    <Texture Filename=\"" kTextureFile "\"><Border>3</Border></Texture>\n"
        "    <TextureHover Filename=\"" kTextureFile "\"><Border>3</Border></TextureHover>\n"
        "    <TexturePressed Filename=\"" kTextureFile "\"><Border>3</Border></TexturePressed>\n"
        "    <Font><Size>12</Size><Color>FFFFFFFF</Color></Font>\n"
        "  </Template>\n"
        "  <Template name=\"checkbox\">\n"
        "    <Width>38</Width>\n    <Height>20</Height>\n"
        "    <Texture Filename=\"" kTextureFile "\"/>\n"
        "    <TextureHover Filename=\"" kTextureFile "\"/>\n"
        "    <TextureChecked Filename=\"" kTextureFile "\"/>\n"
        "    <TextureCheckedHover Filename=\"" kTextureFile "\"/>\n"
        "    <Font><Size>12</Size><Color>FFFFFFFF</Color></Font>\n"
        "  </Template>\n";
    for (int window = 0; window < kWindows; ++window) {
        ControlsPlace place = Window(window);
        Appendf(out,
                "  <frame name=\"Window%d\">\n    <X>%d</X><Y>%d</Y><Width>%d</Width><Height>%d</"
                "Height>\n    <Children>\n",
                window, place.X, place.Y, place.Width, place.Height);
        for (int child = 0; child < kChildren; ++child) {
            ControlsPlace at = Child(child);
            int item = window * kChildren + child;
            const char* tag = IsCheckBox(child) ? "checkbox" : "button";
            out += "      <";
            out += tag;
            Appendf(out,
                    " name=\"Item%d\"><X>%d</X><Y>%d</Y><Text>Item %d</Text>"
                    "<OnLeftClick>Clicked %d</OnLeftClick></",
                    item, at.X, at.Y, item, item);
            out += tag;
            out += ">\n";
        }
        out += "    </Children>\n  </frame>\n";
    }
    out += "</TAVU>\n";
    return out;
}

std::string ControlsInterface::Cegui() {
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<GUILayout version=\"4\">\n"
                      "  <Window type=\"DefaultWindow\" name=\"root\">\n"
                      "    <Property name=\"Area\" value=\"{{0,0},{0,0},{1,0},{1,0}}\" />\n"
                      "    <Property name=\"MousePassThroughEnabled\" value=\"true\" />\n";
    for (int window = 0; window < kWindows; ++window) {
        ControlsPlace place = Window(window);
        Appendf(out,
                "    <Window type=\"TaharezLook/FrameWindow\" name=\"Window%d\">\n"
                "      <Property name=\"Area\" value=\"{{0,%d},{0,%d},{0,%d},{0,%d}}\" />\n",
                window, place.X, place.Y, place.X + place.Width, place.Y + place.Height);
        for (int child = 0; child < kChildren; ++child) {
            ControlsPlace at = Child(child);
            int item = window * kChildren + child;
            bool box = IsCheckBox(child);
            // A frame window's children sit in its client area, under the
            // title bar: place them from the top of the client.
            Appendf(out,
                    box ? "      <Window type=\"TaharezLook/Checkbox\" name=\"Item%d\">\n"
                        : "      <Window type=\"TaharezLook/Button\" name=\"Item%d\">\n",
                    item);
            Appendf(out,
                    "        <Property name=\"Area\" value=\"{{0,%d},{0,%d},{0,%d},{0,%d}}\" />\n",
                    at.X, at.Y - 24, at.X + at.Width, at.Y - 24 + at.Height);
            Appendf(out, "        <Property name=\"Text\" value=\"Item %d\" />\n", item);
            Appendf(out,
                    box ? "        <Event name=\"SelectStateChanged\" function=\"Clicked%d\" />\n"
                        : "        <Event name=\"Clicked\" function=\"Clicked%d\" />\n",
                    item);
            out += "      </Window>\n";
        }
        out += "    </Window>\n";
    }
    out += "  </Window>\n</GUILayout>\n";
    return out;
}

// The toolkit looks for each texture's file beside the interface file; the
// benchmark hosts answer every texture without reading it.
bool ControlsInterface::WriteTavukitFiles(std::string& interfacePath) {
    interfacePath = WriteTemporary("tavubench-controls.xml", Tavukit());
    return !interfacePath.empty() && !WriteTemporary(kTextureFile, "image").empty();
}

std::string ControlsInterface::WriteTemporary(const char* name, const std::string& text) {
    const char* folder = getenv("TMPDIR");
    std::string path = std::string(folder && *folder ? folder : "/tmp") + "/" + name;
    FILE* file = fopen(path.c_str(), "wb");
    if (!file) return "";
    bool written = fwrite(text.data(), 1, text.size(), file) == text.size();
    if (fclose(file) != 0 || !written) return "";
    return path;
}
