#pragma once

#include <string>
#include <unordered_map>

namespace VelkTool {

/// Makes names unique: appends ~2, ~3 and so on to repeated names. Never returns a name twice, whatever the names
/// themselves end with.
class UnusedNames {
 public:
  std::string take(const std::string& name) {
    const auto [entry, isNew] = given_.try_emplace(name, 1U);
    if (isNew) return name;
    unsigned& last = entry->second;  // stays valid when the map grows
    std::string numbered;
    do {
      numbered = name + '~' + std::to_string(++last);
    } while (!given_.try_emplace(numbered, 1U).second);
    return numbered;
  }

 private:
  std::unordered_map<std::string, unsigned>
      given_;  ///< each name and the last number appended to it, so that none is tried twice
};

}  // namespace VelkTool
