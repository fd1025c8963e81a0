#ifndef ZELMORA_TOOLKIT_LITERALS_H
#define ZELMORA_TOOLKIT_LITERALS_H

#include <QString>

#include <cstddef>

namespace toolkit {

/// "name"_L1: a Latin-1 text that is compared and appended without being copied.
constexpr QLatin1String operator""_L1(const char* text, std::size_t size)
{
    return QLatin1String(text, static_cast<int>(size));
}

} // namespace toolkit

#endif
