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

/// Returns the text as a JSON string, quoted and escaped. Invalid UTF-8 is read as Latin-1.
std::string jsonText(std::string_view text);

/// Writes one JSON document piece by piece, members in the order given, without holding it in memory.
///
/// The writer places commas, line breaks and escapes. The caller closes every object and array and gives every member a
/// key. The output is always valid UTF-8: text that is invalid UTF-8 is read as Latin-1.
class JsonWriter {
 public:
  using Sink = std::function<void(std::string_view text)>;
  enum class Layout { Indented, OneLine };

  /// Passes the text to `sink` in pieces.
  explicit JsonWriter(Sink sink, Layout layout = Layout::Indented);

  /// Layout::OneLine keeps the object or array and its contents on one line.
  JsonWriter& beginObject(Layout layout = Layout::Indented) { return begin('{', layout); }
  JsonWriter& endObject() { return end('}'); }
  JsonWriter& beginArray(Layout layout = Layout::Indented) { return begin('[', layout); }
  JsonWriter& endArray() { return end(']'); }
  JsonWriter& key(std::string_view name);
  /// Writes a short key that needs no escapes, such as a field name.
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
  /// Writes the shortest decimal that reads back as the same number; null for infinities, NaN and numbers outside the
  /// range of double, which readers treat differently.
  template <class T>
  requires std::is_arithmetic_v<T> JsonWriter& value(T number) { return isWritable(number) ? digits(number) : null(); }
  JsonWriter& value(std::nullptr_t) { return null(); }
  JsonWriter& null() { return raw("null"); }

  /// Writes the elements of an array or the members of an object on one line. Works on its own copy of the writer's
  /// position, which makes long rows of numbers fast.
  class Row {
   public:
    /// Writes what stands before the next value, as it is: the separator and the key of a member.
    void prefix(std::string_view text) {
      if (static_cast<std::size_t>(end_ - at_) < text.size()) {
        handBack();
        at_ = json_.room(text.size());
      }
      at_ = std::ranges::copy(text, at_).out;
      needsComma_ = false;
    }
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

  /// Writes an array on one line; calls `fill` with its Row.
  template <class Fill>
  JsonWriter& row(Fill fill) {
    beginArray(Layout::OneLine);
    fillRow(fill);
    return endArray();
  }

  /// Writes an object on one line; calls `fill` with its Row, which takes a prefix before each value.
  template <class Fill>
  JsonWriter& record(Fill fill) {
    beginObject(Layout::OneLine);
    fillRow(fill);
    return endObject();
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

  template <class Fill>
  void fillRow(Fill& fill) {
    Row row(*this);
    fill(row);
    row.handBack();
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
  /// Writes the separator that a key or value needs before it.
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
  /// Returns the write position, with room for `count` characters; `count` is less than the size of a piece.
  char* room(std::size_t count) {
    if (piece_.size() - used_ < count) flush();
    return piece_.data() + used_;
  }
  void advanceTo(const char* end) { used_ = static_cast<std::size_t>(end - piece_.data()); }
  /// Requires room for the characters.
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
  std::array<char, 4096> piece_;  ///< not yet passed to the sink
  std::size_t used_ = 0;
  std::size_t depth_ = 0;
  std::size_t oneLineDepth_ = 0;  ///< depth of the outermost one-line object or array; 0: none
  bool needsComma_ = false;       ///< the current object or array has an element already
  bool afterKey_ = false;         ///< the next value follows a key
};

}  // namespace VelkTool
