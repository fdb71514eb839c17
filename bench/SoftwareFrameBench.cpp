// The reference host's renderer: one 1920 by 1080 frame of 1,000 textured
// rectangles (a quarter of them see-through, a quarter turned) and 200 lines
// of text, painted in software as tavuhost --png and --window do.
#include "SoftwareRenderer.h"

#include <benchmark/benchmark.h>

#include <cstdio>

namespace {

const int FrameWidth = 1920, FrameHeight = 1080;

// A 64 by 64 texture with a gradient and a see-through border, as buttons have.
void LoadButtonTexture(SoftwareRenderer& renderer, unsigned handle) {
    std::vector<uint32_t> pixels(64 * 64);
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x) {
            bool edge = x < 2 || y < 2 || x > 61 || y > 61;
            pixels[size_t(y) * 64 + size_t(x)] =
                (edge ? 0x80000000u : 0xFF000000u) | uint32_t(x * 4) << 16 | uint32_t(y * 4);
        }
    std::string path = "tavubench_button.png", error;
    ImageFile::WritePng(path, pixels.data(), 64, 64, error);
    renderer.LoadTexture(handle, path, 0, error);
    remove(path.c_str());
}

void PaintFrame(SoftwareRenderer& renderer, unsigned texture, unsigned font) {
    renderer.BeginFrame();
    for (int i = 0; i < 1000; ++i) {
        TAVUDrawRecord record{};
        record.Texture = texture;
        record.Left = (i * 97) % (FrameWidth - 80);
        record.Top = (i * 61) % (FrameHeight - 40);
        record.Right = record.Left + 80;
        record.Bottom = record.Top + 40;
        record.Orientation = uint8_t(i % 4 == 3 ? 1 : 0);
        record.Flags = TAVUDrawRecord::HasAlpha;
        record.Alpha = uint8_t(i % 4 == 0 ? 160 : 255);
        renderer.TexturedRect(record);
    }
    size_t width = 0;
    for (int line = 0; line < 200; ++line) {
        LONG x = (line % 4) * 480, y = (line / 4) * 21;
        renderer.DrawText(font, "The quick brown fox jumps over the lazy dog 0123456789",
                          tagRECT{x, y, x + 470, y + 20}, 0xFFFFFFFF, 0x20, width);
    }
}

void BM_SoftwareFrame(benchmark::State& state) {
    SoftwareRenderer renderer(FontLibrary::Create());
    renderer.Resize(FrameWidth, FrameHeight);
    LoadButtonTexture(renderer, 2);
    if (!renderer.OpenFont(1, "", 13, false, false)) state.SkipWithError("no font library");
    for (auto _ : state) {
        PaintFrame(renderer, 2, 1);
        benchmark::DoNotOptimize(renderer.Frame().Pixels());
    }
    state.counters["frames/s"] =
        benchmark::Counter(double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_SoftwareFrame)->Unit(benchmark::kMillisecond);

} // namespace
