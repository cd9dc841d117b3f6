#include <memory>
#include <set>

#include "CatalogueJson.h"
#include "Columns.h"
#include "Commands.h"
#include "JsonReport.h"
#include "Layout.h"
#include "velk/oldstyle/BlockCatalogue.h"
#include "velk/oldstyle/BlockPairs.h"

namespace VelkTool {
namespace {

/// Returns the ids of the other blocks that have the points of a block's values, as "over 12040 and 12041".
std::string axesText(unsigned short id) {
  std::set<unsigned short> others;
  for (const Velk::BlockPair& pair : Velk::axesOf(id)) {
    if (pair.axisId != id) others.insert(pair.axisId);
  }
  std::string text;
  for (const unsigned short other : others) text += (text.empty() ? "over " : " and ") + std::to_string(other);
  return text;
}

std::string row(const Velk::CatalogueRow& catalogued, unsigned short id) {
  std::string line = std::to_string(id);
  padTo(line, 7);
  line += catalogued.className;
  padTo(line, 54);
  line += catalogued.key(id);
  padTo(line, 92);
  line += std::to_string(catalogued.size);
  if (catalogued.others.longer) line += '+';
  if (catalogued.others.also != 0) line += " or " + std::to_string(catalogued.others.also);
  if (const std::string axes = axesText(id); !axes.empty()) {
    padTo(line, 107);
    line += axes;
  }
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
  const auto json = addJson(*command);
  command->footer(
      "A + after a size means that blocks may be longer. \"over 13500\" means that the values of a block belong to "
      "the\n"
      "points in the block of that id, such as frequencies.\n\nExamples:\n  velk ids | grep -i ident\n"
      "  velk ids --layout\n  velk ids --json | jq '.blocks[] | select(.class == \"HwDatablockIdent\") | .fields'");
  command->callback([&session, layout, json] {
    if (*json && *layout) throw CLI::ValidationError("--json", "has all layouts; --layout writes Markdown");
    if (*json) {
      JsonWriter writer([&](std::string_view text) { session.write(text); });
      return writeCatalogue(writer);
    }
    const auto write = *layout ? writeLayouts : writeRows;
    write(session, Velk::dictionaryRows());
    session.write(*layout ? "# Outside the old-style dictionary\n\n" : "\nOutside the old-style dictionary:\n");
    write(session, Velk::otherRows());
  });
}

}  // namespace VelkTool
