#include "../../tool/InTurn.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

using VelkTool::Exit;
using VelkTool::Session;

/// Everything that was said, complaints in between.
class Transcript final : public Session {
 public:
  void write(std::string_view text) override { said += text; }
  void complain(std::string_view file, std::string_view what) override { ((said += file) += what) += '\n'; }
  void worsen(Exit exit) override { worst = std::max(worst, exit); }

  std::string said;
  Exit worst = Exit::Good;
};

constexpr std::size_t parts = 200;

/// Parts of very different length: some say nothing, some complain, one says more than is held back.
void speak(Session& session, std::size_t number) {
  const std::size_t lines = number == 20 ? 150'000 : number * 7919 % 1500;
  for (std::size_t i = 0; i < lines; ++i) session.write(std::to_string(number) + " says " + std::to_string(i) + '\n');
  if (number % 50 == 7) session.complain("part " + std::to_string(number), ": complains");
  if (number % 3 == 0) session.write("last words\n");
  if (number == 33) session.worsen(Exit::NoAccess);
  if (number == 150) session.worsen(Exit::Findings);
}

TEST(InTurn, PartsSpeakInOrderWhateverTheyTake) {
  Transcript expected;
  for (std::size_t i = 0; i < parts; ++i) speak(expected, i);
  Transcript transcript;
  std::atomic<int> done = 0;
  inTurn(transcript, parts, [&](Session& part, std::size_t number) {
    if (number % 16 == 0) std::this_thread::sleep_for(std::chrono::milliseconds(2));  // the others run ahead
    speak(part, number);
    ++done;
  });
  EXPECT_EQ(done, parts);
  EXPECT_TRUE(transcript.said == expected.said);  // too long to be shown
  EXPECT_EQ(transcript.worst, Exit::NoAccess);
}

TEST(InTurn, FewOrNoParts) {
  for (const std::size_t count : {0U, 1U, 2U}) {
    Transcript transcript;
    inTurn(transcript, count, [](Session& part, std::size_t number) { part.write(std::to_string(number)); });
    EXPECT_EQ(transcript.said, std::string("01").substr(0, count));
  }
}

}  // namespace
