// SPDX-License-Identifier: MIT
#include "encode.h"

#include <algorithm>

namespace {

constexpr char fixedKey[] = "quelmora";
constexpr int fixedKeyLength = sizeof(fixedKey) - 1;

/// The key stream at @p index is the key word followed by the plain text.
char keyAt(int index, const char *plain)
{
    return index < fixedKeyLength ? fixedKey[index] : plain[index - fixedKeyLength];
}

} // namespace

void encode(const char *src, char *dst, int size)
{
    if (size < 0)
        return;
    // From the end, so that the plain text that serves as key is still there when both buffers are the same.
    for (int i = size - 1; i >= 0; --i)
        dst[i] = static_cast<char>(keyAt(i, src) ^ src[i]);
    dst[size] = '\0';
}

void decode(const char *src, char *dst, int size)
{
    if (size < 0)
        return;
    for (int i = 0; i < size; ++i)
        dst[i] = static_cast<char>(keyAt(i, dst) ^ src[i]);
    dst[size] = '\0';
}

void reverse(const char *src, char *dst, int size)
{
    if (size < 0)
        return;
    std::reverse_copy(src, src + size, dst);
    dst[size] = '\0';
}
