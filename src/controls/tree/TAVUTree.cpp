#include "TAVUTree.h"

#include "CUIManager.h"
#include "HostScriptInterface.h"
#include "Module.h"
#include "NumberHelpers.h"
#include "RXTypeVar.h"
#include "StringHelpers.h"
#include "TAVUControlHelpers.h"
#include "TAVUElementWatch.h"
#include "TAVUEmbeddedScript.h"
#include "TAVUFactory.h"
#include "TAVUFont.h"
#include "TAVUScriptTypes.h"
#include "TAVUScrollBar.h"
#include "TAVUTexture.h"
#include "TAVUTreeNode.h"
#include "XMLHelper.h"

#include <algorithm>
#include <cstdint>

namespace {
const char kTypeWord[] = "tree";
// A script that keeps selecting inside a subtree being removed is given this
// many turns; then the selection goes without asking.
const int kReleaseTurns = 4;
} // namespace

TAVUFactory<TAVUTree> g_TAVUTreeFactory(kTypeWord);

TAVUTree::TAVUTree(const char* type, TAVUElement* parent, const char* name)
    : TAVUFrame(type, parent, name) {}

// The selection goes quietly: no script runs on a tree being destroyed.
TAVUTree::~TAVUTree() {
    Selection = nullptr;
    if (Root) {
        DeleteDescendants(Root);
        delete Root;
    }
    TAVUFont::Delete(Font);
    if (OnSelect) OnSelect->Delete();
    if (OnDeSelect) OnDeSelect->Delete();
    TAVUTexture::Delete(ImageTexture);
    TAVUTexture::Delete(ImageTextureCollapsible);
    TAVUTexture::Delete(ImageTextureCollapsed);
}

bool TAVUTree::FromXML(XMLNode* node, XMLNode* templateNode) {
    templateNode = TAVUControlHelpers::ResolveTemplate(node, templateNode, kTypeWord);
    if (!TAVUFrame::FromXML(node, templateNode)) return false;
    TAVUFont::Delete(Font);
    Font = FontFromXML(node, "Font", templateNode);
    if (!Font) return false;
    DefaultTextColor = Font->Color;
    ReadKeys(node, templateNode);
    if (!LoadScrollBar(node, templateNode)) return false;
    if (!Root) Root = new TAVUTreeNode(this, "", 0);
    return true;
}

void TAVUTree::ReadKeys(XMLNode* node, XMLNode* templateNode) {
    using Helpers = TAVUControlHelpers;
    IndentPerDepth = Helpers::ReadInt(node, templateNode, "IndentPerDepth", 0);
    ImageSize = Helpers::ReadInt(node, templateNode, "ImageSize", 0);
    ImageBorder = Helpers::ReadInt(node, templateNode, "ImageBorder", 0);
    TextMargin = Helpers::ReadInt(node, templateNode, "TextMargin", 0);
    ItemHeight = Helpers::ReadInt(node, templateNode, "ItemHeight", 0);
    SelectionBackgroundColor = Helpers::ReadHex(node, templateNode, "SelectionBackgroundColor", 0);
    SelectionTextColor = Helpers::ReadHex(node, templateNode, "SelectionTextColor", 0);
    TAVUEmbeddedScript** events[2] = {&OnSelect, &OnDeSelect};
    const char* eventKeys[2] = {"OnSelect", "OnDeSelect"};
    for (int i = 0; i < 2; ++i) {
        TAVUEmbeddedScript* script = EmbeddedScriptFromXML(node, eventKeys[i], templateNode, "");
        if (!script) continue;
        if (*events[i]) (*events[i])->Delete();
        *events[i] = script;
    }
    TAVUTexture** images[3] = {&ImageTexture, &ImageTextureCollapsible, &ImageTextureCollapsed};
    const char* imageKeys[3] = {"ImageTexture", "ImageTextureCollapsible", "ImageTextureCollapsed"};
    for (int i = 0; i < 3; ++i)
        Helpers::ReplaceTexture(*images[i], TextureFromXML(node, imageKeys[i], templateNode));
}

// The scroll bar stands at the top of a range of 1 until the first frame
// fits it to the rows.
bool TAVUTree::LoadScrollBar(XMLNode* node, XMLNode* templateNode) {
    if (ScrollBar) return true;
    XMLNode* child = XMLHelper::GetChild(node, "ScrollBar");
    if (!child) child = XMLHelper::GetChild(templateNode, "ScrollBar");
    ScrollBar = static_cast<TAVUScrollBar*>(
        g_UIManager.LoadElement(this, "scrollbar", "vertical", child, nullptr));
    if (!ScrollBar) return false;
    TAVUElementWatch watch(this);
    ScrollBar->SetRange(1);
    if (watch.Alive() && ScrollBar) ScrollBar->SetValue(1);
    if (watch.Alive() && ScrollBar) ScrollBar->RecalculateSize(true);
    return watch.Alive();
}

