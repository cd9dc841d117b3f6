#pragma once

#include <optional>
#include <vector>

#include "velk/fields/Fields.h"

namespace Velk {

/// Returns a value in the notation of its field, as the text of its block has it, such as 1141.1000.02; one without a
/// notation as fieldText does.
VELK_EXPORT std::string writtenText(ConstBytes block, FieldElement element);

/// Stores the value that `text` gives in the notation of its field; without one, or if the text is a plain number, as
/// setFieldText does. A part number without a variant, such as 1141.1000, leaves the variant as it is. Any other result
/// than Done leaves the block unchanged.
VELK_EXPORT FieldResult setWrittenText(MutableBytes block, FieldElement element, std::string_view text, ValueForm form);

/// Returns what a text in the notation looks like, for example 1141.1000.02.
VELK_EXPORT const char* exampleOf(Notation notation);

/// Returns bytes as pairs of hexadecimal digits with colons between them.
VELK_EXPORT std::string addressText(ConstBytes bytes);

/// Reads pairs of hexadecimal digits with colons or hyphens between them; nothing if the text is not of that form.
VELK_EXPORT std::optional<std::vector<unsigned char>> parseAddress(std::string_view text);

}  // namespace Velk
