#pragma once

#include <map>
#include <string>
#include <vector>

#include "Session.h"
#include "velk/checks/Checks.h"
#include "velk/data/AnnotatedBytes.h"

namespace VelkTool {

/// The columns of the lines that show bytes.
struct DumpColumns {
  std::size_t width = ~std::size_t{0};  ///< of a line, which is cut there
  std::size_t bytes = 8;                ///< at most on a line
  std::size_t path = 22;                ///< width of the column with the paths

  /// Returns columns that fit standard output: if it is a terminal, they keep to its width.
  static DumpColumns ofOutput();
};

/// Writes the lines of a block, or of other bytes of an image.
class BlockDump {
 public:
  /// The block has to outlive the object.
  BlockDump(Session& session, const Velk::BlockView& block, const DumpColumns& columns)
      : session_(session), block_(block), columns_(columns) {}

  /// Writes a heading and all bytes; below them what was found about them.
  void write(const std::vector<Velk::CheckFinding>& findings);
  void writeSpan(const Velk::AnnotatedSpan& span);

 private:
  void writeHeading();
  std::string note(std::string_view type, std::string_view path, std::string_view text) const;
  std::string noteOn(const Velk::AnnotatedSpan& span, const Velk::AnnotatedValue& value) const;
  void writeLine(std::string line, const std::string& atRight);
  void writeFindingsAbout(const std::string& path);

  Session& session_;
  const Velk::BlockView& block_;
  DumpColumns columns_;
  std::map<std::string, std::vector<Velk::CheckFinding>> about_;  ///< not yet written, by path
};

/// Writes a finding, with lines that begin with `indent` blanks.
void writeFinding(Session& session, const Velk::CheckFinding& finding, const DumpColumns& columns,
                  std::size_t indent = 0);

}  // namespace VelkTool
