#include "TAVUKeyRegistry.h"

#include "StringHelpers.h"

#include <cctype>
#include <cstring>

namespace {

// A key means the same wherever it is read, so its kind and description are
// given once, and the rows of the types below only name their keys.
const TAVUKeyInfo kKeys[] = {
    {"Name", TAVUKeyAttribute, "The element's name, unique among its siblings."},
    {"Template", TAVUKeyAttribute, "The template whose keys stand in for those the element lacks."},
    {"ColorMask", TAVUKeyAttribute, "A hexadecimal ARGB colour multiplied into every texture."},
    {"Children", TAVUKeyChildren, "The elements made inside this one."},
    {"X", TAVUKeyPosition, "The left edge within the parent."},
    {"Y", TAVUKeyPosition, "The top edge within the parent."},
    {"Width", TAVUKeyPosition, "The width."},
    {"Height", TAVUKeyPosition, "The height."},
    {"Alpha", TAVUKeyNumber, "The opacity from 0 to 1."},
    {"FadeAlpha", TAVUKeyNumber, "The opacity the element fades to."},
    {"FadeDelay", TAVUKeyNumber, "Milliseconds before the fade begins."},
    {"FadeDuration", TAVUKeyNumber, "Milliseconds the fade takes."},
    {"StorePosition", TAVUKeyToggle, "Keeps the position the user gave between runs."},
    {"Strata", TAVUKeyNumber, "The layer among siblings; higher draws above."},
    {"AlwaysOnTop", TAVUKeyToggle, "Puts the element in the topmost layer."},
    {"Visible", TAVUKeyToggle, "Whether the element is shown."},
    {"AutoTooltip", TAVUKeyText, "The tooltip text shown while the pointer rests."},
    {"OnLoad", TAVUKeyScript, "Runs once the element and its children are made."},
    {"OnUnload", TAVUKeyScript, "Runs as the element goes."},
    {"OnLeftClick", TAVUKeyScript, "Runs on a left click, with X and Y."},
    {"OnRightClick", TAVUKeyScript, "Runs on a right click, with X and Y."},
    {"OnLeftDown", TAVUKeyScript, "Runs as the left button goes down, with X and Y."},
    {"OnRightDown", TAVUKeyScript, "Runs as the right button goes down, with X and Y."},
    {"OnDoubleLeftClick", TAVUKeyScript, "Runs on a left double click, with X and Y."},
    {"OnDoubleRightClick", TAVUKeyScript, "Runs on a right double click, with X and Y."},
    {"OnMouseEnter", TAVUKeyScript, "Runs as the pointer comes in, with X and Y."},
    {"OnMouseExit", TAVUKeyScript, "Runs as the pointer leaves."},
    {"OnMouseMove", TAVUKeyScript, "Runs as the pointer moves over it, with X and Y."},
    {"OnMouseWheel", TAVUKeyScript, "Runs as the wheel turns, with Offset."},
    {"OnKeyboardEnter", TAVUKeyScript, "Runs as the element takes the keyboard."},
    {"OnKeyboardExit", TAVUKeyScript, "Runs as the element loses the keyboard."},
    {"OnKeyUp", TAVUKeyScript, "Runs as a key comes up, with Key."},
    {"OnKeyDown", TAVUKeyScript, "Runs as a key goes down, with Key."},
    {"OnRender", TAVUKeyScript, "Runs before each drawing of the element."},
    {"OnChange", TAVUKeyScript, "Runs when the value changes."},
    {"OnSelect", TAVUKeyScript, "Runs when an entry is selected."},
    {"OnDeSelect", TAVUKeyScript, "Runs when an entry is deselected."},
    {"OnCommand", TAVUKeyScript, "Runs when a line is entered."},
    {"OnSetTooltip", TAVUKeyScript, "Runs to give the blip's tooltip."},
    {"Texture", TAVUKeyTexture, "The background texture."},
    {"TextureHover", TAVUKeyTexture, "The texture under the pointer."},
    {"TexturePressed", TAVUKeyTexture, "The texture while pressed."},
    {"TextureChecked", TAVUKeyTexture, "The texture while checked."},
    {"TextureCheckedPressed", TAVUKeyTexture, "The texture while checked and pressed."},
    {"TextureCheckedHover", TAVUKeyTexture, "The texture while checked and under the pointer."},
    {"TextureFocused", TAVUKeyTexture, "The texture while the entry has the keyboard."},
    {"TopTexture", TAVUKeyTexture, "The texture drawn over the filler."},
    {"HandleTexture", TAVUKeyTexture, "The texture of the handle."},
    {"ButtonTexture", TAVUKeyTexture, "The texture of the drop-down button."},
    {"ScrollbackTexture", TAVUKeyTexture, "The texture shown while scrolled back."},
    {"CaretTexture", TAVUKeyTexture, "The caret's texture."},
    {"CaretOverwriteTexture", TAVUKeyTexture, "The caret's texture in overwrite mode."},
    {"FrameTexture", TAVUKeyTexture, "The texture of the page frame."},
    {"TabTexture", TAVUKeyTexture, "The texture of a tab."},
    {"TabSelectedTexture", TAVUKeyTexture, "The texture of the selected tab."},
    {"UpTexture", TAVUKeyTexture, "The up button's texture."},
    {"UpTextureHover", TAVUKeyTexture, "The up button's texture under the pointer."},
    {"UpTexturePressed", TAVUKeyTexture, "The up button's texture while pressed."},
    {"DownTexture", TAVUKeyTexture, "The down button's texture."},
    {"DownTextureHover", TAVUKeyTexture, "The down button's texture under the pointer."},
    {"DownTexturePressed", TAVUKeyTexture, "The down button's texture while pressed."},
    {"LeftTexture", TAVUKeyTexture, "The left scroll button's texture."},
    {"LeftPressedTexture", TAVUKeyTexture, "The left scroll button's texture while pressed."},
    {"LeftHoverTexture", TAVUKeyTexture, "The left scroll button's texture under the pointer."},
    {"RightTexture", TAVUKeyTexture, "The right scroll button's texture."},
    {"RightPressedTexture", TAVUKeyTexture, "The right scroll button's texture while pressed."},
    {"RightHoverTexture", TAVUKeyTexture, "The right scroll button's texture under the pointer."},
    {"ItemTexture", TAVUKeyTexture, "The row of a menu item."},
    {"HighlightItemTexture", TAVUKeyTexture, "The row of the menu item under the pointer."},
    {"SubmenuTexture", TAVUKeyTexture, "The row that opens a submenu."},
    {"HighlightSubmenuTexture", TAVUKeyTexture, "The row that opens a submenu, under the pointer."},
    {"SeparatorTexture", TAVUKeyTexture, "The row of a separator."},
    {"ItemCheckTexture", TAVUKeyTexture, "The check mark of a checked menu item."},
    {"ImageTexture", TAVUKeyTexture, "The image beside a leaf node."},
    {"ImageTextureCollapsible", TAVUKeyTexture, "The image beside an open node."},
    {"ImageTextureCollapsed", TAVUKeyTexture, "The image beside a closed node."},
    {"Font", TAVUKeyFont, "The font of the text."},
    {"Text", TAVUKeyText, "The caption."},
    {"Title", TAVUKeyText, "The window's title."},
    {"BackgroundColor", TAVUKeyColor, "The fill colour when there is no texture."},
    {"BorderColor", TAVUKeyColor, "The colour of the border line."},
    {"Border", TAVUKeyNumber, "The border's width in pixels."},
    {"SelectionColor", TAVUKeyColor, "The colour behind selected text or entries."},
    {"SelectedTextColor", TAVUKeyColor, "The text colour of the selected tab."},
    {"SelectionBackgroundColor", TAVUKeyColor, "The colour behind the selected node."},
    {"SelectionTextColor", TAVUKeyColor, "The text colour of the selected node."},
    {"ScrollbackColor", TAVUKeyColor, "The text colour while scrolled back."},
    {"CaretInnerColor", TAVUKeyColor, "The caret's inner colour."},
    {"CaretOuterColor", TAVUKeyColor, "The caret's outer colour."},
    {"HighlightColor", TAVUKeyColor, "The colour behind the entry under the pointer."},
    {"FrameBackgroundColor", TAVUKeyColor, "The page frame's fill colour."},
    {"FrameBorderColor", TAVUKeyColor, "The page frame's border colour."},
    {"FrameBorder", TAVUKeyNumber, "The page frame's border width."},
    {"TabBorder", TAVUKeyNumber, "The border width of a tab."},
    {"TabHeight", TAVUKeyNumber, "The height of the tab row."},
    {"Tabs", TAVUKeyStructure, "The tabs, each with its page."},
    {"Draggable", TAVUKeyToggle, "Lets the user drag tabs into a new order."},
    {"Command", TAVUKeyText, "The script line run on a click."},
    {"CommandChecked", TAVUKeyText, "The script line run on a click that checks."},
    {"Console", TAVUKeyText, "The console that takes the command's output."},
    {"Data", TAVUKeyText, "The variable the control shows and sets."},
    {"Offset", TAVUKeyNumber, "Added to the variable's value."},
    {"VariableRange", TAVUKeyToggle, "Takes the range from the variable."},
    {"Range", TAVUKeyNumber, "The largest value."},
    {"Vertical", TAVUKeyToggle, "Runs from bottom to top instead of left to right."},
    {"Filler", TAVUKeyStructure, "The filler drawn for the value."},
    {"Repeat", TAVUKeyToggle, "Repeats the texture instead of stretching it."},
    {"Slider", TAVUKeyStructure, "The slider between the buttons."},
    {"UpButton", TAVUKeyStructure, "The up button."},
    {"DownButton", TAVUKeyStructure, "The down button."},
    {"Items", TAVUKeyStructure, "The entries, one Item each."},
    {"ListBox", TAVUKeyStructure, "The drop-down list."},
    {"ButtonWidth", TAVUKeyNumber, "The width of the drop-down button."},
    {"FullHeight", TAVUKeyNumber, "The height with the list open."},
    {"ScrollBar", TAVUKeyTemplate, "The template of the scroll bar."},
    {"VerticalScrollBar", TAVUKeyTemplate, "The template of the vertical scroll bar."},
    {"SelectMultiple", TAVUKeyToggle, "Lets more than one entry be selected."},
    {"Sort", TAVUKeyToggle, "Keeps the entries sorted."},
    {"Value", TAVUKeyText, "The entry's value."},
    {"BlipFactory", TAVUKeyText, "The element type of the blips."},
    {"BlipTemplate", TAVUKeyTemplate, "The template of the blips."},
    {"ClipRadius", TAVUKeyToggle, "Hides blips beyond the round edge."},
    {"ClipZ", TAVUKeyNumber, "Hides blips farther above or below than this."},
    {"MapSizeX", TAVUKeyNumber, "The width of the world the map shows."},
    {"MapSizeY", TAVUKeyNumber, "The depth of the world the map shows."},
    {"Rotation", TAVUKeyToggle, "Turns the map with the heading."},
    {"ShowLabels", TAVUKeyToggle, "Shows the blips' labels."},
    {"ColSpan", TAVUKeyNumber, "The columns the cell spans."},
    {"RowSpan", TAVUKeyNumber, "The rows the cell spans."},
    {"CommandHistory", TAVUKeyNumber, "How many entered lines are kept."},
    {"BackBufferSize", TAVUKeyNumber, "How many lines the console keeps."},
    {"Group", TAVUKeyText, "The group whose elements the line lists."},
    {"UpdateInterval", TAVUKeyNumber, "Milliseconds between updates."},
    {"Alignment", TAVUKeyText, "Left, Center or Right."},
    {"VerticalAlignment", TAVUKeyText, "Top, Center or Bottom."},
    {"Wrap", TAVUKeyToggle, "Wraps the text at the width."},
    {"MaxLength", TAVUKeyNumber, "The most characters the entry takes."},
    {"PasswordCharacter", TAVUKeyText, "Shown in place of each character."},
    {"ImageBorder", TAVUKeyNumber, "The space around a node's image."},
    {"ImageSize", TAVUKeyNumber, "The size of a node's image."},
    {"IndentPerDepth", TAVUKeyNumber, "The indent of each level."},
    {"ItemHeight", TAVUKeyNumber, "The height of a row."},
    {"TextMargin", TAVUKeyNumber, "The space before a node's text."},
    {"ClickFocus", TAVUKeyText, "The element that takes the keyboard on a click."},
    {"Client", TAVUKeyStructure, "The window's client area."},
    {"Locked", TAVUKeyToggle, "Keeps the window from moving."},
    {"CloseButton", TAVUKeyStructure, "Gives the window a close button."},
    {"MinimizeButton", TAVUKeyStructure, "Gives the window a minimise button."},
    {"Resizable", TAVUKeyStructure, "Lets the user resize the window."},
    {"WidthResizable", TAVUKeyStructure, "Lets the user resize the window's width."},
    {"HeightResizable", TAVUKeyStructure, "Lets the user resize the window's height."},
    {"OKColor", TAVUKeyColor, "The caption colour of the OK button."},
    {"OKTexture", TAVUKeyTexture, "The OK button's texture."},
    {"OKTextureHover", TAVUKeyTexture, "The OK button's texture under the pointer."},
    {"OKTexturePressed", TAVUKeyTexture, "The OK button's texture while pressed."},
    {"CancelColor", TAVUKeyColor, "The caption colour of the Cancel button."},
    {"CancelTexture", TAVUKeyTexture, "The Cancel button's texture."},
    {"CancelTextureHover", TAVUKeyTexture, "The Cancel button's texture under the pointer."},
    {"CancelTexturePressed", TAVUKeyTexture, "The Cancel button's texture while pressed."},
    {"YesColor", TAVUKeyColor, "The caption colour of the Yes button."},
    {"YesTexture", TAVUKeyTexture, "The Yes button's texture."},
    {"YesTextureHover", TAVUKeyTexture, "The Yes button's texture under the pointer."},
    {"YesTexturePressed", TAVUKeyTexture, "The Yes button's texture while pressed."},
    {"NoColor", TAVUKeyColor, "The caption colour of the No button."},
    {"NoTexture", TAVUKeyTexture, "The No button's texture."},
    {"NoTextureHover", TAVUKeyTexture, "The No button's texture under the pointer."},
    {"NoTexturePressed", TAVUKeyTexture, "The No button's texture while pressed."},
    {"OffsetTitleBarHeight", TAVUKeyToggle, "Places the client below the title bar."},
    {"OffsetTitleBarWidth", TAVUKeyToggle, "Places the client beside the title bar."},
    {"TitleBar", TAVUKeyStructure, "The title bar: its height, texture and buttons."},
    {"LeftButton", TAVUKeyStructure, "The button that scrolls the tabs left."},
    {"RightButton", TAVUKeyStructure, "The button that scrolls the tabs right."},
};

struct TypeRow {
    const char* Name;
    const char* Base;
    const char* Keys; // separated by spaces
    const char* Documentation;
};

// The base comes before the types built on it.
const TypeRow kTypes[] = {
    {"element", nullptr,
     "Name Template Children X Y Height Width Alpha FadeAlpha FadeDelay FadeDuration "
     "StorePosition Strata AlwaysOnTop Visible OnLoad OnUnload OnLeftClick OnRightClick "
     "OnLeftDown OnRightDown OnDoubleLeftClick OnDoubleRightClick OnMouseEnter OnMouseExit "
     "OnMouseMove OnMouseWheel OnKeyboardEnter OnKeyboardExit OnKeyUp OnKeyDown OnRender "
     "AutoTooltip",
     "What every element reads."},
    {"frame", "element", "Texture BackgroundColor Border BorderColor",
     "A rectangle with a texture or a fill and border."},
    {"button", "element",
     "Texture TextureHover TexturePressed ColorMask Font Text BackgroundColor Border BorderColor",
     "A push button with a caption."},
    {"commandbutton", "button", "Command Console", "A button that runs a script line."},
    {"checkbox", "element",
     "Texture TexturePressed TextureHover TextureChecked TextureCheckedPressed "
     "TextureCheckedHover ColorMask Font Text",
     "A box that toggles on a click."},
    {"commandcheckbox", "checkbox", "Command CommandChecked Console Data",
     "A check box that runs a script line and shows a variable."},
    {"text", "element", "Font Text Alignment VerticalAlignment Wrap", "A caption."},
    {"textentry", "element",
     "Texture TextureFocused Font BackgroundColor Border BorderColor CaretInnerColor "
     "CaretOuterColor SelectionColor MaxLength PasswordCharacter OnChange",
     "A one-line text entry."},
    {"commandentry", "textentry", "CommandHistory Console OnCommand",
     "An entry that runs what is typed."},
    {"console", "element",
     "Texture ScrollbackTexture Font BackgroundColor Border BorderColor ScrollBar "
     "ScrollbackColor SelectionColor BackBufferSize",
     "Lines of output that scroll back."},
    {"textedit", "frame",
     "Font CaretTexture CaretOverwriteTexture CaretInnerColor CaretOuterColor SelectionColor "
     "VerticalScrollBar",
     "A text editor of many lines."},
    {"hudelement", "element", "Font Text Group UpdateInterval", "A line of text kept up to date."},
    {"slider", "element", "Texture HandleTexture ColorMask Border Range Vertical OnChange",
     "A handle dragged along a track."},
    {"variableslider", "slider", "Data Offset VariableRange", "A slider that sets a variable."},
    {"scrollbar", "element",
     "UpTexture UpTextureHover UpTexturePressed DownTexture DownTextureHover DownTexturePressed "
     "UpButton DownButton Slider Range Vertical",
     "Two buttons and a slider."},
    {"gauge", "frame", "Filler TopTexture ColorMask Range Vertical", "A bar filled in proportion."},
    {"variablegauge", "gauge", "Data Offset", "A gauge that shows a variable."},
    {"gaugefiller", "element", "Texture ColorMask Repeat", "The filled part of a gauge."},
    {"listbox", "element",
     "Texture ColorMask Font BackgroundColor Border BorderColor SelectionColor ScrollBar "
     "SelectMultiple Sort Items OnSelect OnDeSelect",
     "A list of entries."},
    {"combobox", "element",
     "Texture ButtonTexture Font Border ButtonWidth FullHeight ListBox Items OnSelect",
     "An entry with a drop-down list."},
    {"tabcontrol", "element",
     "Font FrameTexture TabTexture TabSelectedTexture LeftTexture LeftPressedTexture "
     "LeftHoverTexture RightTexture RightPressedTexture RightHoverTexture Draggable "
     "FrameBackgroundColor FrameBorder FrameBorderColor SelectedTextColor TabBorder TabHeight "
     "Tabs LeftButton RightButton OnSelect",
     "Pages under a row of tabs."},
    {"table", "frame", "", "Cells in rows and columns."},
    {"tablecell", "frame", "ColSpan RowSpan", "A cell of a table."},
    {"tree", "frame",
     "Font ImageTexture ImageTextureCollapsible ImageTextureCollapsed ImageBorder ImageSize "
     "IndentPerDepth ItemHeight ScrollBar SelectionBackgroundColor SelectionTextColor TextMargin "
     "OnSelect OnDeSelect",
     "Nodes in a tree that open and close."},
    {"map", "element",
     "BlipFactory BlipTemplate ClipRadius ClipZ MapSizeX MapSizeY Rotation ShowLabels",
     "A map of the world with blips."},
    {"mapview", "element", "ClipRadius ClipZ MapSizeX MapSizeY Rotation ShowLabels",
     "A view of a map's blips."},
    {"mapblip", "frame", "Font OnSetTooltip", "A point on a map."},
    {"mapblipview", "frame", "", "A blip as a map view shows it."},
    {"window", "frame",
     "Title TitleBar ClickFocus Client Locked CloseButton MinimizeButton Resizable WidthResizable "
     "HeightResizable",
     "A window with a title bar."},
    {"windowclient", "frame", "", "The client area of a window."},
    {"messagebox", "window",
     "OKColor CancelColor YesColor NoColor OKTexture OKTextureHover OKTexturePressed "
     "CancelTexture CancelTextureHover CancelTexturePressed YesTexture YesTextureHover "
     "YesTexturePressed NoTexture NoTextureHover NoTexturePressed OffsetTitleBarHeight "
     "OffsetTitleBarWidth Font",
     "A window with a message and buttons."},
    {"scriptmessagebox", "messagebox", "", "A message box that runs script on an answer."},
    {"scriptinputbox", "window",
     "OffsetTitleBarHeight OffsetTitleBarWidth Font OKColor CancelColor OKTexture OKTextureHover "
     "OKTexturePressed CancelTexture CancelTextureHover CancelTexturePressed",
     "A window that asks for a line of text."},
    {"tooltip", "frame", "Font", "The tip shown while the pointer rests."},
    {"contextmenu", "frame",
     "Font HighlightColor ItemTexture HighlightItemTexture SubmenuTexture "
     "HighlightSubmenuTexture SeparatorTexture ItemCheckTexture",
     "A menu opened on a click."},
};

const unsigned kTypeCount = sizeof(kTypes) / sizeof(kTypes[0]);

// Types that only their owners make; their keys stand in templates. Their
// readers refuse a node, so no test can watch them read: keep these rows by
// hand.
const char* const kOwnerMade[] = {"gaugefiller",      "mapblipview",    "messagebox",
                                  "scriptmessagebox", "scriptinputbox", "contextmenu"};

// Modules' types, in the order they were added. A plain array: it needs no
// destruction, so a module that unloads late finds it still there.
const TAVUKeyType* g_Added[TAVUKeyRegistry::MaxAddedTypes];
unsigned g_AddedCount = 0;

unsigned AllTypes() {
    return kTypeCount + g_AddedCount;
}

const TAVUKeyType* AddedType(unsigned type) {
    return type >= kTypeCount && type - kTypeCount < g_AddedCount ? g_Added[type - kTypeCount]
                                                                  : nullptr;
}

const TAVUKeyInfo* InfoOf(const char* name, size_t length) {
    for (const TAVUKeyInfo& info : kKeys)
        if (std::strlen(info.Name) == length && StrCompareNoCaseN(info.Name, name, length) == 0)
            return &info;
    return nullptr;
}

// Calls visit(info) for each key of the row's own list, in order, until it
// answers true; answers that key.
template <class Visit> const TAVUKeyInfo* EachKey(const TypeRow& row, Visit visit) {
    const char* at = row.Keys;
    while (*at) {
        while (*at == ' ')
            ++at;
        const char* end = at;
        while (*end && *end != ' ')
            ++end;
        if (end > at) {
            const TAVUKeyInfo* info = InfoOf(at, size_t(end - at));
            if (info && visit(info)) return info;
        }
        at = end;
    }
    return nullptr;
}

template <class Visit> const TAVUKeyInfo* EachKeyOf(unsigned type, Visit visit) {
    if (type < kTypeCount) return EachKey(kTypes[type], visit);
    const TAVUKeyType* added = AddedType(type);
    for (unsigned at = 0; added && at < added->KeyCount; ++at)
        if (added->Keys[at].Name && visit(&added->Keys[at])) return &added->Keys[at];
    return nullptr;
}

// Calls visit(type) for the type and each of its bases, the type first. The
// steps are bounded: a module's base that went and came back after it could
// otherwise lead round in a ring.
template <class Visit> void EachBase(unsigned type, Visit visit) {
    int at = int(type);
    for (unsigned steps = 0; at >= 0 && unsigned(at) < AllTypes() && steps < AllTypes(); ++steps) {
        if (visit(unsigned(at))) return;
        const char* base = TAVUKeyRegistry::BaseType(unsigned(at));
        at = base ? TAVUKeyRegistry::FindType(base) : -1;
    }
}

// Edits between two names ignoring case, capped: names longer than the cap
// are never near anything.
unsigned EditDistance(const char* a, const char* b) {
    enum { Cap = 64 };
    size_t la = std::strlen(a), lb = std::strlen(b);
    if (la >= Cap || lb >= Cap) return Cap;
    unsigned row[Cap + 1];
    for (size_t j = 0; j <= lb; ++j)
        row[j] = unsigned(j);
    for (size_t i = 1; i <= la; ++i) {
        unsigned diagonal = row[0];
        row[0] = unsigned(i);
        for (size_t j = 1; j <= lb; ++j) {
            unsigned above = row[j];
            bool same =
                std::tolower((unsigned char)a[i - 1]) == std::tolower((unsigned char)b[j - 1]);
            unsigned best = diagonal + (same ? 0 : 1);
            if (above + 1 < best) best = above + 1;
            if (row[j - 1] + 1 < best) best = row[j - 1] + 1;
            row[j] = best;
            diagonal = above;
        }
    }
    return row[lb];
}

} // namespace

