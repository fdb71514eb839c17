#include "SoftwareRenderer.h"

#include "HostRenderer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace {

// The rectangle of the frame that a rectangle covers; empty when it covers none.
tagRECT ClipToFrame(const tagRECT& rect, const FrameBuffer& frame) {
    return tagRECT{std::max<LONG>(rect.left, 0), std::max<LONG>(rect.top, 0),
                   std::min<LONG>(rect.right, frame.Width()),
                   std::min<LONG>(rect.bottom, frame.Height())};
}

bool IsEmpty(const tagRECT& rect) {
    return rect.right <= rect.left || rect.bottom <= rect.top;
}

tagRECT Intersect(const tagRECT& a, const tagRECT& b) {
    return tagRECT{std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right),
                   std::min(a.bottom, b.bottom)};
}

// Where a point of the destination (u across, v down, both 0 to 1) finds its
// picture in the source (s across, t down) under each turn.
void Turn(uint8_t orientation, float u, float v, float& s, float& t) {
    switch (orientation & 3) {
    case 1:
        s = v, t = 1.0f - u;
        break;
    case 2:
        s = 1.0f - u, t = 1.0f - v;
        break;
    case 3:
        s = 1.0f - v, t = u;
        break;
    default:
        s = u, t = v;
        break;
    }
}

int Clamp(int value, int low, int high) {
    return std::min(std::max(value, low), high);
}

// The distance between two coordinates, which 32 bits may not hold.
int64_t Span(int32_t from, int32_t to) {
    return int64_t(to) - int64_t(from);
}

uint32_t WithAlphaByte(uint32_t color, uint32_t alpha) {
    return (color & 0x00FFFFFFu) | alpha << 24;
}

// A rectangle grown by a margin on every side, kept inside 32 bits.
tagRECT Grown(int64_t left, int64_t top, int64_t right, int64_t bottom, int64_t margin) {
    auto fit = [](int64_t value) {
        return LONG(std::min<int64_t>(std::max<int64_t>(value, INT32_MIN), INT32_MAX));
    };
    return tagRECT{fit(left - margin), fit(top - margin), fit(right + margin),
                   fit(bottom + margin)};
}

} // namespace

// How a point of a drawn shape, in source fractions, gets its colour.
struct SoftwareRenderer::Sampler {
    const Image* Picture = nullptr; // null: a fill
    int Left = 0, Top = 0;
    float Width = 0, Height = 0;
    uint32_t Tint = 0xFFFFFFFFu;
    bool Triangle = false;

    // A source pixel from a start and a distance, kept inside 32 bits.
    static int Offset(int start, float distance) {
        double at = double(start) + std::floor(double(distance));
        return int(std::min(std::max(at, double(INT32_MIN)), double(INT32_MAX)));
    }

    bool Inside(float s, float t) const { return !Triangle || std::fabs(s - 0.5f) <= t * 0.5f; }
    int SourceX(float s) const {
        return Picture ? Clamp(Offset(Left, s * Width), 0, Picture->Width - 1) : 0;
    }
    int SourceY(float t) const {
        return Picture ? Clamp(Offset(Top, t * Height), 0, Picture->Height - 1) : 0;
    }
    uint32_t Texel(int x, int y) const {
        if (!Picture) return Tint;
        uint32_t texel = Picture->At(x, y);
        return Tint == 0xFFFFFFFFu ? texel : Pixel::Modulate(texel, Tint);
    }
    bool Sample(float s, float t, uint32_t& color) const {
        if (!Inside(s, t)) return false;
        color = Texel(SourceX(s), SourceY(t));
        return true;
    }
};

SoftwareRenderer::SoftwareRenderer(std::unique_ptr<FontLibrary> fonts) : Fonts(std::move(fonts)) {}

SoftwareRenderer::~SoftwareRenderer() = default;

// ---- textures ----

bool SoftwareRenderer::LoadTexture(unsigned handle, const std::string& path, uint32_t colorKey,
                                   std::string& error) {
    Texture texture;
    texture.Fill = path.empty();
    if (!texture.Fill && !ImageFile::Load(path, colorKey, texture.Picture, error)) return false;
    Textures[handle] = std::move(texture);
    return true;
}

