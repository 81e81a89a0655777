#include "frontend/cli/batchsummary.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <csignal>

TEST(Batchsummary, TakesTheOutcomeFromTheWaitStatus) {
  const struct {
    int status;
    batchoutcome outcome;
  } cases[] = {
      {W_EXITCODE(0, 0), batchoutcome::success},
      {W_EXITCODE(1, 0), batchoutcome::messages},
      {W_EXITCODE(2, 0), batchoutcome::failed},
      {W_EXITCODE(127, 0), batchoutcome::failed},
      {W_EXITCODE(130, 0), batchoutcome::interrupted},
      {W_EXITCODE(143, 0), batchoutcome::interrupted},
      {W_EXITCODE(134, 0), batchoutcome::failed},
      {W_EXITCODE(0, SIGINT), batchoutcome::interrupted},
      {W_EXITCODE(0, SIGHUP), batchoutcome::interrupted},
      {W_EXITCODE(0, SIGABRT), batchoutcome::failed},
  };
  for (const auto& c : cases) EXPECT_EQ(outcomeofwait(c.status), c.outcome) << c.status;
}

// The batch end to end exits with 0, 1, 2 and 128 + the signal for the worst
// of its outcomes; a conversion interrupted without a stop signal for the
// batch is only seen here.
TEST(Batchsummary, AnInterruptionWithoutAStopSignalIsAFailure) {
  batchsummary s;
  s.add("f", batchoutcome::interrupted);
  s.add("g", batchoutcome::success);
  EXPECT_EQ(s.exitstatus(0), 2);
}
