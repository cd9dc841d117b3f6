#include "velk/platform/ErrorManager.h"

#include <utility>

#include "velk/platform/Console.h"

namespace Velk {

void CErrorManager::registerErrors(const SErrorDefinition* definitions, int /*capacity*/) {
  ++registrations_;
  for (; definitions->id != -1; ++definitions) definitions_[definitions->id] = definitions;
}

void CErrorManager::signal(int id, const char* detail) { signal(id, QString::fromLocal8Bit(detail)); }

void CErrorManager::signal(int id, const QString& detail) {
  if (sink_) {
    sink_(id, detail);
    return;
  }
  const SErrorDefinition* const definition = find(id);
  const std::string message = definition == nullptr ? "unregistered error" : definition->message;
  Console::write(Console::Stream::Error,
                 "error " + std::to_string(id) + ": " + message + ": " + detail.toStdString() + '\n');
}

const SErrorDefinition* CErrorManager::find(int id) const {
  const auto found = definitions_.find(id);
  return found == definitions_.end() ? nullptr : found->second;
}

CErrorManager::Sink CErrorManager::setSink(Sink sink) { return std::exchange(sink_, std::move(sink)); }

CErrorManager* ErrorManager() {
  static CErrorManager manager;
  return &manager;
}

}  // namespace Velk