void SoftwareRenderer::LoadPicture(unsigned handle, Image picture) {
    Texture texture;
    texture.Picture = std::move(picture);
    Textures[handle] = std::move(texture);
}

bool SoftwareRenderer::TextureSize(unsigned handle, int& width, int& height) const {
    auto found = Textures.find(handle);
    if (found == Textures.end() || found->second.Fill) return false;
    width = found->second.Picture.Width;
    height = found->second.Picture.Height;
    return true;
}

// ---- fonts ----

bool SoftwareRenderer::OpenFont(unsigned handle, const std::string& name, int height, bool fixed,
                                bool bold) {
    if (!Fonts) return false;
    std::unique_ptr<FontFace> face = Fonts->Open(name, height, fixed, bold);
    if (!face) return false;
    FontFaces[handle] = std::move(face);
    return true;
}

std::string SoftwareRenderer::FontFamily(unsigned handle) const {
    auto found = FontFaces.find(handle);
    return found == FontFaces.end() ? "" : found->second->FamilyName();
}

bool SoftwareRenderer::MeasureText(unsigned font, const char* text, size_t& width) {
    auto found = FontFaces.find(font);
    if (found == FontFaces.end()) return false;
    width = 0;
    for (const char* p = text ? text : ""; *p; ++p)
        width += size_t(found->second->GlyphOf(static_cast<unsigned char>(*p)).Advance);
    return true;
}

bool SoftwareRenderer::CharAdvance(unsigned font, unsigned char byte, int& advance) {
    auto found = FontFaces.find(font);
    if (found == FontFaces.end()) return false;
    advance = found->second->GlyphOf(byte).Advance;
    return true;
}

bool SoftwareRenderer::DrawText(unsigned font, const char* text, const tagRECT& rect,
                                uint32_t color, unsigned format, size_t& width) {
    if (!MeasureText(font, text, width)) return false;
    FontFace& face = *FontFaces[font];
    // In 64 bits: a rectangle may span the whole of 32.
    int64_t textWidth = int64_t(width), penX = rect.left;
    if (format & TAVU_DT_RIGHT)
        penX = int64_t(rect.right) - textWidth;
    else if (format & TAVU_DT_CENTER)
        penX = rect.left + (Span(rect.left, rect.right) - textWidth) / 2;
    tagRECT clip = ClipToFrame(rect, Picture);
    if (format & TAVU_DT_NOCLIP) clip = tagRECT{0, 0, Picture.Width(), Picture.Height()};
    if (IsEmpty(clip) || Pixel::AlphaOf(color) == 0) return true;
    int64_t baseline = int64_t(rect.top) + face.Ascent();
    for (const char* p = text ? text : ""; *p && penX < clip.right; ++p) {
        const Glyph& glyph = face.GlyphOf(static_cast<unsigned char>(*p));
        DrawGlyph(glyph, penX, baseline, color, clip);
        penX += glyph.Advance;
    }
    return true;
}

void SoftwareRenderer::DrawGlyph(const Glyph& glyph, int64_t penX, int64_t baseline, uint32_t color,
                                 const tagRECT& clip) {
    int64_t left = penX + glyph.Left, top = baseline - glyph.Top;
    tagRECT area = Intersect(Grown(left, top, left + glyph.Width, top + glyph.Height, 0), clip);
    if (IsEmpty(area)) return;
    // The coverage becomes the alpha of the colour, which the tint then
    // scales by the colour's own alpha; no coverage leaves a pixel as it was.
    uint32_t rgb = color & 0x00FFFFFFu, tint = 0x00FFFFFFu | Pixel::AlphaOf(color) << 24;
    size_t columns = size_t(area.right - area.left);
    Line.resize(columns);
    for (LONG y = area.top; y < area.bottom; ++y) {
        const uint8_t* coverage = glyph.Coverage.data() + size_t(y - top) * size_t(glyph.Width) +
                                  size_t(area.left - left);
        for (size_t x = 0; x < columns; ++x)
            Line[x] = rgb | uint32_t(coverage[x]) << 24;
        Pixel::BlendRow(Picture.Row(int(y)) + area.left, Line.data(), columns, tint);
    }
}

