// The end of a batch: how each file came out, the summary lines on standard
// error and the exit status.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

enum class batchoutcome { success, messages, failed, interrupted, notstarted };

// The outcome of a conversion process from its wait status. The exit
// statuses are the single-file ones; a process that a stop signal ended, or
// that exited with 128 + such a signal, was interrupted.
batchoutcome outcomeofwait(int waitStatus);

class batchsummary {
 public:
  void add(const std::string& path, batchoutcome outcome);

  // One line for each file not converted with "Success.", by kind, then the
  // line of counts.
  std::vector<std::string> lines() const;

  // 128 + stopSignal when the batch was stopped by one, else 2 when anything
  // failed (or was interrupted on its own), else 1 for messages, else 0.
  int32_t exitstatus(int stopSignal) const;

 private:
  struct entry {
    std::string path;
    batchoutcome outcome;
  };
  int32_t count(batchoutcome outcome) const;

  std::vector<entry> entries_;
};