bool TAVUTree::IsTypeOf(const char* type) {
    return StrCompareNoCase(type, kTypeWord) == 0 || TAVUFrame::IsTypeOf(type);
}

RXTypeDefinition* TAVUTree::GetRXType() {
    return pTAVUTreeType;
}

TAVUTreeNode* TAVUTree::GetNode(uint64_t handle) const {
    auto* node = reinterpret_cast<TAVUTreeNode*>(uintptr_t(handle));
    return Nodes.count(node) ? node : nullptr;
}

void TAVUTree::Register(TAVUTreeNode* node) {
    Nodes.insert(node);
}

void TAVUTree::Forget(TAVUTreeNode* node) {
    if (Selection == node) Selection = nullptr;
    if (CachedRow == node) CachedVersion = 0;
    Nodes.erase(node);
    ++Removals;
}

unsigned TAVUTree::VisibleRowCount() const {
    return Root ? Root->ChildRows : 0;
}

// A script run from OnDeSelect that selects again wins: the outer call then
// leaves the selection as the script made it, and OnDeSelect does not run
// for a selection made while it runs.
void TAVUTree::Select(TAVUTreeNode* node) {
    if (node == Selection) return;
    TAVUElementWatch watch(this);
    if (Selection && OnDeSelect && !Deselecting) {
        TAVUTreeNode* old = Selection;
        Deselecting = true;
        OnDeSelect->Execute(0, nullptr);
        if (!watch.Alive()) return;
        Deselecting = false;
        if (Selection != old) return;
        if (node && !Nodes.count(node)) node = nullptr; // the script removed it
    }
    Selection = node;
    if (node && OnSelect) OnSelect->Execute(0, nullptr);
}

bool TAVUTree::ReleaseSelectionIn(TAVUTreeNode* top, bool withTop) {
    auto inside = [&](TAVUTreeNode* node) {
        if (!node || (node == top && !withTop)) return false;
        for (; node; node = node->Parent)
            if (node == top) return true;
        return false;
    };
    for (int turn = 0; turn < kReleaseTurns && inside(Selection); ++turn) {
        TAVUElementWatch watch(this);
        Select(nullptr);
        if (!watch.Alive() || !Nodes.count(top)) return false;
    }
    if (inside(Selection)) Selection = nullptr;
    return true;
}

// Leaves first, each from its parent's head, so no walk goes deeper than a
// loop: a tree nested thousands deep is taken down in one pass.
void TAVUTree::DeleteDescendants(TAVUTreeNode* top) {
    if (!top->FirstChild) return;
    top->ChildRowsChanged(-int64_t(top->ChildRows));
    TAVUTreeNode* node = top;
    while (true) {
        if (node->FirstChild) {
            node = node->FirstChild;
            continue;
        }
        if (node == top) break;
        TAVUTreeNode* parent = node->Parent;
        parent->FirstChild = node->Next;
        if (node->Next) node->Next->Previous = nullptr;
        if (parent->LastChild == node) parent->LastChild = nullptr;
        Forget(node);
        delete node;
        node = parent;
    }
    top->ChildRows = 0;
    ShapeChanged();
}

// The register is ordered by address. A query may run script that adds or
// removes nodes, or deletes the tree: the walk finds its place again after a
// removal, stops with the tree, and looks at no more nodes than there were.
TAVUTreeNode* TAVUTree::FindNode(const char* query) {
    unsigned compiled = g_pHostScript->CompileQuery(query);
    if (!compiled) return nullptr;
    TAVUElementWatch watch(this);
    TAVUTreeNode* found = nullptr;
    size_t left = Nodes.size();
    auto place = Nodes.begin();
    while (left-- > 0 && place != Nodes.end()) {
        TAVUTreeNode* node = *place;
        _RXTypeVar object{};
        object.Type = pTAVUTreeNodeType;
        object.Value.Pointer = node;
        bool result = false;
        uint64_t removals = Removals;
        bool evaluated = g_pHostScript->EvaluateQuery(compiled, &object, &result);
        if (!watch.Alive()) break;
        if (evaluated && result && Nodes.count(node)) {
            found = node;
            break;
        }
        place = removals == Removals ? std::next(place) : Nodes.upper_bound(node);
    }
    g_pHostScript->FreeQuery(compiled);
    return watch.Alive() ? found : nullptr;
}

uint64_t TAVUTree::FirstPlace() const {
    return int32_t(ScrollOffset) < 0 ? 0 : ScrollOffset;
}

TAVUTreeNode* TAVUTree::AfterSubtree(TAVUTreeNode* node, unsigned& depth) const {
    for (; node && node != Root; node = node->Parent, --depth)
        if (node->Next) return node->Next;
    return nullptr;
}

