#pragma once

#include <map>
#include <string>

#include "Files.h"
#include "Tidy.h"

namespace VelkTool {

/// The tables of a folder: one file for each class of blocks, with the columns of its own axes.
class TidyFolder {
 public:
  TidyFolder(Session& session, std::string folder, const CsvForm& form)
      : session_(session), folder_(std::move(folder)), form_(form) {}

  void add(const TidyBlock& block);
  /// Puts all files in place.
  void commit();

 private:
  struct ClassFile {
    ClassFile(Session& session, const std::string& path, const TidyTable& lines) : table(lines), file(session, path) {}

    TidyTable table;
    GrowingFile file;
  };

  ClassFile& fileOf(const Velk::BlockView& block);

  Session& session_;
  std::string folder_;
  CsvForm form_;
  std::map<std::string, ClassFile> files_;
};

}  // namespace VelkTool
