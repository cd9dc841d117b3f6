#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace VelkTool {

/// The values an option or argument accepts, by name, in the order in which they are listed.
template <class T>
using Choices = std::vector<std::pair<std::string, T>>;

/// Returns a check that accepts only one of `names`.
inline CLI::Validator oneOf(std::vector<std::string> names) {
  return {[names = std::move(names)](const std::string& text) -> std::string {
            for (const std::string& name : names) {
              if (name == text) return {};
            }
            return (text.empty() ? "\"\"" : text) + " is not one of " + CLI::detail::join(names, ", ");
          },
          ""};
}

/// Adds an option or argument that accepts one of `choices` and passes it to `take`.
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
