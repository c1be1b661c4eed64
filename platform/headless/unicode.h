// UTF-8 to UTF-16 and back. Ill-formed input becomes U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace headless
{
std::u16string ToWide(std::string_view text);
std::string ToNarrow(std::u16string_view text);
}  // namespace headless
