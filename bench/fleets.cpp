// The command on many files, compared with plain programs of one thread that do only the work.
#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <memory>
#include <variant>

#include "CalibratedImage.h"
#include "PlainFleet.h"
#include "RunProgram.h"
#include "TemporaryFolder.h"
#include "velk/velk.h"

namespace {

using namespace VelkBench;

/// Returns the blocks of an example as far as they fit into a memory of 8 KiB, of which the rest is erased.
QByteArray moduleImage() {
  constexpr qsizetype size = 8 * 1024;
  const Velk::MemoryImage example(Velk::readImageFile(VELK_EXAMPLES "/iq_module.bin").bytes);
  QByteArray image;
  for (const Velk::BlockView& block : example) {
    const auto length = static_cast<qsizetype>(block.bytes.size());
    if (image.size() + length <= size) image.append(reinterpret_cast<const char*>(block.bytes.data()), length);
  }
  return image.leftJustified(size, '\xFF');
}

/// One image in many files, which are removed at the end of the run.
class Fleet {
 public:
  Fleet(int files, const QByteArray& image) : folder_("fleet" + std::to_string(files)) {
    for (int i = 0; i < files; ++i) names_.push_back(folder_.write(std::to_string(i) + ".bin", image));
  }

  const std::vector<std::string>& names() const { return names_; }

 private:
  TemporaryFolder folder_;
  std::vector<std::string> names_;
};

const Fleet& fleetOf10000() {
  static const Fleet fleet(10'000, moduleImage());
  return fleet;
}
const Fleet& fleetOf2000() {
  static const Fleet fleet(2'000, moduleImage());
  return fleet;
}
const Fleet& fleetOf200() {
  static const Fleet fleet(200, calibratedImage(64 * 1024));
  return fleet;
}

/// Runs a program with the files of a fleet.
void run(benchmark::State& state, std::vector<std::string> words, const Fleet& (*fleet)()) {
  words.insert(words.end(), fleet().names().begin(), fleet().names().end());
  for (auto _ : state) {
    if (runProgram(words) != 0) state.SkipWithError("a program failed");
  }
}

void filesRead(benchmark::State& state) {
  PlainFleet reader;
  for (auto _ : state) {
    std::size_t total = 0;
    for (const std::string& name : fleetOf10000().names()) total += reader.read(name);
    if (total != 10'000 * 8192) state.SkipWithError("files cannot be read");
  }
}

/// The text of an export and the numbers in it, which are formatted anew each time.
class PlainExport {
 public:
  explicit PlainExport(std::string text) : text_(std::move(text)) {
    for (std::size_t at = 0, begin = 0; at < text_.size();) {
      if (text_[at] == '"') {
        at = text_.find('"', at + 1) + 1;
      } else if (text_[at] == '-' || (text_[at] >= '0' && text_[at] <= '9')) {
        const std::size_t end = text_.find_first_not_of("+-.0123456789e", at);
        const std::string_view token = std::string_view(text_).substr(at, end - at);
        pieces_.push_back({std::string_view(text_).substr(begin, at - begin), numberOf(token)});
        at = begin = end;
      } else {
        ++at;
      }
      if (at == text_.size()) last_ = std::string_view(text_).substr(begin);
    }
  }
  PlainExport(const PlainExport&) = delete;
  PlainExport& operator=(const PlainExport&) = delete;

  const std::string& text() const { return text_; }

  /// Writes the whole text to a buffer that is large enough. Returns its end.
  char* write(char* to) const {
    for (const Piece& piece : pieces_) {
      to = std::ranges::copy(piece.before, to).out;
      to = std::visit([to](auto number) { return std::to_chars(to, to + 32, number).ptr; }, piece.number);
    }
    return std::ranges::copy(last_, to).out;
  }

 private:
  using Number = std::variant<std::int64_t, float, double>;
  struct Piece {
    std::string_view before;
    Number number;
  };

  /// Takes a number as the first type that gives its digits.
  static Number numberOf(std::string_view token) {
    Number number;
    const auto isOf = [&]<class T>(T value) {
      char digits[32];
      std::from_chars(token.data(), token.data() + token.size(), value);
      number = value;
      return std::string_view(digits, std::to_chars(digits, digits + 32, value).ptr) == token;
    };
    static_cast<void>(isOf(std::int64_t{}) || isOf(float{}) || isOf(double{}));
    return number;
  }

  std::string text_;
  std::vector<Piece> pieces_;
  std::string_view last_;
};

std::string outputOf(const std::string& command) {
  std::string output;
  const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
  char piece[4096];
  for (std::size_t count = 0; (count = std::fread(piece, 1, sizeof piece, pipe.get())) > 0;)
    output.append(piece, count);
  return output;
}

/// Reads the images, checks their sums and writes the text that the command exports.
void exportedPlainly(benchmark::State& state, const Fleet& (*fleet)()) {
  const PlainExport text(outputOf(VELK_COMMAND " export --format jsonl " + fleet().names().front()));
  std::string buffer(2 * text.text().size() + 64, '\0');
  if (std::string_view(buffer.data(), text.write(buffer.data())) != text.text()) state.SkipWithError("another text");
  const int out = open("/dev/null", O_WRONLY);
  PlainFleet reader;
  for (auto _ : state) {
    std::size_t sound = 0;
    for (const std::string& name : fleet().names()) {
      sound += reader.countSound(reader.read(name));
      const auto size = static_cast<std::size_t>(text.write(buffer.data()) - buffer.data());
      if (write(out, buffer.data(), size) < 0) state.SkipWithError("the text cannot be written");
    }
    benchmark::DoNotOptimize(sound);
  }
  close(out);
}

#define VELK_BENCH_FLEET(files)                                                               \
  BENCHMARK_CAPTURE(run, list##files, {VELK_COMMAND, "list"}, fleetOf##files)->UseRealTime(); \
  BENCHMARK_CAPTURE(run, check##files, {VELK_COMMAND, "check"}, fleetOf##files)->UseRealTime()
#define VELK_BENCH_PLAIN_FLEET(files)                                                                                  \
  VELK_BENCH_FLEET(files);                                                                                             \
  BENCHMARK_CAPTURE(run, plain##files, {VELK_PLAIN_FLEET}, fleetOf##files)->UseRealTime();                             \
  BENCHMARK_CAPTURE(run, export##files, {VELK_COMMAND, "export", "--format", "jsonl"}, fleetOf##files)->UseRealTime(); \
  BENCHMARK_CAPTURE(exportedPlainly, files, fleetOf##files)->UseRealTime()

VELK_BENCH_FLEET(10000);
VELK_BENCH_PLAIN_FLEET(2000);
VELK_BENCH_PLAIN_FLEET(200);
BENCHMARK(filesRead)->UseRealTime();

}  // namespace
