#pragma once

// A world location, as a map places its blips.
struct _Point3f {
    float X;
    float Y;
    float Z;
};
