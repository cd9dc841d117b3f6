#include "velk/data/NearestName.h"

#include <algorithm>
#include <numeric>
#include <utility>
#include <vector>

namespace Velk::detail {
namespace {

constexpr std::size_t longestName = 64;

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return lower;
}

/// Returns how many characters have to be added, dropped or replaced to turn one text into the other.
std::size_t editDistance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::size_t diagonal = std::exchange(row[0], i + 1);
    for (std::size_t j = 0; j < to.size(); ++j) {
      const std::size_t replaced = diagonal + (from[i] == to[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string_view nearestName(std::string_view name, std::span<const std::string> names, std::size_t atMost) {
  std::string_view nearest;
  if (name.size() > longestName) return nearest;
  std::size_t least = atMost;
  for (const std::string& candidate : names) {
    const std::size_t distance = editDistance(lowerCase(name), lowerCase(candidate));
    if (distance > least || (distance == least && !nearest.empty())) continue;
    nearest = candidate;
    least = distance;
  }
  return nearest;
}

}  // namespace Velk::detail
