#pragma once

// A point in screen pixels.
struct _Point2i {
    int x;
    int y;
};
