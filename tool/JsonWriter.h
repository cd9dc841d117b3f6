#pragma once

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

namespace VelkTool {

/// A text as JSON has it: in quotes, with escapes, and read as Latin-1 where it is not UTF-8.
std::string jsonText(std::string_view text);

/// Writes one JSON document piece by piece, its members in the order in which they are given, without ever holding it
/// whole.
///
/// Commas, line breaks and escapes are the writer's; that every object and array is closed and every member has a key
/// is the caller's. What it writes is valid UTF-8 whatever the texts are: a text that is not UTF-8 is taken as Latin-1.
class JsonWriter {
 public:
  using Sink = std::function<void(std::string_view text)>;
  enum class Layout { Indented, OneLine };

  /// Pieces of the text go to `sink`.
  explicit JsonWriter(Sink sink, Layout layout = Layout::Indented);

  /// With Layout::OneLine the object or array stays on one line, with all in it.
  JsonWriter& beginObject(Layout layout = Layout::Indented) { return begin('{', layout); }
  JsonWriter& endObject() { return end('}'); }
  JsonWriter& beginArray(Layout layout = Layout::Indented) { return begin('[', layout); }
  JsonWriter& endArray() { return end(']'); }
  JsonWriter& key(std::string_view name);
  /// The same for a short name that needs no escapes, as those of fields.
  JsonWriter& plainKey(std::string_view name) {
    separate();
    char* at = room(name.size() + 4);
    *at++ = '"';
    at = std::ranges::copy(name, at).out;
    at = std::ranges::copy(std::string_view("\": "), at).out;
    advanceTo(at);
    needsComma_ = false;
    afterKey_ = true;
    return *this;
  }

  JsonWriter& value(std::string_view text);
  JsonWriter& value(const char* text) { return value(std::string_view(text)); }
  JsonWriter& value(bool truth) { return raw(truth ? "true" : "false"); }
  /// The shortest decimal that reads back as the same number; null for infinities and NaN, which JSON lacks, and for
  /// what no double can hold, on which readers differ.
  template <class T>
  requires std::is_arithmetic_v<T> JsonWriter& value(T number) { return isWritable(number) ? digits(number) : null(); }
  JsonWriter& value(std::nullptr_t) { return null(); }
  JsonWriter& null() { return raw("null"); }

  /// The elements of an array on one line. Numbers are written without anything of the writer changing from one to the
  /// next: the fast way to many of them.
  class Row {
   public:
    template <class T>
    void value(T element) {
      if constexpr (std::is_arithmetic_v<T>) {
        if (isWritable(element)) return digits(element);
      }
      handBack();
      json_.value(element);
      takeOver();
    }

   private:
    friend class JsonWriter;
    explicit Row(JsonWriter& json) : json_(json) { takeOver(); }

    template <class T>
    void digits(T number) {
      if (static_cast<std::size_t>(end_ - at_) < roomForNumber) {
        handBack();
        at_ = json_.room(roomForNumber);
      }
      if (needsComma_) at_ = std::ranges::copy(std::string_view(", "), at_).out;
      needsComma_ = true;
      at_ = std::to_chars(at_, end_, number).ptr;
    }
    void takeOver() {
      at_ = json_.room(0);
      needsComma_ = json_.needsComma_;
    }
    void handBack() {
      json_.advanceTo(at_);
      json_.needsComma_ = needsComma_;
    }

    JsonWriter& json_;
    char* at_ = nullptr;
    char* end_ = json_.piece_.data() + json_.piece_.size();
    bool needsComma_ = false;
  };

  /// An array on one line; `fill` is called with its Row.
  template <class Fill>
  JsonWriter& row(Fill fill) {
    beginArray(Layout::OneLine);
    Row row(*this);
    fill(row);
    row.handBack();
    return endArray();
  }

  template <class T>
  JsonWriter& member(std::string_view name, const T& content) {
    return key(name).value(content);
  }

  /// Ends the document with a line break.
  void finish();

 private:
  static constexpr std::size_t roomForNumber = 80;

  template <class T>
  static bool isWritable(T number) {
    if constexpr (std::is_integral_v<T>) return true;
    const auto narrowed = static_cast<double>(number);
    return narrowed - narrowed == 0;
  }

  JsonWriter& begin(char bracket, Layout layout) {
    separate();
    put(bracket);
    ++depth_;
    if (layout == Layout::OneLine && oneLineDepth_ == 0) oneLineDepth_ = depth_;
    needsComma_ = false;
    return *this;
  }

  JsonWriter& end(char bracket) {
    const bool breaks = needsComma_ && !isOnOneLine();
    if (depth_ == oneLineDepth_) oneLineDepth_ = 0;
    --depth_;
    if (breaks) breakLine();
    put(bracket);
    needsComma_ = true;
    return *this;
  }
  JsonWriter& raw(std::string_view text);
  template <class T>
  JsonWriter& digits(T number) {
    separate();
    char* const at = room(roomForNumber);
    advanceTo(std::to_chars(at, at + roomForNumber, number).ptr);
    return *this;
  }
  bool isOnOneLine() const { return layout_ == Layout::OneLine || oneLineDepth_ != 0; }
  /// Writes what has to stand before a key or a value.
  void separate() {
    if (isOnOneLine()) {
      if (needsComma_) put(", ");
    } else {
      if (needsComma_) put(',');
      if (!afterKey_ && depth_ > 0) breakLine();
    }
    needsComma_ = true;
    afterKey_ = false;
  }
  /// Where the text goes on, with room for that many characters, which are fewer than a piece has.
  char* room(std::size_t count) {
    if (piece_.size() - used_ < count) flush();
    return piece_.data() + used_;
  }
  void advanceTo(const char* end) { used_ = static_cast<std::size_t>(end - piece_.data()); }
  /// Of characters for which there is room.
  void putUnchecked(std::string_view few) {
    std::memcpy(piece_.data() + used_, few.data(), few.size());
    used_ += few.size();
  }
  void put(char c) {
    if (used_ == piece_.size()) flush();
    piece_[used_++] = c;
  }
  void put(std::string_view text) { text.size() <= piece_.size() - used_ ? putUnchecked(text) : putLong(text); }
  void putLong(std::string_view text);
  void breakLine();
  void putString(std::string_view text);
  void flush();

  Sink sink_;
  Layout layout_;
  std::array<char, 4096> piece_;  ///< what has not been handed on yet
  std::size_t used_ = 0;
  std::size_t depth_ = 0;
  std::size_t oneLineDepth_ = 0;  ///< of the outermost object or array that is to stay on one line; 0: of none
  bool needsComma_ = false;       ///< something stands before the next key or value in the same object or array
  bool afterKey_ = false;         ///< the next value belongs to a key
};

}  // namespace VelkTool
