// Compares a picture with a golden one loosely enough that a new FreeType,
// which moves glyph edges by a shade, does not fail a test, and strictly
// enough that a shape out of place, a wrong colour or a missing text does.
#pragma once

#include "ImageFile.h"

#include <cstdlib>
#include <string>

struct ImageDifference {
    bool SameSize = false;
    double MeanChannelError = 0; // over every channel of every pixel, 0 to 255
    double FarPixelShare = 0;    // pixels with a channel off by more than FarChannel
    enum { FarChannel = 64 };

    // Within tolerance: on average within 2 levels, and under 1% of pixels far off.
    bool Acceptable() const { return SameSize && MeanChannelError <= 2.0 && FarPixelShare <= 0.01; }
    std::string Describe() const {
        if (!SameSize) return "the sizes differ";
        return "mean channel error " + std::to_string(MeanChannelError) + ", " +
               std::to_string(FarPixelShare * 100) + "% of pixels far off";
    }
};

inline ImageDifference CompareImages(const Image& expected, const Image& actual) {
    ImageDifference difference;
    difference.SameSize = expected.Width == actual.Width && expected.Height == actual.Height;
    if (!difference.SameSize || expected.Pixels.empty()) return difference;
    double total = 0;
    size_t far = 0;
    for (size_t i = 0; i < expected.Pixels.size(); ++i) {
        int worst = 0;
        for (int shift = 0; shift < 32; shift += 8) {
            int delta = std::abs(int((expected.Pixels[i] >> shift) & 0xFF) -
                                 int((actual.Pixels[i] >> shift) & 0xFF));
            total += delta;
            worst = worst > delta ? worst : delta;
        }
        if (worst > ImageDifference::FarChannel) ++far;
    }
    difference.MeanChannelError = total / double(expected.Pixels.size() * 4);
    difference.FarPixelShare = double(far) / double(expected.Pixels.size());
    return difference;
}
