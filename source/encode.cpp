// SPDX-License-Identifier: MIT
#include "encode.h"

#include <algorithm>

namespace {

constexpr char K_KEY[] = "quelmora";
constexpr int K_KEY_LENGTH = sizeof(K_KEY) - 1;

/// The key stream at @p index is the key word followed by the plain text.
char keyAt(int index, const char *plain)
{
    return index < K_KEY_LENGTH ? K_KEY[index] : plain[index - K_KEY_LENGTH];
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
