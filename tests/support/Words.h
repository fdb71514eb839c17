// Values joined by blanks, so that one comparison shows every one that
// differs: Words(1, "a", 2.5) is "1 a 2.5". Bytes print as numbers.
#pragma once

#include <sstream>
#include <string>
#include <type_traits>

template <class... T> std::string Words(const T&... values) {
    std::ostringstream out;
    const char* gap = "";
    auto put = [&](const auto& value) {
        using V = std::decay_t<decltype(value)>;
        if constexpr (std::is_same_v<V, unsigned char> || std::is_same_v<V, signed char>)
            out << gap << int(value);
        else
            out << gap << value;
        gap = " ";
    };
    (put(values), ...);
    return out.str();
}
