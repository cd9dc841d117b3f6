#pragma once

#include <string>

#include "velk/datablock/Fields.h"

namespace VelkTool {

/// One value of a block for people: texts in quotes, with escapes, presented numbers with their unit.
std::string valueText(Velk::detail::ConstBytes block, const Velk::FieldElement& element, Velk::ValueForm form);

}  // namespace VelkTool
