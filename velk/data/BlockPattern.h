#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "velk/image/BlockView.h"

namespace Velk {

/// Blocks as people call them: by id (2 or 0x2), by name (IDENT_2), by class (HwDatablockIdent), or by a pattern in
/// which * and ? stand for any characters ('*_FREQ').
class VELK_EXPORT BlockPattern {
 public:
  /// Reads what a user typed. Returns nothing if no block can be called that; `error` then says so, with the nearest
  /// name.
  static std::optional<BlockPattern> parse(std::string_view text, std::string& error);

  explicit BlockPattern(unsigned short id) : text_(std::to_string(id)), id_(id) {}

  bool matches(const BlockView& block) const;
  /// Returns whether blocks of a catalogue row and with one of its ids match.
  bool matches(const CatalogueRow& row, unsigned short id) const;
  /// Returns the id; nothing if blocks are called by their name or class.
  std::optional<unsigned short> id() const { return id_; }
  const std::string& text() const { return text_; }

 private:
  BlockPattern(std::string_view text, std::optional<unsigned short> id) : text_(text), id_(id) {}

  bool matchesName(const std::string& name) const;

  std::string text_;
  std::optional<unsigned short> id_;
};

/// Returns the names that blocks can be called by, in the order of their ids: each block's own, then its class.
VELK_EXPORT std::vector<std::string> blockNames();

}  // namespace Velk