unsigned TAVUKeyRegistry::TypeCount() {
    return AllTypes();
}

const char* TAVUKeyRegistry::TypeName(unsigned type) {
    if (type < kTypeCount) return kTypes[type].Name;
    const TAVUKeyType* added = AddedType(type);
    return added ? added->Name : nullptr;
}

const char* TAVUKeyRegistry::TypeDocumentation(unsigned type) {
    if (type < kTypeCount) return kTypes[type].Documentation;
    const TAVUKeyType* added = AddedType(type);
    return added ? added->Documentation : nullptr;
}

const char* TAVUKeyRegistry::BaseType(unsigned type) {
    if (type < kTypeCount) return kTypes[type].Base;
    const TAVUKeyType* added = AddedType(type);
    return added ? added->Base : nullptr;
}

bool TAVUKeyRegistry::MadeFromFiles(unsigned type) {
    if (AddedType(type)) return true;
    if (type >= kTypeCount) return false;
    for (const char* name : kOwnerMade)
        if (StrCompareNoCase(name, kTypes[type].Name) == 0) return false;
    return true;
}

int TAVUKeyRegistry::FindType(const char* name) {
    if (!name) return -1;
    for (unsigned type = 0; type < AllTypes(); ++type)
        if (const char* each = TypeName(type); each && StrCompareNoCase(each, name) == 0)
            return int(type);
    return -1;
}

