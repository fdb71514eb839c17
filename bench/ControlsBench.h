// What both sides of the comparison on ControlsInterface share.
#pragma once

#include "ControlsInterface.h"

#include <vector>

class ControlsBench {
public:
    static constexpr int kPointerMoves = 1000;
    // The same 1,000 points over the whole display on every run.
    template <class Point> static std::vector<Point> Scattered() {
        std::vector<Point> points;
        unsigned seed = 12345;
        for (int index = 0; index < kPointerMoves; ++index) {
            seed = seed * 1103515245u + 12345u;
            int x = int((seed >> 8) % ControlsInterface::kDisplayWidth);
            seed = seed * 1103515245u + 12345u;
            int y = int((seed >> 8) % ControlsInterface::kDisplayHeight);
            points.push_back(Point{x, y});
        }
        return points;
    }
};
