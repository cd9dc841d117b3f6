#include "velk/platform/Debug.h"

#include <map>
#include <string>

#include "velk/platform/Console.h"

namespace Velk {
namespace {

struct Descriptions {
  const char* const* texts = nullptr;
  int count = 0;

  const char* of(int index) const { return index >= 0 && index < count ? texts[index] : ""; }
};

constexpr int errorLevel = 1;

struct Module {
  int clippingLevel = errorLevel;
  unsigned classMask = ~0U;
  Descriptions levels;
  Descriptions classes;
};

std::map<int, Module>& modules() {
  static std::map<int, Module> all;
  return all;
}

const Module& configurationOf(int moduleId) {
  static const Module unconfigured;
  const auto found = modules().find(moduleId);
  return found == modules().end() ? unconfigured : found->second;
}

Descriptions describe(const char* const* texts, int count) {
  if (texts == nullptr) return {};
  if (count < 0) {
    for (count = 0; texts[count] != nullptr;) ++count;
  }
  return {texts, count};
}

bool isEnabled(unsigned mask, int messageClass) {
  constexpr int classes = 32;
  return messageClass < 0 || messageClass >= classes ? mask != 0 : (mask >> messageClass & 1U) != 0;
}

}  // namespace

void Debug::initDebug() {}

void Debug::exitDebug() { modules().clear(); }

bool Debug::isActive(int moduleId, int level, int messageClass) {
  const Module& module = configurationOf(moduleId);
  return level <= module.clippingLevel && isEnabled(module.classMask, messageClass);
}

void Debug::println(int moduleId, int messageClass, const QString& text, int level, int /*options*/,
                    const char* /*file*/, int /*line*/) {
  const Module& module = configurationOf(moduleId);
  std::string line = module.levels.of(level);
  line += module.classes.of(messageClass);
  line += text.toStdString();
  line += '\n';
  Console::write(Console::Stream::Error, line);
}

void Debug::setClippingLevel(int moduleId, int level) { modules()[moduleId].clippingLevel = level; }

void Debug::enableMessageClassType(int moduleId, int mask) {
  modules()[moduleId].classMask = static_cast<unsigned>(mask);
}

void Debug::setMessageLevelDescriptions(int moduleId, const char* const* descriptions, int count) {
  modules()[moduleId].levels = describe(descriptions, count);
}

void Debug::setMessageClassDescriptions(int moduleId, const char* const* descriptions, int count) {
  modules()[moduleId].classes = describe(descriptions, count);
}

void Debug::debugMessageBox(const char* title, const char* text, bool /*modal*/, int /*icon*/, int /*buttons*/,
                            int /*x*/, int /*y*/) {
  Console::write(Console::Stream::Error, std::string(title) + ": " + text + '\n');
}

}  // namespace Velk