// Whole subtrees before the place are stepped over by their counts.
TAVUTreeNode* TAVUTree::FindRowAt(uint64_t place, unsigned& depth) const {
    depth = 0;
    TAVUTreeNode* node = Root ? Root->FirstChild : nullptr;
    while (node) {
        uint64_t rows = node->Rows();
        if (place >= rows) {
            place -= rows;
            node = AfterSubtree(node, depth);
        } else if (place == 0) {
            return node;
        } else {
            --place;
            node = node->FirstChild;
            ++depth;
        }
    }
    return nullptr;
}

TAVUTreeNode* TAVUTree::RowAt(uint64_t place, unsigned& depth) {
    if (CachedVersion != ShapeVersion || CachedPlace != place) {
        CachedRow = FindRowAt(place, CachedDepth);
        CachedVersion = ShapeVersion;
        CachedPlace = place;
    }
    depth = CachedDepth;
    return CachedRow;
}

// The row whose pitch holds the point, counted from the first row shown;
// with no height to the rows none ever does. The image zone takes in the
// margin after the image.
TAVUTreeNode* TAVUTree::NodeFromPoint(int x, int y, bool& onImage) {
    onImage = false;
    int64_t border = Border;
    int64_t down = int64_t(y) - AbsolutePosition.y - border - 2;
    if (down > Height || ItemHeight == 0) return nullptr;
    int64_t pitch = ItemHeight;
    uint64_t rowsDown = down <= 0 ? 0 : uint64_t((down + pitch - 1) / pitch - 1);
    unsigned depth = 0;
    TAVUTreeNode* node = FindRowAt(FirstPlace() + rowsDown, depth);
    if (!node) return nullptr;
    int64_t across = int64_t(x) - AbsolutePosition.x - border - 2 - int64_t(depth) * IndentPerDepth;
    if (across < 0) return nullptr;
    onImage = across <= int64_t(TextMargin) + ImageSize;
    return node;
}

bool TAVUTree::FitScrollBar(int64_t avail) {
    if (!ScrollBar) return true;
    int64_t count = VisibleRowCount();
    int64_t rows = ItemHeight ? avail / int64_t(ItemHeight) : count + 1;
    bool show = rows - 1 < count;
    int64_t needed = show ? std::min<int64_t>(count - (rows - 1), UINT32_MAX) : 0;
    if (!show) ScrollOffset = 0;
    TAVUElementWatch watch(this);
    ScrollBar->Show(show);
    if (!watch.Alive() || !ScrollBar) return watch.Alive();
    unsigned former = ScrollBar->Range;
    if (unsigned(needed) == former) return true;
    unsigned old = ScrollBar->GetValue();
    ScrollBar->SetRange(unsigned(needed));
    if (!watch.Alive() || !ScrollBar) return watch.Alive();
    if (old == former) ScrollBar->SetValue(unsigned(needed));
    if (!watch.Alive() || !ScrollBar) return watch.Alive();
    ScrollOffset = unsigned(needed) - ScrollBar->GetValue();
    return true;
}

// With a row height of 0 no row fits: the frame is drawn, and no row.
void TAVUTree::Render() {
    int border = int(Border);
    int left = WrapAdd(AbsolutePosition.x, WrapAdd(2, border));
    int top = WrapAdd(AbsolutePosition.y, WrapAdd(2, border));
    int64_t avail = int64_t(Height) - border - 2;
    int bottom = WrapAdd(top, int(avail));
    if (!FitScrollBar(avail)) return;
    bool barShown = ScrollBar && ScrollBar->Visible;
    int barWidth = barShown ? ScrollBar->Width : 0;
    int right = WrapSubtract(WrapAdd(WrapSubtract(left, 2), Width), border);
    right = WrapSubtract(right, barWidth);
    TAVUElementWatch watch(this);
    TAVUFrame::Render();
    if (!watch.Alive() || !Root || ItemHeight == 0) return;
    int width = Width;
    Width = WrapSubtract(Width, barWidth); // clipped text stops short of the bar
    DrawRows(left, top, bottom, right);
    Width = width;
}

// A row is drawn only while a whole pitch is left above the bottom.
void TAVUTree::DrawRows(int left, int top, int bottom, int right) {
    unsigned depth = 0;
    TAVUTreeNode* node = RowAt(FirstPlace(), depth);
    int64_t pitch = ItemHeight;
    while (node) {
        if (pitch + top >= bottom) return;
        int indent = int(unsigned(depth) * IndentPerDepth);
        DrawRow(node, WrapAdd(left, indent), top, right);
        top = WrapAdd(top, int(ItemHeight));
        if (top + pitch >= bottom) return;
        if (node->Expanded && node->FirstChild) {
            node = node->FirstChild;
            ++depth;
        } else {
            node = AfterSubtree(node, depth);
        }
    }
}

