#include "TidyFolder.h"

namespace VelkTool {
namespace {

/// Returns the name of a block's class without the prefix that all have; of one without a class, its own.
std::string tableName(const Velk::BlockView& block) {
  constexpr std::string_view prefix = "HwDatablock";
  if (block.row == nullptr) return Velk::blockName(block);
  std::string_view name = block.row->className;
  if (name.starts_with(prefix)) name.remove_prefix(prefix.size());
  return std::string(name);
}

}  // namespace

void TidyFolder::add(const TidyBlock& block) {
  ClassFile& to = fileOf(block.block);
  to.table.write(block, [&](std::string_view text) { to.file.append(text); });
}

void TidyFolder::commit() {
  for (auto& [name, to] : files_) to.file.commit();
}

TidyFolder::ClassFile& TidyFolder::fileOf(const Velk::BlockView& block) {
  const std::string name = tableName(block);
  if (const auto found = files_.find(name); found != files_.end()) return found->second;
  const TidyTable table(form_, axisHeadings(block));
  ClassFile& to = files_.try_emplace(name, session_, folder_ + '/' + name + ".csv", table).first->second;
  to.file.append(to.table.heading());
  return to;
}

}  // namespace VelkTool
