#include "Commands.h"
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

}  // namespace

void addIds(CLI::App& app, Session& session) {
  CLI::App* const command = app.add_subcommand("ids", "Every block id that is known: its class, key and size");
  command->footer("A + behind a size: blocks may be longer.\n\nExample:\n  velk ids | grep -i ident");
  command->callback([&session] {
    writeRows(session, Velk::dictionaryRows());
    if (Velk::otherRows().empty()) return;
    session.write("\nOutside the old-style dictionary:\n");
    writeRows(session, Velk::otherRows());
  });
}

}  // namespace VelkTool
