#pragma once

#include "Inputs.h"

namespace VelkTool {

/// Returns the inputs with each folder replaced by the files in it and in the folders below, sorted by the bytes of
/// their names. Announces the number of files to `session`; reports and counts a folder without files.
///
/// Links are followed, but a folder is read once for each time that it is given, so that links in a circle end. A
/// folder that cannot be read takes the place of its files; opening it gives the reason.
Inputs withFilesOfFolders(Session& session, Inputs inputs);

}  // namespace VelkTool
