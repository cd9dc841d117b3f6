#include "DataJson.h"

#include <algorithm>

#include "velk/data/WrittenForm.h"
#include "velk/fields/FieldValue.h"

namespace VelkTool {
namespace {

using Velk::BlockData;
using Velk::DataNode;
using Velk::DataPath;
using Velk::ValueForm;

/// Returns whether a node has a value that is presented scaled.
bool isPresentedOtherwise(const DataNode& node) {
  if (node.kind() == DataNode::Kind::Value) return Velk::detail::isScaled(*node.element().field);
  const std::size_t parts = node.run() ? std::min<std::size_t>(node.size(), 1) : node.size();
  for (std::size_t i = 0; i < parts; ++i) {
    if (isPresentedOtherwise(node[i])) return true;
  }
  return false;
}

using Units = std::vector<std::pair<std::string, const char*>>;

/// Collects the units of a node's values; the first element of a list stands for all.
void collectUnits(const DataNode& node, const DataPath& path, Units& units) {
  if (node.kind() == DataNode::Kind::Value) {
    const char* const unit = node.element().field->unit;
    if (*unit != '\0') units.emplace_back(path.text(false), unit);
  } else if (node.kind() == DataNode::Kind::Record) {
    forEachPart(node, path, [&](const DataPath& part, const DataNode& below) { collectUnits(below, part, units); });
  } else {
    collectUnits(node.sample(), DataPath(path, std::size_t{0}), units);
  }
}

bool isListOfValues(const DataNode& node) {
  if (node.kind() != DataNode::Kind::List) return false;
  return node.run() || node.sample().kind() == DataNode::Kind::Value;
}

/// Returns OneLine for records that consist of values and lists of values only.
JsonWriter::Layout elementLayout(const DataNode& element) {
  if (element.kind() != DataNode::Kind::Record) return JsonWriter::Layout::Indented;
  for (std::size_t i = 0; i < element.size(); ++i) {
    const DataNode member = element[i];
    if (member.kind() != DataNode::Kind::Value && !isListOfValues(member)) return JsonWriter::Layout::Indented;
  }
  return JsonWriter::Layout::OneLine;
}

/// Returns whether the elements of a list are records that consist of single values.
bool isListOfFlatRecords(const DataNode& list) {
  const Velk::FieldInfo* const field = list.field();
  const bool isOfRecords = field != nullptr && field->type == Velk::ScalarType::Record && list.spacing().has_value() &&
                           list.sample().kind() == DataNode::Kind::Record;
  return isOfRecords && std::ranges::all_of(field->members, [](const Velk::FieldInfo& member) {
           return member.rank == 0 && member.type != Velk::ScalarType::Record;
         });
}

/// Accepts every member.
struct Everything {
  bool operator()(const DataNode& /*member*/) const { return true; }
};

class DataWriter {
 public:
  DataWriter(JsonWriter& json, const BlockData& data, ValueForm form) : json_(json), data_(data), form_(form) {}

  /// Writes a node; of records only the members that `accepts` returns true for.
  template <class Accepts>
  void write(const DataNode& node, Accepts accepts, JsonWriter::Layout layout = JsonWriter::Layout::Indented) {
    switch (node.kind()) {
      case DataNode::Kind::Value:
        return writeDataValue(json_, data_.bytes(), node.element(), form_);
      case DataNode::Kind::List:
        return writeList(node, accepts);
      case DataNode::Kind::Record:
        json_.beginObject(layout);
        for (std::size_t i = 0; i < node.size(); ++i) {
          writeMember(node, i, accepts);
        }
        json_.endObject();
    }
  }

 private:
  template <class Accepts>
  void writeMember(const DataNode& record, std::size_t index, Accepts accepts) {
    if constexpr (std::is_same_v<Accepts, Everything>) {
      if (const auto value = record.valueAt(index)) {
        json_.plainKey(record.nameOf(index));
        return writeDataValue(json_, data_.bytes(), *value, form_);
      }
    }
    const DataNode member = record[index];
    if (!accepts(member)) return;
    json_.plainKey(record.nameOf(index));
    write(member, accepts);
  }

