#include <memory>

#include "Commands.h"
#include "Images.h"

namespace VelkTool {
namespace {

std::string verdict(const Velk::BlockView& block) {
  std::string line = offsetText(block.offset) + "  " + Velk::blockName(block) + ": " + Velk::verdictName(block);
  for (std::size_t i = 0; i < Velk::findingCount; ++i) {
    const auto finding = static_cast<Velk::Finding>(i);
    if (block.has(finding)) line += "; " + Velk::describe(block, finding);
  }
  return line + '\n';
}

}  // namespace

void addCheck(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("check", "Whether every block of memory images is sound, and why not");
  const auto files = std::make_shared<std::vector<std::string>>();
  command->add_option("FILE", *files, "Memory images; - is standard input")->required();
  command->footer("Exits with 1 when something is not sound.\n\nExample:\n  velk check module.bin && echo sound");
  command->callback([&session, files] {
    forEachImage(session, *files, [&](const std::string& file, const Velk::MemoryImage& image) {
      if (files->size() > 1) session.write(file + ":\n");
      for (const Velk::BlockView& block : image) {
        session.write(verdict(block));
        if (block.findings.any()) session.worsen(Exit::Findings);
      }
    });
  });
}

}  // namespace VelkTool
