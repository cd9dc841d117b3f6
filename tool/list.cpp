#include <memory>

#include "Commands.h"
#include "Images.h"

namespace VelkTool {
namespace {

void padTo(std::string& line, std::size_t width) {
  if (line.size() < width) line.resize(width, ' ');
}

std::string row(const Velk::BlockView& block) {
  const bool stray = block.kind == Velk::BlockKind::Stray;
  std::string line = offsetText(block.offset);
  padTo(line, 12);
  line += stray ? "-" : std::to_string(block.id);
  padTo(line, 19);
  line += Velk::blockName(block);
  padTo(line, 56);
  line += std::to_string(stray ? block.bytes.size() : block.declaredSize);
  padTo(line, 63);
  line += Velk::kindName(block.kind);
  padTo(line, 79);
  line += Velk::verdictName(block);
  return line + '\n';
}

constexpr std::string_view heading =
    "offset      id     name                                 size   kind            verdict\n";

}  // namespace

void addList(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("list", "One line for each block of memory images");
  const auto files = std::make_shared<std::vector<std::string>>();
  command->add_option("FILE", *files, "Memory images; - is standard input")->required();
  command->footer("Example:\n  velk list module.bin");
  command->callback([&session, files] {
    forEachImage(session, *files, [&](const std::string& file, const Velk::MemoryImage& image) {
      if (files->size() > 1) session.write(file + ":\n");
      session.write(heading);
      for (const Velk::BlockView& block : image) {
        session.write(row(block));
        complainOf(session, file, block);
      }
    });
  });
}

}  // namespace VelkTool
