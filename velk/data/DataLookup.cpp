#include "velk/data/DataLookup.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "velk/data/NearestName.h"

namespace Velk {
namespace {

std::string noMember(const DataNode& record, std::string_view name) {
  std::vector<std::string> names;
  for (std::size_t i = 0; i < record.size(); ++i) names.emplace_back(record.nameOf(i));
  const std::string_view nearest = detail::nearestName(name, names);
  std::string text = "no field \"" + std::string(name) + '"';
  if (!nearest.empty()) text.append("; the nearest is ").append(nearest);
  return text;
}

/// One step of a path: a name, or an index or a range of indices in brackets.
struct Step {
  std::string_view name{};
  std::optional<std::size_t> index{};  ///< or the first one of a range
  bool isRange = false;
  std::size_t end = std::numeric_limits<std::size_t>::max();  ///< of a range
};

/// Removes the digits that a text begins with and returns their number; nothing if there are none.
std::optional<std::size_t> takeNumber(std::string_view& text) {
  std::size_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{}) return std::nullopt;
  text.remove_prefix(static_cast<std::size_t>(end - text.data()));
  return number;
}

/// Removes the first step from a path and returns it; nothing if the path does not begin with one.
std::optional<Step> takeStep(std::string_view& path) {
  if (path.starts_with('[')) {
    std::string_view rest = path.substr(1);
    Step step{.index = takeNumber(rest)};
    if (rest.starts_with(':')) {
      rest.remove_prefix(1);
      step = {.index = step.index.value_or(0), .isRange = true};
      if (!rest.starts_with(']')) {
        const auto end = takeNumber(rest);
        if (!end) return std::nullopt;
        step.end = *end;
      }
    }
    if (!step.index || !rest.starts_with(']')) return std::nullopt;
    path = rest.substr(1);
    return step;
  }
  const std::string_view name = path.substr(0, path.find_first_of(".["));
  path.remove_prefix(name.size());
  return Step{.name = name};
}

/// Returns why a step leads to no part of a node, which is at the path `before`; empty if it leads to one.
std::string obstacle(const DataNode& node, const Step& step, std::string_view before) {
  const std::string text(before.empty() ? "a block" : before);
  switch (node.kind()) {
    case DataNode::Kind::Value:
      return text + " is a single value";
    case DataNode::Kind::Record:
      if (step.index || (step.name.empty() && !before.empty())) {
        return text + " has fields, as " + (before.empty() ? "" : text + '.') + node.nameOf(0);
      }
      return node.indexOf(step.name) ? "" : noMember(node, step.name);
    case DataNode::Kind::List:
      if (!step.index) return text + " is a list, as " + text + "[0]";
      if (*step.index < node.size() && *step.index < step.end) return {};
      return text + " has " + std::to_string(node.size()) + " elements, counted from 0";
  }
  return {};
}

/// Follows a path from its root to all parts that it leads to.
template <class Act>
class PathWalk {
 public:
  PathWalk(std::string_view path, Act act) : whole_(path), act_(act) {}

  /// Goes on from a node along the rest of the path. Returns why that leads nowhere.
  std::string follow(const DataNode& node, const DataPath& here, std::string_view rest) {
    if (rest.empty() && !whole_.empty()) {
      act_(here, node);
      return {};
    }
    const std::string_view before = whole_.substr(0, whole_.size() - rest.size());
    if (!before.empty() && rest.starts_with('.')) rest.remove_prefix(1);
    const std::optional<Step> step = takeStep(rest);
    if (!step) return std::string(before) + " is followed by no index in brackets";
    std::string complaint = obstacle(node, *step, before);
    if (!complaint.empty()) return complaint;
    if (!step->index) {
      const std::size_t member = *node.indexOf(step->name);
      return follow(node[member], DataPath(here, node.nameOf(member)), rest);
    }
    const std::size_t end = step->isRange ? std::min(step->end, node.size()) : *step->index + 1;
    for (std::size_t i = *step->index; i < end && complaint.empty(); ++i) {
      complaint = follow(node[i], DataPath(here, i), rest);
    }
    return complaint;
  }

 private:
  std::string_view whole_;
  Act act_;
};

template <class Act>
std::string walkPath(const DataNode& root, std::string_view path, Act act) {
  return PathWalk<Act>(path, act).follow(root, {}, path);
}

}  // namespace

DataLookup findPlace(const DataNode& root, std::string_view path) {
  DataLookup lookup;
  if (path.find(':') != path.npos) return {.complaint = std::string(path) + " is a range, not a single place"};
  lookup.complaint = walkPath(root, path, [&](const DataPath& here, const DataNode& node) {
    lookup.path = here.text();
    lookup.value = node;
  });
  return lookup;
}

DataLookup findValue(const DataNode& root, std::string_view path) {
  DataLookup lookup = findPlace(root, path);
  if (lookup.value && lookup.value->kind() != DataNode::Kind::Value) {
    lookup.complaint = obstacle(*lookup.value, {}, path);
    lookup.value.reset();
  }
  return lookup;
}

std::string forEachFound(const DataNode& root, std::string_view path,
                         const std::function<void(const DataPath&, const FieldElement&)>& act) {
  if (path.empty()) {
    forEachValue(root, {}, act);
    return {};
  }
  return walkPath(root, path, [&](const DataPath& here, const DataNode& node) { forEachValue(node, here, act); });
}

}  // namespace Velk