  template <class Accepts>
  void writeList(const DataNode& list, Accepts accepts) {
    if (const auto run = list.run()) return writeRun(*run);
    json_.beginArray(isListOfValues(list) ? JsonWriter::Layout::OneLine : JsonWriter::Layout::Indented);
    if (std::is_same_v<Accepts, Everything> && isListOfFlatRecords(list)) {
      writeRecords(list);
      json_.endArray();
      return;
    }
    const JsonWriter::Layout layout = elementLayout(list.sample());
    for (std::size_t i = 0; i < list.size(); ++i) {
      if (const auto row = list.runAt(i)) {
        writeRun(*row);
      } else {
        write(list[i], accepts, layout);
      }
    }
    json_.endArray();
  }

  /// Writes records of single values one after another, of which there may be very many.
  void writeRecords(const DataNode& list) {
    const std::span<const Velk::FieldInfo> members = list.field()->members;
    const DataNode::Spacing spacing = *list.spacing();
    makePrefixes(members);
    for (std::size_t i = 0; i < list.size(); ++i) {
      const std::size_t offset = spacing.offset + i * spacing.distance;
      json_.record([&](JsonWriter::Row& row) {
        for (std::size_t member = 0; member < members.size(); ++member) {
          row.prefix(prefixes_[member]);
          const Velk::FieldElement element{&members[member], offset + members[member].offset};
          Velk::detail::withValue(data_.bytes(), element, form_, [&](auto value) { row.value(value); });
        }
      });
    }
  }

  /// Keeps what stands before each member's value; the rows of a table have the same members.
  void makePrefixes(std::span<const Velk::FieldInfo> members) {
    if (members.data() == prefixedMembers_) return;
    prefixedMembers_ = members.data();
    prefixes_.clear();
    for (const Velk::FieldInfo& member : members) {
      prefixes_.push_back((prefixes_.empty() ? "\"" : ", \"") + std::string(member.name) + "\": ");
    }
  }

  void writeRun(const DataNode::Run& run) {
    json_.row([&](JsonWriter::Row& row) {
      Velk::detail::withValues(data_.bytes(), run.first, run.count, form_, [&](auto value) { row.value(value); });
    });
  }

  JsonWriter& json_;
  const BlockData& data_;
  ValueForm form_;
  const Velk::FieldInfo* prefixedMembers_ = nullptr;
  std::vector<std::string> prefixes_;
};

void writeTexts(JsonWriter& json, const BlockData& data) {
  const DataNode root = data.root();
  bool hasTexts = false;
  for (std::size_t i = 0; i < root.size(); ++i) {
    const auto text = Velk::writtenForm(data, root[i]);
    if (!text) continue;
    if (!hasTexts) json.key("texts").beginObject();
    hasTexts = true;
    json.member(root.nameOf(i), *text);
  }
  if (hasTexts) json.endObject();
}

}  // namespace

void writeData(JsonWriter& json, const BlockData& data, ValueForm form) {
  DataWriter(json, data, form).write(data.root(), Everything{});
}

void writeDataNotes(JsonWriter& json, const BlockData& data, bool stored) {
  Units units;
  collectUnits(data.root(), {}, units);
  if (!units.empty()) {
    json.key("units").beginObject();
    for (const auto& [name, unit] : units) json.member(name, unit);
    json.endObject();
  }
  writeTexts(json, data);
  if (stored && isPresentedOtherwise(data.root())) {
    json.key("stored");
    DataWriter(json, data, ValueForm::Stored).write(data.root(), isPresentedOtherwise);
  }
}

void writeDataValue(JsonWriter& json, Velk::ConstBytes block, const Velk::FieldElement& element, ValueForm form) {
  Velk::detail::withValue(block, element, form, [&](auto value) { json.value(value); });
}

}  // namespace VelkTool
