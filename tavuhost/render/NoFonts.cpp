// The font library of builds without FreeType: none. Text is then measured
// with the host's fixed advance and not drawn.
#include "FontFace.h"

std::unique_ptr<FontLibrary> FontLibrary::Create() {
    return nullptr;
}
