#include "velk/layer/HwCountedBlock.h"

#include <ostream>

#include "velk/fields/ScalarDispatch.h"
#include "velk/layer/RecordText.h"

namespace Velk::detail {

double presentedValue(ConstBytes block, const ListTraits& traits, std::int64_t index) {
  const FieldInfo& values = traits.values();
  if (static_cast<std::uint64_t>(index) >= values.rows) return 0;
  const auto at = static_cast<std::uint64_t>(index);
  const auto stored = elementAt<unsigned>(block, values, at);
  const bool isTwin = at > 0 && stored == elementAt<unsigned>(block, values, at - 1);
  return Velk::presentedValue(values, stored) + (isTwin ? traits.form.twinStep : 0);
}

std::ostream& printList(std::ostream& os, ConstBytes block, const ListTraits& traits) {
  const FieldInfo& values = traits.values();
  const ListForm& form = traits.form;
  const std::int64_t count = integerValue(block, {&traits.count(), traits.count().offset});
  TextWriter text(os);
  printHeading(text, block, traits);
  if (form.countWidth != 0) printKey(text, traits.count(), form.countWidth).number(count).endLine();
  withScalarType(values.type, [&]<class T>(T) {
    for (std::int64_t i = 0; i < count && text.ok(); ++i) {
      text.text(form.rowKey).number(i + 1).text(form.separator);
      const T stored = elementAt<T>(block, values, static_cast<std::uint64_t>(i));
      if (values.scale != 1) {
        text.fixed(presentedValue(block, traits, i), form.decimals);
      } else if (form.decimals >= 0) {
        text.fixed(static_cast<double>(stored), form.decimals);
      } else {
        printNumber(text, stored);
      }
      text.endLine();
    }
  });
  text.endLine();
  return os;
}

}  // namespace Velk::detail
