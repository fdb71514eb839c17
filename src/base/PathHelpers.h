// File paths as the toolkit meets them: UTF-8 text, split into folder and file
// at the last separator, and tested for existence the way the system opens them.
#pragma once

#include "TavuExport.h"

#include <cstddef>

// The last folder separator of a path, or null when it has none. On Windows
// that is the last backslash. Elsewhere it is the last '/' or '\', whichever
// comes later, so that interface files written for Windows work unchanged.
TAVU_API const char* PathLastSeparator(const char* path);

// Whether a regular file exists at a UTF-8 path. The path is taken as UTF-16,
// cut at 511 characters, as the system's file calls see it.
TAVU_API bool PathFileExists(const char* path);
