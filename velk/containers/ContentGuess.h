#pragma once

#include <string>
#include <string_view>

namespace Velk {

/// Whether contents look like text rather than like a memory, as far as their first bytes say.
bool looksLikeText(std::string_view contents);

/// Returns what contents that no container recognises seem to be instead of a memory, as a sentence without a subject;
/// empty if nothing speaks against a memory.
std::string guessContents(std::string_view contents);

}  // namespace Velk
