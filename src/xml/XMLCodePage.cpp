#include "XMLCodePage.h"

#include "Platform.h"

#include <cstdlib>
#include <vector>

namespace {

// Both directions go through UTF-16, as the system converts.
char* Convert(const char* text, UINT fromCodePage, UINT toCodePage) {
    if (!text) return nullptr;
    int units = MultiByteToWideChar(fromCodePage, 0, text, -1, nullptr, 0);
    if (units <= 0) return nullptr;
    std::vector<WCHAR> wide(static_cast<size_t>(units));
    if (MultiByteToWideChar(fromCodePage, 0, text, -1, wide.data(), units) != units) return nullptr;
    int bytes =
        WideCharToMultiByte(toCodePage, 0, wide.data(), units, nullptr, 0, nullptr, nullptr);
    if (bytes <= 0) return nullptr;
    char* result = static_cast<char*>(malloc(size_t(bytes)));
    if (!result) return nullptr;
    if (WideCharToMultiByte(toCodePage, 0, wide.data(), units, result, bytes, nullptr, nullptr) !=
        bytes) {
        free(result);
        return nullptr;
    }
    return result;
}

} // namespace

char* XMLAnsiToUtf8(const char* text) {
    return Convert(text, CP_ACP, CP_UTF8);
}
char* XMLUtf8ToAnsi(const char* text) {
    return Convert(text, CP_UTF8, CP_ACP);
}