// The image stands at the top of the row, its top edge moved down by half
// the spare height when the row is taller; the text is centred the same way.
void TAVUTree::DrawRow(TAVUTreeNode* node, int left, int top, int right) {
    int size = int(ImageSize);
    int pitch = int(ItemHeight);
    if (node->Image && int64_t(left) + ImageSize < right) {
        TAVUTexture* texture = node->Image;
        if (node->FirstChild && node->Expanded && node->ImageCollapsible)
            texture = node->ImageCollapsible;
        if (node->FirstChild && !node->Expanded && node->ImageCollapsed)
            texture = node->ImageCollapsed;
        tagRECT image{left, top, WrapAdd(left, size), WrapAdd(top, size)};
        if (ItemHeight > ImageSize) image.top = WrapAdd(image.top, (pitch - size) >> 1);
        TexturedRectBordered(image, texture, ImageBorder);
    }
    if (!node->Text || !node->Text[0] || !Font) return;
    bool selected = node == Selection;
    unsigned color = Font->Color;
    Font->Color = selected ? SelectionTextColor : node->TextColor;
    int fontHeight = int(Font->Height);
    int y = top;
    if (ItemHeight > Font->Height) y = WrapAdd(y, (pitch - fontHeight) >> 1);
    if (selected) {
        tagRECT band{WrapAdd(left, size), y, WrapSubtract(right, 1), WrapAdd(y, fontHeight)};
        FillRect(band, SelectionBackgroundColor);
    }
    DrawTextClipped(Font, node->Text, WrapAdd(WrapAdd(left, int(TextMargin)), size), y);
    Font->Color = color;
}

// A press on a row's image (or the margin after it) only opens or closes
// the row; anywhere else it selects the row, or nothing below the last.
// False when a script run by the selection deleted the tree.
bool TAVUTree::PressRow(_Point2i& point) {
    bool onImage = false;
    TAVUTreeNode* node = NodeFromPoint(point.x, point.y, onImage);
    if (node && onImage) {
        node->ToggleExpand();
        return true;
    }
    TAVUElementWatch watch(this);
    Select(node);
    return watch.Alive();
}

bool TAVUTree::OnLMouseDown(_Point2i& point) {
    if (!HitTest(point)) return false;
    if (ScrollBar && ScrollBar->Visible && ScrollBar->HitTest(point)) return true;
    if (PressRow(point)) TAVUElement::OnLMouseDown(point);
    return true;
}

bool TAVUTree::OnRMouseDown(_Point2i& point) {
    if (!HitTest(point)) return false;
    if (ScrollBar && ScrollBar->Visible && ScrollBar->HitTest(point)) return true;
    if (PressRow(point)) TAVUElement::OnRMouseDown(point);
    return true;
}

bool TAVUTree::OnLMouseUp(_Point2i& point) {
    TAVUElement::OnLMouseUp(point);
    return true;
}

// The right release fires the left release's event: interfaces rely on it,
// so it stays.
bool TAVUTree::OnRMouseUp(_Point2i& point) {
    TAVUElement::OnLMouseUp(point);
    return true;
}

bool TAVUTree::OnLMouseDoubleClick(_Point2i& point) {
    TAVUElement::OnLMouseDoubleClick(point);
    return true;
}

bool TAVUTree::OnMouseMove(_Point2i& point) {
    TAVUElement::OnMouseMove(point);
    return true;
}

// A notch of 120 moves three rows. The element's own wheel event sees the
// size of the turn without its direction.
bool TAVUTree::OnMouseWheel(int offset) {
    int64_t magnitude = offset < 0 ? -int64_t(offset) : offset;
    if (ScrollBar && ScrollBar->Visible) {
        TAVUElementWatch watch(this);
        if (offset < 0)
            ScrollBar->LowerValue(unsigned(magnitude / 40));
        else
            ScrollBar->RaiseValue(unsigned(magnitude / 40));
        if (!watch.Alive()) return true;
    }
    TAVUElement::OnMouseWheel(int(std::min<int64_t>(magnitude, INT32_MAX)));
    return true;
}

// Only the scroll bar speaks to the tree, and nothing goes further up. A
// vertical scroll bar is highest at the top, so the top row is the range
// less the value.
void TAVUTree::OnNotify(TAVUElement* source, unsigned code, size_t value) {
    if (!source || source != ScrollBar) return;
    if (code == TAVU_NOTIFY_CHILD_REMOVED)
        ScrollBar = nullptr;
    else if (code == TAVU_NOTIFY_VALUE_CHANGED)
        ScrollOffset = ScrollBar->Range - unsigned(value);
}
