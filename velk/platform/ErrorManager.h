#pragma once

#include <QString>
#include <functional>
#include <map>
#include <string>

#include "velk/Export.h"

namespace Velk {

/// One kind of error that a library can signal. A table of these ends with an entry whose id is -1.
struct SErrorDefinition {
  int id;
  int severity;  ///< 1: error; 0: end of the table
  int group;
  int flags;
  const char* message;
  const char* cause;
  const char* remedy;
};

/// Collects the numbered errors that the user of the instrument has to see.
///
/// This default writes each occurrence to the Console's error stream unless a sink takes it; integrators replace it.
class VELK_EXPORT CErrorManager {
 public:
  /// Receives every signalled error: its id and the detail of this occurrence.
  using Sink = std::function<void(int id, const QString& detail)>;

  /// Adds a table of definitions, which must outlive the manager. `capacity` is the number of entries that the caller
  /// expects; the table may be shorter or longer.
  void registerErrors(const SErrorDefinition* definitions, int capacity);

  void signal(int id, const char* detail);
  void signal(int id, const QString& detail);

  /// Returns the definition of a registered id, or null.
  const SErrorDefinition* find(int id) const;
  /// Returns how many tables have been registered.
  int registrations() const { return registrations_; }

  /// Passes all further errors to `sink`; an empty one restores the default. Returns the previous sink.
  Sink setSink(Sink sink);

 private:
  std::map<int, const SErrorDefinition*> definitions_;
  int registrations_ = 0;
  Sink sink_;
};

/// Returns the error manager of the process; never null.
VELK_EXPORT CErrorManager* ErrorManager();

}  // namespace Velk
