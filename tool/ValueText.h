#pragma once

#include <QByteArray>
#include <functional>
#include <string>

#include "velk/image/MemoryImage.h"

namespace VelkTool {

/// One value of a block for people: texts in quotes, with escapes, presented numbers with their unit.
std::string valueText(Velk::detail::ConstBytes block, const Velk::FieldElement& element, Velk::ValueForm form);

/// What has become of a value, as "IDENT_2 serialNumber: 1 -> 2".
std::string changeText(const std::string& block, const std::string& path, const std::string& before,
                       const std::string& after);

/// Calls `act` with the text of each value that is another one in `changed`, the new bytes of a block of the same size.
void forEachChange(const Velk::BlockView& block, const QByteArray& changed,
                   const std::function<void(const std::string& change)>& act);

}  // namespace VelkTool
