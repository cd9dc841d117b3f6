#include <memory>

#include "Commands.h"
#include "Layout.h"
#include "velk/oldstyle/BlockCatalogue.h"

namespace VelkTool {
namespace {

std::string row(const Velk::CatalogueRow& catalogued, unsigned short id) {
  std::string line = std::to_string(id);
  line.resize(7, ' ');
  line += catalogued.className;
  line.resize(std::max<std::size_t>(line.size() + 1, 54), ' ');
  line += catalogued.key(id);
  line.resize(std::max<std::size_t>(line.size() + 1, 92), ' ');
  line += std::to_string(catalogued.size);
  if (catalogued.others.longer) line += '+';
  if (catalogued.others.also != 0) line += " or " + std::to_string(catalogued.others.also);
  return line + '\n';
}

void writeRows(Session& session, std::span<const Velk::CatalogueRow> rows) {
  for (const Velk::CatalogueRow& catalogued : rows) {
    for (int id = catalogued.firstId; id <= catalogued.lastId; ++id) {
      session.write(row(catalogued, static_cast<unsigned short>(id)));
    }
  }
}

void writeLayouts(Session& session, std::span<const Velk::CatalogueRow> rows) {
  for (const Velk::CatalogueRow& catalogued : rows) session.write(layoutText(catalogued));
}

}  // namespace

void addIds(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("ids", "List every known block id with its class, key and size");
  const auto layout = std::make_shared<bool>(false);
  command->add_flag("--layout", *layout, "Show the field offsets of each block, as Markdown");
  command->footer(
      "A + after a size means that blocks may be longer.\n\nExamples:\n  velk ids | grep -i ident\n  velk ids "
      "--layout");
  command->callback([&session, layout] {
    const auto write = *layout ? writeLayouts : writeRows;
    write(session, Velk::dictionaryRows());
    session.write(*layout ? "# Outside the old-style dictionary\n\n" : "\nOutside the old-style dictionary:\n");
    write(session, Velk::otherRows());
  });
}

}  // namespace VelkTool
