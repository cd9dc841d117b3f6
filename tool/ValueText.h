#pragma once

#include <QByteArray>
#include <functional>
#include <string>

#include "velk/data/BlockDiff.h"

namespace VelkTool {

/// Formats one value of a block for display: texts quoted and escaped, presented ones as people write them.
std::string valueText(Velk::ConstBytes block, const Velk::FieldElement& element, Velk::ValueForm form);

/// Formats the two sides of a difference as "1 -> 2"; adds their bytes if both values look the same.
std::string sidesText(const Velk::BlockView& first, const Velk::BlockView& second, const Velk::Difference& difference);

/// Calls `act` with a text for each value that differs in `changed`, the new bytes of a block of the same size.
void forEachChange(const Velk::BlockView& block, const QByteArray& changed,
                   const std::function<void(const std::string& change)>& act);

}  // namespace VelkTool
