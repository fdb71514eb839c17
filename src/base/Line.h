#pragma once

// A line between two points, in screen pixels.
struct _Line {
    int x1;
    int y1;
    int x2;
    int y2;
};
