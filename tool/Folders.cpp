#include "Folders.h"

#include <dirent.h>
#include <fnmatch.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <memory>
#include <set>
#include <utility>

#include "InTurn.h"

namespace VelkTool {
namespace {

/// Finds the files below one folder.
class FolderWalk {
 public:
  explicit FolderWalk(Inputs& inputs) : inputs_(inputs) {}

  std::vector<std::string> walk(const std::string& top) {
    list(top);
    // Links come last: what is below the folder anyway has its own name.
    for (std::size_t folder = 0, link = 0; folder < folders_.size() || link < links_.size();) {
      list(folder < folders_.size() ? std::string(folders_[folder++]) : std::string(links_[link++]));
    }
    std::ranges::sort(files_);
    return std::move(files_);
  }

 private:
  void refuse(const std::string& folder) {
    inputs_.unreadable.emplace(folder, std::strerror(errno));
    files_.push_back(folder);
  }

  void list(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> opened(opendir(folder.c_str()), closedir);
    struct stat status {};
    if (opened == nullptr || fstat(dirfd(opened.get()), &status) != 0) return refuse(folder);
    if (!visited_.emplace(status.st_dev, status.st_ino).second) return;
    const std::string start = folder.ends_with('/') ? folder : folder + '/';
    const std::size_t folders = folders_.size();
    const std::size_t links = links_.size();
    const dirent* entry = nullptr;
    while (errno = 0, (entry = readdir(opened.get())) != nullptr) take(start, *entry);
    if (errno != 0) refuse(folder);
    // The order in which a folder lists its entries is arbitrary.
    std::sort(folders_.begin() + static_cast<std::ptrdiff_t>(folders), folders_.end());
    std::sort(links_.begin() + static_cast<std::ptrdiff_t>(links), links_.end());
  }

  void take(const std::string& folder, const dirent& entry) {
    const char* const name = entry.d_name;
    if (std::strcmp(name, ".") == 0 || std::strcmp(name, "..") == 0) return;
    const std::string path = folder + name;
    if (entry.d_type == DT_REG) return takeFile(path, name);
    struct stat own {};
    struct stat status {};
    const bool isLink = lstat(path.c_str(), &own) == 0 && S_ISLNK(own.st_mode);
    // A link to nothing is no silence: reading it reports why.
    if (stat(path.c_str(), &status) != 0 || S_ISREG(status.st_mode)) return takeFile(path, name);
    if (S_ISDIR(status.st_mode)) (isLink ? links_ : folders_).push_back(path);
  }

  void takeFile(const std::string& path, const char* name) {
    const auto matches = [&](const std::string& glob) { return fnmatch(glob.c_str(), name, 0) == 0; };
    if (inputs_.globs.empty() || std::ranges::any_of(inputs_.globs, matches)) files_.push_back(path);
  }

  Inputs& inputs_;
  std::set<std::pair<dev_t, ino_t>> visited_;
  std::vector<std::string> folders_;
  std::vector<std::string> links_;
  std::vector<std::string> files_;
};

bool isFolder(const std::string& name) {
  struct stat status {};
  return name != "-" && stat(name.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// Returns which of the names are those of folders, not 0 for each that is. Asks on all processors: for thousands of
/// files it takes as long as a good part of reading them.
std::vector<unsigned char> foldersAmong(Session& session, const std::vector<std::string>& names) {
  constexpr std::size_t atOnce = 128;
  std::vector<unsigned char> found(names.size());
  inTurn(session, (names.size() + atOnce - 1) / atOnce, [&](Session&, std::size_t part) {
    const std::size_t end = std::min(names.size(), (part + 1) * atOnce);
    for (std::size_t i = part * atOnce; i < end; ++i) found[i] = isFolder(names[i]) ? 1 : 0;
  });
  return found;
}

}  // namespace

Inputs withFilesOfFolders(Session& session, Inputs inputs) {
  std::vector<std::string> names = std::exchange(inputs.files, {});
  const std::vector<unsigned char> areFolders = foldersAmong(session, names);
  for (std::size_t i = 0; i < names.size(); ++i) {
    std::string& name = names[i];
    if (areFolders[i] == 0) {
      inputs.files.push_back(std::move(name));
      continue;
    }
    inputs.hasFolders = true;
    std::vector<std::string> files = FolderWalk(inputs).walk(name);
    if (files.empty()) {
      session.complain(name, inputs.globs.empty() ? "holds no file" : "holds no file with a name that --glob accepts");
      session.worsen(Exit::Findings);
    }
    std::ranges::move(files, std::back_inserter(inputs.files));
  }
  if (inputs.showsProgress && inputs.files.size() > 1) session.expect(inputs.files.size());
  return inputs;
}

}  // namespace VelkTool
