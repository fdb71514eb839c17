#include "DefaultLook.h"

#include "ImageFile.h"
#include "StringHelpers.h"
#include "TavukitModule.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

namespace {

// The words the templates use as $name: one palette (light and calm: grey
// surfaces, white fields, thin grey lines, one blue for what is chosen, held
// or filled; ARGB), then the pieces several templates share.
const struct {
    const char* Name;
    const char* Text;
} kWords[] = {
    {"surface", "FFF3F4F6"},  // panels, windows, pages
    {"field", "FFFFFFFF"},    // entries, lists, the unticked box
    {"face", "FFE4E7EC"},     // buttons, tabs, arrows
    {"hover", "FFD6DCE5"},    // a button under the pointer
    {"pressed", "FFC3CCDA"},  // a button held down
    {"line", "FFA7B0BD"},     // every border
    {"track", "FFD3D8E0"},    // tracks and troughs
    {"ink", "FF1F2933"},      // text
    {"accent", "FF3A6EA5"},   // ticks, handles, fillers, the shown tab
    {"deep", "FF2D5A8A"},     // the accent under the pointer
    {"selected", "FFC9DBF2"}, // the band behind chosen rows and text
    {"title", "FF34495E"},    // title bars
    {"tip", "FFFFFBE8"},      // tooltips
    {"font", "<Font><Size>13</Size><Color>$ink</Color></Font>"},
    {"fixedfont", "<Font><Fixed>1</Fixed><Size>13</Size><Color>$ink</Color></Font>"},
    {"border", "<Border>1</Border><BorderColor>$line</BorderColor>"},
    // A framed picture for each state, so that hover and press show. Message
    // and input boxes draw their buttons with a border of 5 whatever the
    // template says, so every button is drawn in nine cells of 5 pixels, which
    // keeps its line one pixel wide in both. $buttonfaces(OK) gives the keys
    // of a box's OK button (OKTexture, ...).
    {"buttonfaces", R"(<@Texture Filename="#look-button"><Border>5</Border></@Texture>
        <@TextureHover Filename="#look-button-hover"><Border>5</Border></@TextureHover>
        <@TexturePressed Filename="#look-button-pressed"><Border>5</Border></@TexturePressed>)"},
    {"button", R"(<Height>24</Height><Border>5</Border><BorderColor>$line</BorderColor>$font
        <BackgroundColor>$face</BackgroundColor>$buttonfaces)"},
    {"okcancel", "<OKColor>$ink</OKColor><CancelColor>$ink</CancelColor>"
                 "$buttonfaces(OK)$buttonfaces(Cancel)"},
    {"yesno", "<YesColor>$ink</YesColor><NoColor>$ink</NoColor>$buttonfaces(Yes)$buttonfaces(No)"},
    // A framed box left of the caption; ticked, a white tick on blue.
    {"checkbox", R"(<Height>18</Height>$font
        <Texture Filename="#look-box"/><TextureHover Filename="#look-box-hover"/>
        <TexturePressed Filename="#look-box-pressed"/><TextureChecked Filename="#look-tick"/>
        <TextureCheckedHover Filename="#look-tick-hover"/>
        <TextureCheckedPressed Filename="#look-tick-pressed"/>)"},
    // Framed pictures in nine cells; the entry with the keyboard has a blue frame.
    {"entry", R"(<Height>22</Height><BackgroundColor>$field</BackgroundColor>$border
        <Texture Filename="#look-field"><Border>1</Border></Texture>
        <TextureFocused Filename="#look-focus"><Border>1</Border></TextureFocused>
        <CaretOuterColor>$ink</CaretOuterColor><CaretInnerColor>$accent</CaretInnerColor>)"},
    // A framed trough. The filler is a picture, as a filler crops its image to the value.
    {"gauge", R"(<Height>14</Height><Range>100</Range><Border>1</Border>
        <Texture Filename="#look-trough"><Border>1</Border></Texture>
        <Filler><Width>100%</Width><Height>100%</Height><Texture Filename="#look-bar"/></Filler>)"},
    {"slider", R"(<Height>16</Height><Range>100</Range><Texture Filename="#look-track"/>
        <HandleTexture Filename="#fill" ColorMask="$accent"/>)"},
    // The title bar has the title and a close button, which a window keeps
    // when it asks for one with CloseButton.
    {"titlebar", R"(<TitleBar><Width>100%</Width><Height>24</Height>
        <BackgroundColor>$title</BackgroundColor><Children>
          <text Name="Title"><X>8</X><Width>r40</Width><Height>24</Height>
            <VerticalAlignment>center</VerticalAlignment>
            <Font><Size>13</Size><Bold>1</Bold><Color>FFFFFFFF</Color></Font></text>
          <button Name="Close"><X>r22</X><Y>3</Y><Width>18</Width><Height>18</Height>
            <Text>x</Text></button>
        </Children></TitleBar>
        <Client><Y>24</Y><Width>100%</Width><Height>r24</Height>
          <BackgroundColor>$surface</BackgroundColor></Client>)"},
};

const DefaultLookTemplate kTemplates[] = {
    {"button", "$button"},
    {"commandbutton", "$button"},
    {"checkbox", "$checkbox"},
    {"commandcheckbox", "$checkbox"},
    {"text", "<Height>18</Height>$font<VerticalAlignment>center</VerticalAlignment>"},
    // A HUD line stands over the scene, not over a panel: light text.
    {"hudelement", "<Font><Size>13</Size><Color>$surface</Color></Font>"},
    {"tooltip", "<BackgroundColor>$tip</BackgroundColor>$border$font"},
    {"textentry", "$entry<MaxLength>256</MaxLength>$font"},
    {"commandentry",
     "$entry<MaxLength>1024</MaxLength><CommandHistory>50</CommandHistory>$fixedfont"},
    {"console",
     R"(<BackgroundColor>$field</BackgroundColor><ScrollbackColor>FFF7F4E8</ScrollbackColor>
        $border<SelectionColor>$selected</SelectionColor>$fixedfont<ScrollBar>scrollbar</ScrollBar>)"},
    {"textedit", R"(<BackgroundColor>$field</BackgroundColor>$border$fixedfont
        <SelectionColor>$selected</SelectionColor>
        <CaretOuterColor>$ink</CaretOuterColor><CaretInnerColor>$accent</CaretInnerColor>
        <VerticalScrollBar>scrollbar</VerticalScrollBar>)"},
    {"slider", "$slider"},
    {"variableslider", "$slider<VariableRange>100</VariableRange>"},
    // Arrows of 16 pixels at both ends and a slider between them.
    {"scrollbar", R"(<Width>16</Width><Vertical>1</Vertical>
        <UpButton><Width>16</Width><Height>16</Height><Texture Filename="#look-up"/>
          <TextureHover Filename="#look-up-hover"/><TexturePressed Filename="#look-up-pressed"/>
        </UpButton>
        <Slider><Y>16</Y><Width>16</Width><Height>r32</Height><Vertical>1</Vertical><Border>1</Border>
          <Texture Filename="#look-trough"><Border>1</Border></Texture>
          <HandleTexture Filename="#fill" ColorMask="$accent"/></Slider>
        <DownButton><Y>r16</Y><Width>16</Width><Height>16</Height><Texture Filename="#look-down"/>
          <TextureHover Filename="#look-down-hover"/>
          <TexturePressed Filename="#look-down-pressed"/></DownButton>)"},
    {"gauge", "$gauge"},
    {"variablegauge", "$gauge"},
    {"gaugefiller", R"(<Texture Filename="#look-bar"/>)"},
    {"listbox", R"(<BackgroundColor>$field</BackgroundColor>$border
        <SelectionColor>$selected</SelectionColor>$font<ScrollBar>scrollbar</ScrollBar>)"},
    {"combobox", R"(<Height>22</Height><FullHeight>120</FullHeight><Border>3</Border>
        <ButtonWidth>18</ButtonWidth>$font<Texture Filename="#look-field"><Border>3</Border></Texture>
        <ButtonTexture Filename="#look-drop"/><ListBox/>)"},
    {"tabcontrol", R"(<TabHeight>24</TabHeight><TabBorder>1</TabBorder>$font
        <SelectedTextColor>FFFFFFFF</SelectedTextColor>
        <TabTexture Filename="#fill" ColorMask="$face"/>
        <TabSelectedTexture Filename="#fill" ColorMask="$accent"/>
        <FrameBackgroundColor>$surface</FrameBackgroundColor><FrameBorder>1</FrameBorder>
        <FrameBorderColor>$line</FrameBorderColor>
        <LeftButton><Text>&lt;</Text></LeftButton><RightButton><Text>&gt;</Text></RightButton>)"},
    {"tree", R"(<BackgroundColor>$field</BackgroundColor>$border$font
        <ItemHeight>18</ItemHeight><ImageSize>18</ImageSize><TextMargin>2</TextMargin>
        <IndentPerDepth>16</IndentPerDepth>
        <SelectionBackgroundColor>$selected</SelectionBackgroundColor>
        <SelectionTextColor>$ink</SelectionTextColor>
        <ImageTexture Filename="#look-leaf"/><ImageTextureCollapsible Filename="#look-open"/>
        <ImageTextureCollapsed Filename="#look-shut"/>
        <ScrollBar><X>r17</X><Y>1</Y><Height>r2</Height></ScrollBar>)"},
    {"mapblip",
     "<Width>6</Width><Height>6</Height><BackgroundColor>$accent</BackgroundColor>$font"},
    {"window", "<BackgroundColor>$surface</BackgroundColor>$border$titlebar"},
    {"messagebox", R"(<BackgroundColor>$surface</BackgroundColor>$border$titlebar$font
        <OffsetTitleBarHeight>1</OffsetTitleBarHeight>$okcancel$yesno)"},
    // An input box reads its BorderColor as a decimal number: 4289179837 is FFA7B0BD.
    // Its buttons are drawn by code, so its title bar keeps no close button.
    {"scriptinputbox", R"(<BackgroundColor>$surface</BackgroundColor><Border>1</Border>
        <BorderColor>4289179837</BorderColor>$font<OffsetTitleBarHeight>1</OffsetTitleBarHeight>
        $okcancel
        <TitleBar><Width>100%</Width><Height>24</Height><BackgroundColor>$title</BackgroundColor>
          <Children><text Name="Title"><X>8</X><Width>r16</Width><Height>24</Height>
            <VerticalAlignment>center</VerticalAlignment>
            <Font><Size>13</Size><Bold>1</Bold><Color>FFFFFFFF</Color></Font></text></Children>
        </TitleBar>
        <Client><Y>24</Y><Width>100%</Width><Height>r24</Height>
          <BackgroundColor>$surface</BackgroundColor></Client>)"},
    {"contextmenu", R"(<BackgroundColor>$field</BackgroundColor>$border$font
        <HighlightColor>$selected</HighlightColor>
        <ItemTexture Filename="#look-row"><Border>2</Border></ItemTexture>
        <HighlightItemTexture Filename="#look-row-lit"><Border>2</Border></HighlightItemTexture>
        <SubmenuTexture Filename="#look-row"><Border>2</Border></SubmenuTexture>
        <HighlightSubmenuTexture Filename="#look-row-lit"><Border>2</Border></HighlightSubmenuTexture>
        <SeparatorTexture Filename="#look-rule"/><ItemCheckTexture Filename="#look-tick"/>)"},
};

const unsigned kTemplateCount = sizeof(kTemplates) / sizeof(kTemplates[0]);

// Types that can stand in a file yet get no template, and why.
const struct {
    const char* Type;
    const char* Why;
} kPlain[] = {
    {"element", "the keys every type reads: no type of its own"},
    // Title bars, clients, pages and cells read this one too when their own
    // type has none: a look here would dress the insides of every window.
    {"frame", "a see-through group until it is given a colour"},
    {"table", "a layout grid: its cells show what they hold"},
    {"tablecell", "a slot of a layout grid: see-through so its contents stand alone"},
    {"windowclient", "made by its window from the window's Client"},
    {"map", "draws nothing itself: its blips draw"},
    {"mapview", "draws nothing itself: a map's blips draw in it"},
    {"mapblipview", "made by a map view as a copy of a blip"},
    {"scriptmessagebox", "reads the messagebox template"},
};

const char* Word(const char* name, size_t length) {
    for (const auto& word : kWords)
        if (strlen(word.Name) == length && strncmp(word.Name, name, length) == 0) return word.Text;
    return nullptr;
}

bool IsWordCharacter(char c) {
    return c >= 'a' && c <= 'z';
}

// Puts each $word's text in its place, and in it each '@' by the word's
// argument, as in $word(OK); words hold words, never in a circle.
void Expand(const char* text, const std::string& argument, std::string& out) {
    while (*text) {
        const char* end = text + 1;
        while (*text == '$' && IsWordCharacter(*end))
            ++end;
        const char* word = *text == '$' ? Word(text + 1, size_t(end - text - 1)) : nullptr;
        if (word) {
            std::string inner;
            const char* close = *end == '(' ? strchr(end, ')') : nullptr;
            if (close) inner.assign(end + 1, close);
            Expand(word, inner, out);
            text = close ? close + 1 : end;
        } else if (*text == '@') {
            out += argument;
            ++text;
        } else {
            out += *text++;
        }
    }
}

uint32_t Colour(const char* name) {
    return uint32_t(strtoul(Word(name, strlen(name)), nullptr, 16));
}

} // namespace

unsigned DefaultLook::Count() {
    return kTemplateCount;
}

const DefaultLookTemplate& DefaultLook::At(unsigned index) {
    return kTemplates[index < kTemplateCount ? index : 0];
}

std::string DefaultLook::Text(const DefaultLookTemplate& entry) {
    std::string text = "<Template>";
    Expand(entry.Keys, "", text);
    return text + "</Template>";
}

const char* DefaultLook::WhyPlain(const char* type) {
    for (const auto& plain : kPlain)
        if (type && StrCompareNoCase(plain.Type, type) == 0) return plain.Why;
    return nullptr;
}

bool DefaultLook::Load(TavukitModule& module, std::string& error) {
    // CUIManager::AddTemplate(const char* name, const char* xmlText), by its exported name.
    typedef void* (*AddTemplate)(CUIManager*, const char*, const char*);
    auto add = reinterpret_cast<AddTemplate>(module.Find("_ZN10CUIManager11AddTemplateEPKcS1_"));
    if (!add || !module.GetManager()) {
        error = "this Tavukit module cannot take templates, so it has no default look";
        return false;
    }
    for (const DefaultLookTemplate& entry : kTemplates)
        if (!add(module.GetManager(), entry.Name, Text(entry).c_str())) {
            error = std::string("the default look's template '") + entry.Name + "' did not read";
            return false;
        }
    return true;
}

// ---- pictures ----

namespace {

enum class Mark { None, Tick, Up, Down, Right, Band, Dot, Rule };

// Each picture: a face within a one-pixel line (none when the line is 0), and a mark on it.
const struct {
    const char* Name;
    int Width, Height;
    const char* Face; // words of the palette; a line of "" is none
    const char* Line;
    Mark Sign;
} kPictures[] = {
    {"#look-button", 12, 12, "face", "line", Mark::None},
    {"#look-button-hover", 12, 12, "hover", "line", Mark::None},
    {"#look-button-pressed", 12, 12, "pressed", "line", Mark::None},
    {"#look-row", 10, 10, "field", "", Mark::None}, // a menu's rows: their frame moves text in
    {"#look-row-lit", 10, 10, "selected", "", Mark::None},
    {"#look-rule", 10, 9, "", "", Mark::Rule},
    {"#look-box", 14, 14, "field", "line", Mark::None},
    {"#look-box-hover", 14, 14, "field", "accent", Mark::None},
    {"#look-box-pressed", 14, 14, "pressed", "accent", Mark::None},
    {"#look-tick", 14, 14, "accent", "accent", Mark::Tick},
    {"#look-tick-hover", 14, 14, "deep", "deep", Mark::Tick},
    {"#look-tick-pressed", 14, 14, "pressed", "accent", Mark::Tick},
    {"#look-field", 8, 8, "field", "line", Mark::None},
    {"#look-focus", 8, 8, "field", "accent", Mark::None},
    {"#look-drop", 18, 22, "face", "line", Mark::Down},
    {"#look-up", 16, 16, "face", "line", Mark::Up},
    {"#look-up-hover", 16, 16, "hover", "line", Mark::Up},
    {"#look-up-pressed", 16, 16, "pressed", "line", Mark::Up},
    {"#look-down", 16, 16, "face", "line", Mark::Down},
    {"#look-down-hover", 16, 16, "hover", "line", Mark::Down},
    {"#look-down-pressed", 16, 16, "pressed", "line", Mark::Down},
    {"#look-trough", 8, 8, "track", "line", Mark::None},
    {"#look-bar", 8, 8, "accent", "", Mark::None},
    {"#look-track", 16, 16, "", "", Mark::Band},
    // A tree's nodes, open, closed and a leaf: as high as a row, since a tree
    // draws an image lower than its row cut short at the bottom.
    {"#look-open", 18, 18, "", "", Mark::Down},
    {"#look-shut", 18, 18, "", "", Mark::Right},
    {"#look-leaf", 18, 18, "", "", Mark::Dot},
};

void Put(Image& picture, int x, int y, uint32_t colour) {
    if (x >= 0 && y >= 0 && x < picture.Width && y < picture.Height)
        picture.Pixels[size_t(y) * size_t(picture.Width) + size_t(x)] = colour;
}

// A tick of two strokes, two pixels thick, in white.
void DrawTick(Image& picture) {
    const uint32_t white = 0xFFFFFFFF;
    for (int step = 0; step <= 3; ++step) // the short stroke, down to the right
        for (int thick = 0; thick < 2; ++thick)
            Put(picture, 3 + step, 6 + step + thick, white);
    for (int step = 0; step <= 5; ++step) // the long stroke, up to the right
        for (int thick = 0; thick < 2; ++thick)
            Put(picture, 6 + step, 9 - step + thick, white);
}

// A small triangle in the ink colour, centred, pointing up, down or right.
void DrawArrow(Image& picture, Mark way) {
    int middleX = picture.Width / 2, middleY = picture.Height / 2;
    for (int step = 0; step < 4; ++step) {
        int half = way == Mark::Up ? step : 3 - step;
        for (int across = -half - 1; across <= half; ++across) {
            if (way == Mark::Right)
                Put(picture, middleX - 2 + step, middleY + across, Colour("ink"));
            else
                Put(picture, middleX + across, middleY - 2 + step, Colour("ink"));
        }
    }
}

// A menu's separator: a line across the middle.
void DrawRule(Image& picture) {
    for (int x = 0; x < picture.Width; ++x)
        Put(picture, x, picture.Height / 2, Colour("line"));
}

// A small square in the line colour, centred.
void DrawDot(Image& picture) {
    for (int y = picture.Height / 2 - 2; y < picture.Height / 2 + 2; ++y)
        for (int x = picture.Width / 2 - 2; x < picture.Width / 2 + 2; ++x)
            Put(picture, x, y, Colour("line"));
}

// A slider's track: a thin band across the middle, the rest see-through.
void DrawBand(Image& picture) {
    for (int y = picture.Height / 2 - 2; y < picture.Height / 2 + 2; ++y)
        for (int x = 0; x < picture.Width; ++x)
            Put(picture, x, y, Colour("track"));
}

} // namespace

bool DefaultLook::Picture(const char* name, Image& picture) {
    if (!name || name[0] != '#') return false;
    for (const auto& row : kPictures) {
        if (StrCompareNoCase(row.Name, name) != 0) continue;
        picture.Width = row.Width;
        picture.Height = row.Height;
        picture.Pixels.assign(size_t(row.Width) * size_t(row.Height),
                              row.Face[0] ? Colour(row.Face) : 0);
        uint32_t line = row.Line[0] ? Colour(row.Line) : 0;
        for (int x = 0; line && x < row.Width; ++x)
            Put(picture, x, 0, line), Put(picture, x, row.Height - 1, line);
        for (int y = 0; line && y < row.Height; ++y)
            Put(picture, 0, y, line), Put(picture, row.Width - 1, y, line);
        if (row.Sign == Mark::Tick) DrawTick(picture);
        if (row.Sign == Mark::Up || row.Sign == Mark::Down || row.Sign == Mark::Right)
            DrawArrow(picture, row.Sign);
        if (row.Sign == Mark::Dot) DrawDot(picture);
        if (row.Sign == Mark::Rule) DrawRule(picture);
        if (row.Sign == Mark::Band) DrawBand(picture);
        return true;
    }
    return false;
}
