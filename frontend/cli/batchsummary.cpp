#include "frontend/cli/batchsummary.h"

#include <sys/wait.h>

#include <csignal>

#include "frontend/cli/exitstatus.h"

namespace {

bool isStopSignal(int signal) {
  return signal == SIGINT || signal == SIGTERM || signal == SIGHUP;
}

std::string plural(int32_t n, const char* one, const char* many) {
  return std::to_string(n) + " " + (n == 1 ? one : many);
}

}  // namespace

batchoutcome outcomeofwait(int waitStatus) {
  if (WIFSIGNALED(waitStatus)) {
    return isStopSignal(WTERMSIG(waitStatus)) ? batchoutcome::interrupted : batchoutcome::failed;
  }
  int status = WIFEXITED(waitStatus) ? WEXITSTATUS(waitStatus) : kExitFailed;
  if (status == kExitSuccess) return batchoutcome::success;
  if (status == kExitMessages) return batchoutcome::messages;
  if (status > kExitSignalBase && isStopSignal(status - kExitSignalBase)) {
    return batchoutcome::interrupted;
  }
  return batchoutcome::failed;
}

void batchsummary::add(const std::string& path, batchoutcome outcome) {
  entries_.push_back({path, outcome});
}

int32_t batchsummary::count(batchoutcome outcome) const {
  int32_t n = 0;
  for (const entry& e : entries_) n += e.outcome == outcome ? 1 : 0;
  return n;
}

std::vector<std::string> batchsummary::lines() const {
  const struct {
    batchoutcome outcome;
    const char* label;
  } kinds[] = {{batchoutcome::messages, "With messages: "},
               {batchoutcome::failed, "Failed: "},
               {batchoutcome::interrupted, "Interrupted: "}};
  std::vector<std::string> out;
  for (const auto& kind : kinds) {
    for (const entry& e : entries_) {
      if (e.outcome == kind.outcome) out.push_back(kind.label + e.path);
    }
  }
  std::string counts = plural(static_cast<int32_t>(entries_.size()), "file", "files") + ": " +
                       std::to_string(count(batchoutcome::success)) + " \"Success.\", " +
                       std::to_string(count(batchoutcome::messages)) + " with messages, " +
                       std::to_string(count(batchoutcome::failed)) + " failed, " +
                       std::to_string(count(batchoutcome::interrupted)) + " interrupted";
  int32_t notStarted = count(batchoutcome::notstarted);
  if (notStarted > 0) counts += ", " + std::to_string(notStarted) + " not started";
  out.push_back(counts + ".");
  return out;
}

int32_t batchsummary::exitstatus(int stopSignal) const {
  if (stopSignal != 0) return kExitSignalBase + stopSignal;
  if (count(batchoutcome::failed) > 0 || count(batchoutcome::interrupted) > 0) return kExitFailed;
  return count(batchoutcome::messages) > 0 ? kExitMessages : kExitSuccess;
}
