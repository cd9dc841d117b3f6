#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace VelkTool {

/// What an option or argument may be, by name, in the order in which the names are offered.
template <class T>
using Choices = std::vector<std::pair<std::string, T>>;

/// Has an option take one of `names` only.
inline CLI::Validator oneOf(std::vector<std::string> names) {
  return {[names = std::move(names)](const std::string& text) -> std::string {
            for (const std::string& name : names) {
              if (name == text) return {};
            }
            return (text.empty() ? "\"\"" : text) + " is none of " + CLI::detail::join(names, ", ");
          },
          ""};
}

/// Adds an option or argument that takes one of `choices`, which goes to `take`.
template <class T>
CLI::Option* addChoice(CLI::App& command, const std::string& name, const Choices<T>& choices,
                       const std::function<void(T chosen)>& take, const std::string& description) {
  std::vector<std::string> names;
  for (const auto& choice : choices) names.push_back(choice.first);
  const auto find = [choices, take](const std::string& text) {
    for (const auto& choice : choices) {
      if (choice.first == text) take(choice.second);
    }
  };
  return command.add_option_function<std::string>(name, find, description)
      ->check(oneOf(names))
      ->type_name(CLI::detail::join(names, "|"));
}

}  // namespace VelkTool
