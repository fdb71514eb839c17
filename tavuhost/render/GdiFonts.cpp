// Fonts through GDI, the system's own: a face is created by name, pixel height
// and weight, and each glyph is drawn white on black into a small DIB section
// of its own face, from which its coverage is read. Measuring and drawing both
// take the advance GDI gives, so that text is as wide drawn as measured.
#include "DibSection.h"
#include "FontFace.h"

#include <algorithm>
#include <cstring>

namespace {

// Faces that every Windows has, and that Wine ships with its own fonts.
const char* const kSansFaces[] = {"Tahoma", "MS Sans Serif"};
const char* const kFixedFaces[] = {"Courier New", "Courier"};

// A glyph may reach past its advance on either side (italics, kerning
// overhangs): the bitmap keeps this much room around the pen.
int MarginFor(int height) {
    return height / 2 + 2;
}

// Owns one GDI object and deletes it with its handle.
template <typename Handle> class GdiObject {
public:
    GdiObject() = default;
    explicit GdiObject(Handle handle) : Object(handle) {}
    ~GdiObject() {
        if (Object) DeleteObject(Object);
    }
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    Handle Get() const { return Object; }
    void Reset(Handle handle) {
        if (Object) DeleteObject(Object);
        Object = handle;
    }

private:
    Handle Object = nullptr;
};

class GdiFace final : public FontFace {
public:
    GdiFace(HDC dc, HFONT font) : Context(dc), Font(font) {
        SelectObject(Context, Font.Get());
        GetTextMetricsW(Context, &Metrics);
        char name[LF_FACESIZE] = {0};
        GetTextFaceA(Context, sizeof(name), name);
        Family = name;
        Margin = MarginFor(Metrics.tmHeight);
        CanvasWidth = std::max<int>(Metrics.tmMaxCharWidth, Metrics.tmAveCharWidth) + 2 * Margin;
        CanvasHeight = Metrics.tmHeight + 2 * Margin;
        MakeCanvas();
    }
    ~GdiFace() override {
        SelectObject(Context, GetStockObject(SYSTEM_FONT));
        if (Canvas.Get()) SelectObject(Context, Previous);
        DeleteDC(Context);
    }
    GdiFace(const GdiFace&) = delete;
    GdiFace& operator=(const GdiFace&) = delete;

    bool Ready() const { return Bits != nullptr; }
    int Ascent() const override { return int(Metrics.tmAscent); }
    std::string FamilyName() const override { return Family; }
    // TMPF_FIXED_PITCH set means the face is *not* of fixed pitch.
    bool Fixed() const { return !(Metrics.tmPitchAndFamily & TMPF_FIXED_PITCH); }

protected:
    void Render(char32_t character, Glyph& glyph) override {
        if (character > 0xFFFF || !Bits) return;
        WCHAR wide = WCHAR(character);
        SIZE extent{0, 0};
        if (!GetTextExtentPoint32W(Context, &wide, 1, &extent)) return;
        glyph.Advance = int(extent.cx);
        memset(Bits, 0, size_t(CanvasWidth) * size_t(CanvasHeight) * 4);
        TextOutW(Context, Margin, Margin, &wide, 1);
        GdiFlush();
        TakeCoverage(glyph);
    }

private:
    void MakeCanvas() {
        void* bits = nullptr;
        Canvas.Reset(CreateTopDownDib(Context, CanvasWidth, CanvasHeight, &bits));
        if (!Canvas.Get()) return;
        Bits = static_cast<uint32_t*>(bits);
        Previous = static_cast<HBITMAP>(SelectObject(Context, Canvas.Get()));
        SetTextColor(Context, RGB(255, 255, 255));
        SetBkMode(Context, TRANSPARENT);
        SetTextAlign(Context, TA_TOP | TA_LEFT | TA_NOUPDATECP);
    }

    // The smallest box around the ink; a glyph without ink keeps no bitmap.
    // Grey antialiasing gives equal channels; should the system still tint
    // the edges, the brightest channel is the coverage.
    void TakeCoverage(Glyph& glyph) const {
        int left = CanvasWidth, right = -1, top = CanvasHeight, bottom = -1;
        for (int y = 0; y < CanvasHeight; ++y)
            for (int x = 0; x < CanvasWidth; ++x)
                if (CoverageAt(x, y)) {
                    left = std::min(left, x), right = std::max(right, x);
                    top = std::min(top, y), bottom = std::max(bottom, y);
                }
        if (right < 0) return;
        glyph.Left = left - Margin;
        glyph.Top = int(Metrics.tmAscent) - (top - Margin);
        glyph.Width = right - left + 1;
        glyph.Height = bottom - top + 1;
        glyph.Coverage.resize(size_t(glyph.Width) * size_t(glyph.Height));
        for (int y = 0; y < glyph.Height; ++y)
            for (int x = 0; x < glyph.Width; ++x)
                glyph.Coverage[size_t(y) * size_t(glyph.Width) + size_t(x)] =
                    CoverageAt(left + x, top + y);
    }
    uint8_t CoverageAt(int x, int y) const {
        uint32_t pixel = Bits[size_t(y) * size_t(CanvasWidth) + size_t(x)];
        return uint8_t(std::max({pixel & 0xFF, (pixel >> 8) & 0xFF, (pixel >> 16) & 0xFF}));
    }

    HDC Context;
    GdiObject<HFONT> Font;
    GdiObject<HBITMAP> Canvas;
    HBITMAP Previous = nullptr;
    uint32_t* Bits = nullptr;
    TEXTMETRICW Metrics{};
    std::string Family;
    int Margin = 0, CanvasWidth = 0, CanvasHeight = 0;
};

class GdiLibrary final : public FontLibrary {
public:
    std::unique_ptr<FontFace> Open(const std::string& name, int height, bool fixed,
                                   bool bold) override {
        const int pixels = PixelHeight(height);
        if (!name.empty())
            if (auto face = Make(name.c_str(), pixels, fixed, bold)) return face;
        for (const char* fallback : fixed ? kFixedFaces : kSansFaces)
            if (auto face = Make(fallback, pixels, fixed, bold)) return face;
        // Whatever the font mapper gives for the kind of face.
        return Make("", pixels, fixed, bold);
    }

private:
    // The face of that name, or null when the system has none by the name
    // (GDI would quietly give another) or it is not fixed when asked to be.
    static std::unique_ptr<GdiFace> Make(const char* name, int pixels, bool fixed, bool bold) {
        if (strlen(name) >= LF_FACESIZE) return nullptr;
        HFONT font =
            CreateFontA(-pixels, 0, 0, 0, bold ? FW_BOLD : FW_NORMAL, FALSE, FALSE, FALSE,
                        ANSI_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                        DWORD(fixed ? FIXED_PITCH | FF_MODERN : VARIABLE_PITCH | FF_SWISS), name);
        HDC dc = font ? CreateCompatibleDC(nullptr) : nullptr;
        if (!dc) {
            if (font) DeleteObject(font);
            return nullptr;
        }
        auto face = std::make_unique<GdiFace>(dc, font);
        bool named = !*name || lstrcmpiA(face->FamilyName().c_str(), name) == 0;
        if (!face->Ready() || !named || (fixed && !face->Fixed())) return nullptr;
        return face;
    }
};

} // namespace

std::unique_ptr<FontLibrary> FontLibrary::Create() {
    return std::make_unique<GdiLibrary>();
}