// ---- shapes ----

void SoftwareRenderer::FillRect(const tagRECT& rect, uint32_t color) {
    tagRECT area = ClipToFrame(rect, Picture);
    if (IsEmpty(area) || Pixel::AlphaOf(color) == 0) return;
    for (LONG y = area.top; y < area.bottom; ++y)
        Picture.BlendSpan(int(y), int(area.left), int(area.right), color);
}

SoftwareRenderer::Sampler SoftwareRenderer::SamplerFor(const TAVUDrawRecord& record) const {
    Sampler sampler;
    sampler.Triangle = (record.Flags & TAVUDrawRecord::HasTriangle) != 0;
    auto found = Textures.find(record.Texture);
    bool fill = record.Texture == TAVUDrawRecord::NoTexture ||
                (found != Textures.end() && found->second.Fill);
    if (!fill && found != Textures.end()) {
        const Image& picture = found->second.Picture;
        sampler.Picture = &picture;
        sampler.Width = float(picture.Width);
        sampler.Height = float(picture.Height);
        if (record.Flags & TAVUDrawRecord::HasSourceRect) {
            sampler.Left = record.TextureLeft;
            sampler.Top = record.TextureTop;
            sampler.Width = float(Span(record.TextureLeft, record.TextureRight));
            sampler.Height = float(Span(record.TextureTop, record.TextureBottom));
        }
    }
    if (fill || (record.Flags & TAVUDrawRecord::HasColorMask)) sampler.Tint = record.ColorMask;
    return sampler;
}

void SoftwareRenderer::TexturedRect(const TAVUDrawRecord& record) {
    if (record.Texture != TAVUDrawRecord::NoTexture && !Textures.count(record.Texture)) return;
    Sampler sampler = SamplerFor(record);
    if (record.Flags & TAVUDrawRecord::HasAlpha)
        sampler.Tint = Pixel::WithAlpha(sampler.Tint, record.Alpha);
    tagRECT rect{record.Left, record.Top, record.Right, record.Bottom};
    tagRECT area = ClipToFrame(rect, Picture);
    if (IsEmpty(area) || Pixel::AlphaOf(sampler.Tint) == 0) return;
    if (!sampler.Picture && !sampler.Triangle) {
        for (LONG y = area.top; y < area.bottom; ++y)
            Picture.BlendSpan(int(y), int(area.left), int(area.right), sampler.Tint);
        return;
    }
    // Under any turn, a destination column decides one source axis and a row
    // the other, so the source of every pixel comes from two small tables.
    bool sideways = record.Orientation & 1;
    ColumnAt.resize(size_t(area.right - area.left));
    RowAt.resize(size_t(area.bottom - area.top));
    ColumnSource.resize(ColumnAt.size());
    RowSource.resize(RowAt.size());
    float width = float(Span(rect.left, rect.right)), height = float(Span(rect.top, rect.bottom));
    for (size_t i = 0; i < ColumnAt.size(); ++i) {
        float u = (float(Span(rect.left, area.left)) + float(i) + 0.5f) / width, s = 0, t = 0;
        Turn(record.Orientation, u, 0.5f, s, t);
        ColumnAt[i] = sideways ? t : s;
        ColumnSource[i] = sideways ? sampler.SourceY(t) : sampler.SourceX(s);
    }
    for (size_t j = 0; j < RowAt.size(); ++j) {
        float v = (float(Span(rect.top, area.top)) + float(j) + 0.5f) / height, s = 0, t = 0;
        Turn(record.Orientation, 0.5f, v, s, t);
        RowAt[j] = sideways ? s : t;
        RowSource[j] = sideways ? sampler.SourceX(s) : sampler.SourceY(t);
    }
    if (sampler.Triangle)
        PaintTriangle(sampler, sideways, area);
    else
        PaintPicture(sampler, sideways, area);
}

