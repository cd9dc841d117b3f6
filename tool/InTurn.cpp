#include "InTurn.h"

#include <algorithm>
#include <condition_variable>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <vector>

namespace VelkTool {
namespace {

class Part;

/// Tracks whose turn it is to write, and keeps the finished parts that wait for theirs.
class Turns {
 public:
  Turns(Session& whole, std::size_t count, std::size_t ahead) : whole_(whole), count_(count), ahead_(ahead) {}

  /// Returns the next part to run once it is not too far ahead; null when all are taken.
  std::unique_ptr<Part> take();
  bool isTurnOf(std::size_t part);
  void await(std::size_t part);
  /// Flushes a finished part, or keeps it for the part before it to flush.
  void finish(std::unique_ptr<Part> part);

 private:
  Session& whole_;
  std::size_t count_;
  std::size_t ahead_;
  std::mutex mutex_;
  std::condition_variable moved_;
  std::size_t taken_ = 0;
  std::size_t turn_ = 0;
  std::map<std::size_t, std::unique_ptr<Part>> finished_;
  std::vector<std::unique_ptr<Part>> idle_;  ///< flushed, for parts to come: their memory is not allocated again
};

/// Buffers output and complaints until its turn comes.
class Part final : public Session {
 public:
  Part(Session& whole, Turns& turns) : whole_(whole), turns_(turns) {}

  /// Begins with nothing written.
  void begin(std::size_t number) {
    number_ = number;
    exit_ = Exit::Good;
  }

  void write(std::string_view text) override {
    constexpr std::size_t worthAsking = 64 * 1024;
    constexpr std::size_t perInsertion = 256;
    output_ += text;
    const std::size_t size = output_.size() + perInsertion * insertions_.size();
    if (size < worthAsking || (size < most && !turns_.isTurnOf(number_))) return;
    turns_.await(number_);
    flushToWhole();
  }

  void writeVerdict(std::string_view text, Verdict verdict) override {
    if (verdict == Verdict::Sound || !hasColours()) return write(text);
    insertions_.push_back({output_.size(), {}, std::string(text), verdict});
    write({});
  }

  bool hasColours() const override { return whole_.hasColours(); }

  void complain(std::string_view file, std::string_view what) override {
    insertions_.push_back({output_.size(), std::string(file), std::string(what), std::nullopt});
    write({});
  }

  void worsen(Exit exit) override { exit_ = std::max(exit_, exit); }
  void advance() override { ++advances_; }

  std::size_t number() const { return number_; }

  /// Writes everything buffered so far. Call it only in its turn.
  void flushToWhole() {
    std::string_view rest = output_;
    for (const Insertion& insertion : insertions_) {
      const std::size_t before = insertion.place - (output_.size() - rest.size());
      whole_.write(rest.substr(0, before));
      if (insertion.verdict) {
        whole_.writeVerdict(insertion.text, *insertion.verdict);
      } else {
        whole_.complain(insertion.file, insertion.text);
      }
      rest.remove_prefix(before);
    }
    whole_.write(rest);
    whole_.worsen(exit_);
    for (; advances_ > 0; --advances_) whole_.advance();
    if (output_.capacity() > 2 * most) output_ = {};  // of one long text, as few parts have
    output_.clear();
    insertions_.clear();
  }

 private:
  static constexpr std::size_t most = 1024 * 1024;

  /// A complaint, or a text with a verdict, between parts of the output.
  struct Insertion {
    std::size_t place;  ///< in the output
    std::string file;
    std::string text;
    std::optional<Verdict> verdict;
  };

  Session& whole_;
  Turns& turns_;
  std::size_t number_ = 0;
  std::string output_;
  std::vector<Insertion> insertions_;
  std::size_t advances_ = 0;
  Exit exit_ = Exit::Good;
};

std::unique_ptr<Part> Turns::take() {
  std::unique_lock lock(mutex_);
  if (taken_ == count_) return nullptr;
  const std::size_t number = taken_++;
  moved_.wait(lock, [&] { return number - turn_ < ahead_; });
  if (idle_.empty()) idle_.push_back(std::make_unique<Part>(whole_, *this));
  std::unique_ptr<Part> part = std::move(idle_.back());
  idle_.pop_back();
  part->begin(number);
  return part;
}

bool Turns::isTurnOf(std::size_t part) {
  const std::lock_guard lock(mutex_);
  return turn_ == part;
}

void Turns::await(std::size_t part) {
  std::unique_lock lock(mutex_);
  moved_.wait(lock, [&] { return turn_ == part; });
}

void Turns::finish(std::unique_ptr<Part> part) {
  const std::size_t number = part->number();
  std::unique_lock lock(mutex_);
  finished_.emplace(number, std::move(part));
  if (turn_ != number) return;
  while (auto next = finished_.extract(turn_)) {
    lock.unlock();
    next.mapped()->flushToWhole();
    lock.lock();
    idle_.push_back(std::move(next.mapped()));
    ++turn_;
    moved_.notify_all();
  }
}

}  // namespace

void inTurn(Session& whole, std::size_t count, const std::function<void(Session& part, std::size_t number)>& act) {
  constexpr std::size_t partsAhead = 16;  // for each thread; small parts finish in bursts
  const std::size_t threads = std::min<std::size_t>(std::thread::hardware_concurrency(), count);
  if (threads <= 1) {
    for (std::size_t i = 0; i < count; ++i) act(whole, i);
    return;
  }
  Turns turns(whole, count, threads * partsAhead);
  const auto work = [&]() noexcept {
    while (auto part = turns.take()) {
      act(*part, part->number());
      turns.finish(std::move(part));
    }
  };
  std::vector<std::jthread> others;
  try {
    for (std::size_t i = 1; i < threads; ++i) others.emplace_back(work);
  } catch (const std::system_error&) {
    // No more threads are available: the existing ones do all the work.
  }
  work();
}

}  // namespace VelkTool
