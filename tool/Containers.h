#pragma once

#include <functional>

#include "Choices.h"
#include "velk/containers/Container.h"

namespace VelkTool {

/// Returns the containers that an option offers, by name: those that `isOffered` accepts.
inline Choices<Velk::Container> containerChoices(const std::function<bool(const Velk::ContainerKind&)>& isOffered) {
  Choices<Velk::Container> choices;
  for (const Velk::ContainerKind& kind : Velk::containerKinds()) {
    if (isOffered(kind)) choices.emplace_back(kind.name, kind.container);
  }
  return choices;
}

/// Returns the containers that can be written.
inline Choices<Velk::Container> writableContainers() {
  return containerChoices([](const Velk::ContainerKind& kind) { return kind.write != nullptr; });
}

/// Returns "raw dump, Intel HEX or S-record".
inline std::string containerTitles() {
  std::string text;
  const auto kinds = Velk::containerKinds();
  for (const Velk::ContainerKind& kind : kinds) {
    text += &kind == &kinds.front() ? "" : &kind == &kinds.back() ? " or " : ", ";
    text += kind.title;
  }
  return text;
}

}  // namespace VelkTool
