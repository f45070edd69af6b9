// SPDX-License-Identifier: MIT
#include "commandline.h"

#include "globaldefine.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <limits>

int toInt(const char *text)
{
    const long long number = std::strtoll(text, nullptr, 10);
    return static_cast<int>(
        std::clamp<long long>(number, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

quint64 toMask(const char *text)
{
    const char *digits = text;
    while (std::isspace(static_cast<unsigned char>(*digits)))
        ++digits;
    if (*digits == '-')
        return static_cast<quint64>(std::strtoll(digits, nullptr, 10));
    return std::strtoull(digits, nullptr, 10);
}

int toLanguage(const char *text)
{
    const int language = toInt(text);
    // Deliberately unsigned: one comparison covers both ends.
    return static_cast<unsigned>(language) < static_cast<unsigned>(K_LANGUAGE_COUNT) ? language : 0;
}
