#pragma once

#include <QByteArray>
#include <functional>
#include <string>

#include "velk/data/BlockDiff.h"

namespace VelkTool {

/// One value of a block for people: texts in quotes, with escapes, presented numbers with their unit.
std::string valueText(Velk::ConstBytes block, const Velk::FieldElement& element, Velk::ValueForm form);

/// The two sides of a difference, as "1 -> 2"; with their bytes where the values read alike.
std::string sidesText(const Velk::BlockView& first, const Velk::BlockView& second, const Velk::Difference& difference);

/// Calls `act` with the text of each value that is another one in `changed`, the new bytes of a block of the same size.
void forEachChange(const Velk::BlockView& block, const QByteArray& changed,
                   const std::function<void(const std::string& change)>& act);

}  // namespace VelkTool
