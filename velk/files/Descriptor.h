#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "velk/Export.h"

namespace Velk {

/// An open file of the operating system. Owns it and closes it in the destructor.
///
/// Calls interrupted by a signal are repeated. If a call fails, errno says why.
class VELK_EXPORT Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(number_, other.number_);
    return *this;
  }
  ~Descriptor();

  /// Opens a path, relative to the open folder `folder` or to the current one. If that fails, the result is not open.
  static Descriptor open(const std::string& path, int flags, unsigned mode = 0);
  static Descriptor openAt(const Descriptor& folder, const std::string& path, int flags, unsigned mode = 0);
  /// Returns a second descriptor for what `number` has open.
  static Descriptor duplicate(int number);

  bool isOpen() const { return number_ >= 0; }
  int number() const { return number_; }

  /// Writes all of `bytes`.
  bool write(std::string_view bytes) const { return writeTo(number_, bytes); }
  static bool writeTo(int number, std::string_view bytes);
  /// Waits until what was written is on the disk. Succeeds on file systems that cannot tell.
  bool sync() const;
  /// Closes the file now and returns whether that succeeded; the destructor cannot report an error.
  bool close();

 private:
  int number_ = -1;
};

}  // namespace Velk
