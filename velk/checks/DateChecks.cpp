#include "velk/checks/Check.h"
#include "velk/fields/Calendar.h"
#include "velk/records/HwDatablockIdent.h"

namespace Velk::detail {
namespace {

constexpr unsigned firstYear = 1990;

/// Returns a number that is greater for a later date.
constexpr unsigned dateNumber(PackedDate date) { return (date.year * 100 + date.month) * 100 + date.day; }

/// Calls `act` with the name and the value of each date of a block; those that were never set are 0.
template <class Act>
void forEachDate(const BlockView& block, Act act) {
  if (block.row == nullptr) return;
  for (const FieldInfo& field : block.row->fields) {
    if (field.kind != FieldKind::Date) continue;
    const auto stored = load<unsigned short>(block.bytes, field.offset);
    if (stored != 0) act(field.name, PackedDate::of(stored));
  }
}

std::string textOf(PackedDate date) { return std::string(DateText(date).view()); }

void findImpossibleDates(const CheckedBlock& block, const Report& report) {
  forEachDate(block.view, [&](const char* name, PackedDate date) {
    if (!isOfCalendar(date)) report(std::string(name) + " is " + textOf(date) + ", a date that no calendar has", name);
  });
}

void findEarlyDates(const CheckedBlock& block, const Report& report) {
  forEachDate(block.view, [&](const char* name, PackedDate date) {
    if (isOfCalendar(date) && date.year < firstYear)
      report(std::string(name) + " is " + textOf(date) + ", before " + std::to_string(firstYear), name);
  });
}

void findFutureDates(const CheckedBlock& block, const Report& report) {
  forEachDate(block.view, [&](const char* name, PackedDate date) {
    const PackedDate today = block.options.today ? *block.options.today : currentDate();
    if (isOfCalendar(date) && dateNumber(date) > dateNumber(today))
      report(std::string(name) + " is " + textOf(date) + ", in the future", name);
  });
}

/// Returns the date of production in the ident of the memory, or nothing.
std::optional<PackedDate> productionOf(const CheckedImage& image) {
  const BlockView* const ident = image.findSound(HwDatablockIdent::traits.id);
  if (ident == nullptr) return std::nullopt;
  const auto stored = load<unsigned short>(ident->bytes, offsetof(HwSDatablockIdent, productDate));
  const PackedDate date = PackedDate::of(stored);
  return stored != 0 && isOfCalendar(date) ? std::optional(date) : std::nullopt;
}

void findDatesBeforeProduction(const CheckedImage& image, const Report& report) {
  const std::optional<PackedDate> production = productionOf(image);
  if (!production) return;
  for (const KnownBlock& known : image.blocks()) {
    const BlockView& block = known.first;
    if (!block.isSound() || block.row->fields.data() == identFields) continue;
    forEachDate(block, [&](const char* name, PackedDate date) {
      if (!isOfCalendar(date) || dateNumber(date) >= dateNumber(*production)) return;
      report(block,
             placeOf(block) + ": " + name + " is " + textOf(date) + ", before the module was made, on " +
                 textOf(*production),
             name);
    });
  }
}

constexpr Check kinds[] = {
    {{"impossible-date", "impossible date", Severity::Warning, "a date is one that no calendar has",
      "The packed form has room for month 15 and day 31 of any month. Example: 2019-02-30, or 2107-15-31, which is "
      "an erased field. A date of 0 says that there is none and is not reported. velk set corrects the date."},
     findImpossibleDates},
    {{"early-date", "early date", Severity::Warning, "a date is before 1990",
      "No such module was made then. Example: 1980-01-01, the date of a clock whose battery was empty. velk set "
      "corrects the date."},
     findEarlyDates},
    {{"future-date", "future date", Severity::Warning, "a date is after today",
      "Example: a service in 2072 in place of 2027. Today is the date of this computer, or that of --today. velk set "
      "corrects the date."},
     findFutureDates},
    {{"date-before-production", "date before production", Severity::Warning, "a module was serviced before it was made",
      "The date of a service is before the product date of the ident block. Example: made on 2018-06-21, serviced on "
      "2018-02-11. One of the two dates is wrong, or the block comes from another module."},
     nullptr,
     findDatesBeforeProduction},
};

}  // namespace

std::span<const Check> dateChecks() { return kinds; }

}  // namespace Velk::detail
