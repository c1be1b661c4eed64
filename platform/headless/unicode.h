// UTF-8 to UTF-16 and back, and UTF-16 to a caller's buffer.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace headless
{
// Ill-formed input becomes U+FFFD, here and there.
std::u16string ToWide(std::string_view text);
std::string ToNarrow(std::u16string_view text);

// Copies what fits into `size` characters with a terminator; nothing if there is no buffer or no room. Gives
// the number of characters without the terminator.
std::size_t CopyText(char16_t* buffer, std::size_t size, std::u16string_view text);
}  // namespace headless
