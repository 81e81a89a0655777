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

TEST(Batchsummary, ExitsWithTheWorstOutcome) {
  const struct {
    std::vector<batchoutcome> outcomes;
    int stopSignal;
    int32_t status;
  } cases[] = {
      {{batchoutcome::success, batchoutcome::success}, 0, 0},
      {{batchoutcome::success, batchoutcome::messages}, 0, 1},
      {{batchoutcome::failed, batchoutcome::messages}, 0, 2},
      {{batchoutcome::interrupted, batchoutcome::success}, 0, 2},
      {{batchoutcome::interrupted, batchoutcome::notstarted}, SIGINT, 130},
  };
  for (const auto& c : cases) {
    batchsummary s;
    for (batchoutcome o : c.outcomes) s.add("f", o);
    EXPECT_EQ(s.exitstatus(c.stopSignal), c.status);
  }
}
