#pragma once

namespace VelkTool {

/// What a line of a report or a whole file comes to, from good to bad.
enum class Verdict : unsigned char { Sound, Warnings, Damaged, Unreadable };

}  // namespace VelkTool
