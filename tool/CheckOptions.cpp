#include "CheckOptions.h"

#include "UsageError.h"
#include "velk/checks/FindingTable.h"
#include "velk/fields/Fields.h"

namespace VelkTool {
namespace {

/// Returns a check for names of checks; those that are always made are refused.
CLI::Validator checkName() {
  return {[](const std::string& name) -> std::string {
            const auto kind = Velk::findKind(name);
            if (!kind) return unknownCheck(name);
            return isOptional(Velk::findingKinds()[*kind]) ? "" : name + " is always reported";
          },
          ""};
}

/// Adds an option that may be repeated and takes the name of a check.
void addNames(CLI::App& command, const char* option, const std::function<void(std::size_t kind)>& take,
              const char* description) {
  const auto takeAll = [take](const std::vector<std::string>& names) {
    for (const std::string& name : names) take(*Velk::findKind(name));
  };
  command.add_option_function<std::vector<std::string>>(option, takeAll, description)
      ->check(checkName())
      ->allow_extra_args(false)
      ->type_name("CHECK");
}

/// Returns the date of a text such as 2026-11-25; nothing if it is none.
std::optional<Velk::PackedDate> dateOf(std::string_view text) {
  constexpr Velk::FieldInfo field = Velk::detail::describeField<unsigned short>("today", 0).asDate();
  unsigned char bytes[2]{};
  if (setFieldText(bytes, {&field, 0}, text, Velk::ValueForm::Presented) != Velk::FieldResult::Done)
    return std::nullopt;
  return Velk::PackedDate::of(Velk::detail::load<unsigned short>(bytes, 0));
}

}  // namespace

std::string unknownCheck(const std::string& name) {
  std::vector<std::string> names;
  for (const Velk::FindingKind& kind : Velk::findingKinds()) names.emplace_back(kind.code);
  return unknownName("check", name, names, "explain");
}

std::shared_ptr<const Velk::CheckOptions> addCheckOptions(CLI::App& command) {
  auto options = std::make_shared<Velk::CheckOptions>();
  // --only may come after --disable, so what is enabled is kept apart until both are read.
  const auto only = std::make_shared<Velk::CheckSet>();
  const auto disabled = std::make_shared<Velk::CheckSet>();
  const auto combine = [options, only, disabled] {
    options->enabled = (only->any() ? *only : Velk::allChecks()) & ~*disabled;
  };
  addNames(
      command, "--disable", [=](std::size_t kind) { disabled->set(kind), combine(); },
      "Leave out this check, see velk explain");
  addNames(
      command, "--only", [=](std::size_t kind) { only->set(kind), combine(); }, "Make this check and no others");
  addNames(
      command, "--error", [=](std::size_t kind) { options->raised.set(kind); }, "Let this warning count as an error");
  command.add_flag_callback(
      "--strict", [=] { options->raised.set(); }, "Let all warnings count as errors");
  command
      .add_option_function<std::string>(
          "--today", [=](const std::string& text) { options->today = dateOf(text); },
          "Report dates after this one; by default after the date of this computer")
      ->check(CLI::Validator(
          [](const std::string& text) -> std::string {
            return dateOf(text) ? "" : (text.empty() ? "\"\"" : text) + " is not a date such as 2026-11-25";
          },
          ""))
      ->type_name("YYYY-MM-DD");
  return options;
}

}  // namespace VelkTool
