#include "velk/data/DataLookup.h"

#include <charconv>

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

/// One step of a path: a name, or an index in brackets.
struct Step {
  std::string_view name{};
  std::optional<std::size_t> index{};
};

/// Removes the first step from a path and returns it; nothing if the path does not begin with one.
std::optional<Step> takeStep(std::string_view& path) {
  if (path.starts_with('[')) {
    std::size_t index = 0;
    const char* const end = path.data() + path.size();
    const auto [digitsEnd, error] = std::from_chars(path.data() + 1, end, index);
    if (error != std::errc{} || digitsEnd == end || *digitsEnd != ']') return std::nullopt;
    path.remove_prefix(static_cast<std::size_t>(digitsEnd - path.data()) + 1);
    return Step{.index = index};
  }
  const std::string_view name = path.substr(0, path.find_first_of(".["));
  path.remove_prefix(name.size());
  return Step{.name = name};
}

/// Returns the part of a node that a step leads to; otherwise `lookup` gets the reason why there is none.
std::optional<DataNode> take(const DataNode& node, const Step& step, std::string_view before, DataLookup& lookup) {
  const std::string text(before.empty() ? "a block" : before);
  if (node.kind() == DataNode::Kind::Record) {
    if (step.index || (step.name.empty() && !before.empty())) {
      lookup.complaint = text + " has fields, as " + (before.empty() ? "" : text + '.') + node.nameOf(0);
    } else if (const auto member = node.find(step.name)) {
      return member;
    } else {
      lookup.complaint = noMember(node, step.name);
    }
  } else if (node.kind() == DataNode::Kind::Value) {
    lookup.complaint = text + " is a single value";
  } else if (!step.index) {
    lookup.complaint = text + " is a list, as " + text + "[0]";
  } else if (*step.index < node.size()) {
    return node[*step.index];
  } else {
    lookup.complaint = text + " has " + std::to_string(node.size()) + " elements, counted from 0";
  }
  return std::nullopt;
}

}  // namespace

DataLookup findValue(const DataNode& root, std::string_view path) {
  DataLookup lookup;
  DataNode node = root;
  const std::string_view whole = path;
  do {
    const std::string_view before = whole.substr(0, whole.size() - path.size());
    if (!before.empty() && path.starts_with('.')) path.remove_prefix(1);
    const std::optional<Step> step = takeStep(path);
    if (!step) {
      lookup.complaint = std::string(before) + " is followed by no index in brackets";
      return lookup;
    }
    const std::optional<DataNode> part = take(node, *step, before, lookup);
    if (!part) return lookup;
    node = *part;
  } while (!path.empty());
  if (node.kind() == DataNode::Kind::Value) {
    lookup.value = node;
  } else {
    take(node, {}, whole, lookup);
  }
  return lookup;
}

}  // namespace Velk
