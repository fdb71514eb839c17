// tavuimagediff EXPECTED.png ACTUAL.png: exit 0 when the pictures agree within
// the tolerance of the golden-image tests, 1 with the reason when they do not.
#include "ImageCompare.h"

#include <cstdio>

int main(int argc, char* argv[]) {
    if (argc != 3) {
        fprintf(stderr, "usage: tavuimagediff EXPECTED.png ACTUAL.png\n");
        return 2;
    }
    Image expected, actual;
    std::string error;
    if (!ImageFile::Load(argv[1], 0, expected, error) ||
        !ImageFile::Load(argv[2], 0, actual, error)) {
        fprintf(stderr, "tavuimagediff: %s\n", error.c_str());
        return 1;
    }
    ImageDifference difference = CompareImages(expected, actual);
    if (difference.Acceptable()) return 0;
    fprintf(stderr, "tavuimagediff: %s and %s differ: %s\n", argv[1], argv[2],
            difference.Describe().c_str());
    return 1;
}