unsigned TAVUKeyRegistry::KeyCount(unsigned type) {
    unsigned count = 0;
    EachKeyOf(type, [&](const TAVUKeyInfo*) {
        ++count;
        return false;
    });
    return count;
}

const TAVUKeyInfo* TAVUKeyRegistry::Key(unsigned type, unsigned index) {
    return EachKeyOf(type, [&](const TAVUKeyInfo*) { return index-- == 0; });
}

const TAVUKeyInfo* TAVUKeyRegistry::FindKey(unsigned type, const char* name) {
    if (!name) return nullptr;
    const TAVUKeyInfo* found = nullptr;
    EachBase(type, [&](unsigned at) {
        found = EachKeyOf(
            at, [&](const TAVUKeyInfo* info) { return StrCompareNoCase(info->Name, name) == 0; });
        return found != nullptr;
    });
    return found;
}

const TAVUKeyInfo* TAVUKeyRegistry::NearestKey(unsigned type, const char* name) {
    if (!name || !name[0]) return nullptr;
    const TAVUKeyInfo* best = nullptr;
    unsigned bestDistance = 0;
    EachBase(type, [&](unsigned at) {
        EachKeyOf(at, [&](const TAVUKeyInfo* info) {
            unsigned distance = EditDistance(info->Name, name);
            if (!best || distance < bestDistance) best = info, bestDistance = distance;
            return false;
        });
        return false;
    });
    // A third of the name may be wrong: "Widht" is Width, "Colour" is not Font.
    size_t allowed = std::strlen(name) / 3 + 1;
    return best && bestDistance <= allowed ? best : nullptr;
}

