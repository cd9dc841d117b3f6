#pragma once

namespace VelkTool {

/// Exit codes, from good to bad. A run ends with the worst of all its files.
enum class Exit { Good = 0, Findings = 1, Usage = 2, NoAccess = 3 };

struct ExitMeaning {
  Exit code;
  const char* meaning;
};
inline constexpr ExitMeaning exitMeanings[] = {
    {Exit::Good, "good"},
    {Exit::Findings, "findings: something is damaged, or two images differ"},
    {Exit::Usage, "wrong usage"},
    {Exit::NoAccess, "a file could not be read or written"},
};

}  // namespace VelkTool
