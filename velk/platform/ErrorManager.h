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

  /// Takes up a table of definitions, which must outlive the manager. `capacity` is the room that the caller expects
  /// its table to need; a table may be shorter or longer.
  void registerErrors(const SErrorDefinition* definitions, int capacity);

  void signal(int id, const char* detail);
  void signal(int id, const QString& detail);

  /// The definition of a registered id, or null.
  const SErrorDefinition* find(int id) const;
  /// How many tables have been registered.
  int registrations() const { return registrations_; }

  /// Hands all further errors to `sink`; an empty one restores the default. Returns the former sink.
  Sink setSink(Sink sink);

 private:
  std::map<int, const SErrorDefinition*> definitions_;
  int registrations_ = 0;
  Sink sink_;
};

/// The error manager of the process; never null.
VELK_EXPORT CErrorManager* ErrorManager();

}  // namespace Velk