bool TAVUKeyRegistry::AddType(const TAVUKeyType* type) {
    if (!type || !type->Name || !type->Name[0] || g_AddedCount >= MaxAddedTypes ||
        (type->KeyCount && !type->Keys) || FindType(type->Name) >= 0 || FindType(type->Base) < 0)
        return false;
    g_Added[g_AddedCount++] = type;
    return true;
}

void TAVUKeyRegistry::RemoveType(const TAVUKeyType* type) {
    for (unsigned at = 0; at < g_AddedCount; ++at)
        if (g_Added[at] == type) {
            for (unsigned next = at + 1; next < g_AddedCount; ++next)
                g_Added[next - 1] = g_Added[next];
            --g_AddedCount;
            return;
        }
}

const char* TAVUKeyRegistry::KindName(TAVUKeyKind kind) {
    static const char* const kNames[] = {"number", "position", "toggle",    "color",
                                         "text",   "template", "texture",   "font",
                                         "script", "children", "structure", "attribute"};
    return unsigned(kind) < sizeof(kNames) / sizeof(kNames[0]) ? kNames[kind] : "text";
}

const TAVUKeyRegistryTable* TavuKeyRegistry() {
    static const TAVUKeyRegistryTable kTable = {
        TAVUKeyRegistry::TypeCount,         TAVUKeyRegistry::TypeName,
        TAVUKeyRegistry::TypeDocumentation, TAVUKeyRegistry::BaseType,
        TAVUKeyRegistry::MadeFromFiles,     TAVUKeyRegistry::FindType,
        TAVUKeyRegistry::KeyCount,          TAVUKeyRegistry::Key,
        TAVUKeyRegistry::FindKey,           TAVUKeyRegistry::NearestKey,
        TAVUKeyRegistry::KindName};
    return &kTable;
}
