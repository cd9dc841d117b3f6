// Counts the blocks found in data without blocks: random bytes, zeros, programs, texts and archives.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "velk/containers/ImageFile.h"
#include "velk/image/MemoryImage.h"

namespace {

namespace fs = std::filesystem;

/// Takes a name and bytes; returns false when it has enough.
using Take = std::function<bool(const std::string& name, const QByteArray& bytes)>;

void forEachFile(const std::vector<std::string>& folders, const std::function<bool(const fs::path& path)>& isWanted,
                 const Take& take) {
  constexpr auto options = fs::directory_options::skip_permission_denied;
  std::error_code ignored;
  for (const std::string& folder : folders) {
    for (auto entry = fs::recursive_directory_iterator(folder, options, ignored); entry != fs::end(entry);
         entry.increment(ignored)) {
      if (entry->is_symlink(ignored) || !entry->is_regular_file(ignored) || !isWanted(entry->path())) continue;
      const Velk::ImageFile file = Velk::readImageFile(entry->path(), Velk::Container::Raw);
      if (file.error.empty() && !take(entry->path(), file.bytes)) return;
    }
  }
}

void randomBytes(const Take& take) {
  constexpr qsizetype piece = 16 * 1024 * 1024;
  std::mt19937_64 random(1);
  for (int number = 1;; ++number) {
    QByteArray bytes(piece, '\0');
    for (qsizetype at = 0; at < piece; at += sizeof(std::uint64_t)) {
      const std::uint64_t word = random();
      std::memcpy(bytes.data() + at, &word, sizeof word);
    }
    if (!take("piece " + std::to_string(number), bytes)) return;
  }
}

void zeros(const Take& take) {
  while (take("zeros", QByteArray(16 * 1024 * 1024, '\0'))) {
  }
}

void programs(const Take& take) {
  const auto all = [](const fs::path&) { return true; };
  forEachFile({"/usr/bin", "/usr/sbin", "/usr/lib", "/usr/libexec"}, all,
              [&](const std::string& name, const QByteArray& bytes) {
                return !bytes.startsWith(
                           "\x7F"
                           "ELF") ||
                       take(name, bytes);
              });
}

void texts(const Take& take) {
  static const std::set<std::string> endings = {".h",  ".hpp", ".c",  ".txt",  ".md",
                                                ".py", ".pl",  ".pm", ".html", ".json"};
  const auto isText = [](const fs::path& path) {
    return endings.count(path.extension()) != 0 || path.filename() == "copyright";
  };
  forEachFile({"/usr/share", "/usr/include", "/usr/lib"}, isText, take);
}

void archives(const Take& take) {
  static const std::set<std::string> endings = {".deb", ".gz", ".xz", ".bz2", ".zst", ".zip", ".jar", ".whl", ".png"};
  forEachFile(
      {"/var/cache/apt/archives", "/usr/share", "/usr/lib"},
      [](const fs::path& path) { return endings.count(path.extension()) != 0; }, take);
}

struct Kind {
  const char* name;
  void (*read)(const Take& take);
};

constexpr Kind kinds[] = {
    {"random bytes", randomBytes}, {"zeros", zeros}, {"programs", programs}, {"texts", texts}, {"archives", archives}};

/// Walks up to `most` bytes of a kind and tells what is found there; the number of blocks.
unsigned measure(const Kind& kind, std::uint64_t most, std::uint64_t& walked) {
  unsigned found = 0;
  std::uint64_t size = 0;
  kind.read([&](const std::string& name, const QByteArray& bytes) {
    for (const Velk::BlockView& block : Velk::MemoryImage(bytes)) {
      if (block.found == Velk::Found::InSequence) continue;
      std::printf("  %s: offset %llu, id %d, %zu bytes, %s\n", name.c_str(),
                  static_cast<unsigned long long>(block.offset), block.id, block.bytes.size(), kindName(block.kind));
      ++found;
    }
    size += static_cast<std::uint64_t>(bytes.size());
    return size < most;
  });
  std::printf("%-14s %8.1f MiB  %u blocks found\n", kind.name, static_cast<double>(size) / (1024 * 1024), found);
  walked += size;
  return found;
}

}  // namespace

int main(int argc, char** argv) {
  const std::uint64_t mebibytes = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 300;
  std::uint64_t walked = 0;
  unsigned found = 0;
  for (const Kind& kind : kinds) found += measure(kind, mebibytes * 1024 * 1024, walked);
  const double gigabytes = static_cast<double>(walked) / 1e9;
  std::printf("%u blocks found in %.2f GB\n", found, gigabytes);
  return found > std::max(1.0, gigabytes) ? 1 : 0;
}