// Every pixel of the rectangle from the picture: the tables become offsets
// into the picture's pixels, a row's texels are gathered into a line (once
// for rows that read the same source row) and the line is blended in one go.
void SoftwareRenderer::PaintPicture(const Sampler& sampler, bool sideways, const tagRECT& area) {
    size_t stride = size_t(sampler.Picture->Width), count = ColumnSource.size();
    ColumnOffset.resize(count);
    for (size_t i = 0; i < count; ++i)
        ColumnOffset[i] = size_t(ColumnSource[i]) * (sideways ? stride : 1);
    Line.resize(count);
    const uint32_t* texels = sampler.Picture->Pixels.data();
    for (size_t j = 0; j < RowSource.size(); ++j) {
        if (j == 0 || RowSource[j] != RowSource[j - 1]) {
            const uint32_t* source =
                texels + size_t(RowSource[j]) * (sideways ? size_t(1) : stride);
            for (size_t i = 0; i < count; ++i)
                Line[i] = source[ColumnOffset[i]];
        }
        Picture.Prefetch(int(area.top) + int(j) + 2, int(area.left), int(area.right));
        Pixel::BlendRow(Picture.Row(int(area.top) + int(j)) + area.left, Line.data(), count,
                        sampler.Tint);
    }
}

// Only the pixels inside the triangle, decided from their source fractions.
void SoftwareRenderer::PaintTriangle(const Sampler& sampler, bool sideways, const tagRECT& area) {
    for (size_t j = 0; j < RowAt.size(); ++j) {
        uint32_t* row = Picture.Row(int(area.top) + int(j)) + area.left;
        for (size_t i = 0; i < ColumnAt.size(); ++i) {
            float s = sideways ? RowAt[j] : ColumnAt[i], t = sideways ? ColumnAt[i] : RowAt[j];
            if (!sampler.Inside(s, t)) continue;
            uint32_t color = sideways ? sampler.Texel(RowSource[j], ColumnSource[i])
                                      : sampler.Texel(ColumnSource[i], RowSource[j]);
            row[i] = Pixel::Over(row[i], color);
        }
    }
}

void SoftwareRenderer::DrawLine(const TAVUDrawRecord& record, unsigned width) {
    bool colored = record.Texture == TAVUDrawRecord::NoTexture;
    if (!colored && !Textures.count(record.Texture)) return;
    Sampler sampler = SamplerFor(record);
    if (record.Flags & TAVUDrawRecord::HasAlpha) {
        uint32_t alpha = colored ? (256u - record.Alpha) & 0xFFu : record.Alpha;
        sampler.Tint =
            colored ? WithAlphaByte(sampler.Tint, alpha) : Pixel::WithAlpha(sampler.Tint, alpha);
    }
    float x0 = float(record.Left) + 0.5f, y0 = float(record.Top) + 0.5f;
    float dx = float(Span(record.Left, record.Right)), dy = float(Span(record.Top, record.Bottom));
    float length = std::sqrt(dx * dx + dy * dy);
    if (length == 0 || Pixel::AlphaOf(sampler.Tint) == 0) return;
    float half = float(std::max(width, 1u)) * 0.5f;
    tagRECT box =
        Grown(std::min(record.Left, record.Right), std::min(record.Top, record.Bottom),
              std::max(record.Left, record.Right) + int64_t(1),
              std::max(record.Top, record.Bottom) + int64_t(1), int64_t(std::ceil(half)) + 1);
    tagRECT area = ClipToFrame(box, Picture);
    for (LONG y = area.top; y < area.bottom; ++y)
        for (LONG x = area.left; x < area.right; ++x) {
            float px = float(x) + 0.5f - x0, py = float(y) + 0.5f - y0;
            float along = (px * dx + py * dy) / length, across = (dx * py - dy * px) / length;
            if (along < 0 || along >= length || across < -half || across >= half) continue;
            uint32_t color = 0;
            if (sampler.Sample(along / length, (across + half) / (2 * half), color))
                Picture.Blend(int(x), int(y), color);
        }
}
