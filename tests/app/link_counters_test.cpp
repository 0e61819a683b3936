#include <gtest/gtest.h>

#include "app/LinkCounters.h"
#include "support/VirtualClock.h"

namespace zelorgas {
namespace {

using std::chrono::milliseconds;

TEST(LinkCounters, CountsAnExchangeOnceAndByItsResult) {
  VirtualClock clock;
  LinkCounters counters(clock);
  for (const ModbusResult result :
       {ModbusResult::kOk, ModbusResult::kTimeOut, ModbusResult::kReadError, ModbusResult::kOk}) {
    counters.CountFrame({FrameTrace::Direction::kSent, clock.Now(), {}});
    counters.CountFrame({FrameTrace::Direction::kReceived, clock.Now(), {}, result});
    EXPECT_EQ(counters.Quality().answering, result == ModbusResult::kOk);
  }
  EXPECT_EQ(counters.Quality().transactions, 4U);
  EXPECT_EQ(counters.Quality().failures, 2U);
  counters.Reset();
  EXPECT_EQ(counters.Quality().transactions + counters.Quality().failures, 0U);
}

TEST(LinkCounters, AveragesRoundsOverTheLatestSeconds) {
  VirtualClock clock;
  LinkCounters counters(clock);
  counters.Reset();
  // Five a second from the start, also before the window is full; then the line stands still.
  for (int round = 1; round <= 50; ++round) {
    clock.Sleep(milliseconds{200});
    counters.CountRound();
    if (round % 10 == 0) {
      EXPECT_NEAR(counters.Quality().rounds_per_second, 5, 0.3) << round;
    }
  }
  clock.Sleep(LinkCounters::kWindow / 2);
  EXPECT_NEAR(counters.Quality().rounds_per_second, 2.5, 0.3);
  clock.Sleep(LinkCounters::kWindow / 2);
  EXPECT_EQ(counters.Quality().rounds_per_second, 0);
}

}  // namespace
}  // namespace zelorgas
