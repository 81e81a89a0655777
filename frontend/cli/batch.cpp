#include "frontend/cli/batch.h"

#include <fcntl.h>
#include <poll.h>
#include <sched.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "frontend/cli/batchplan.h"
#include "frontend/cli/batchprocess.h"
#include "frontend/cli/batchsummary.h"
#include "frontend/cli/exitstatus.h"
#include "frontend/cli/progressline.h"

namespace fs = std::filesystem;

namespace {

constexpr int kPollMilliseconds = 250;  // how often the progress line may move
// This very program, even when its file has been replaced or removed since it started.
constexpr const char* kSelf = "/proc/self/exe";

// The first stop signal decides the exit status; every one that comes is
// passed on to the running conversions, so a second Ctrl-C ends them at once
// as it would a single conversion.
volatile std::sig_atomic_t gStopSignal = 0;
volatile std::sig_atomic_t gLastSignal = 0;
volatile std::sig_atomic_t gSignals = 0;
int gWakeFd = -1;  // written by the handler so that poll() returns

void onStop(int signal) {
  if (gStopSignal == 0) gStopSignal = signal;
  gLastSignal = signal;
  gSignals = gSignals + 1;
  int saved = errno;
  [[maybe_unused]] ssize_t n = write(gWakeFd, "", 1);
  errno = saved;
}

// Returns the read end of the pipe that the handler writes to, or -1.
int catchStopSignals() {
  int fds[2];
  if (pipe2(fds, O_CLOEXEC | O_NONBLOCK) != 0) return -1;
  gWakeFd = fds[1];
  struct sigaction sa {};
  sa.sa_handler = onStop;
  sigemptyset(&sa.sa_mask);
  for (int s : {SIGINT, SIGTERM, SIGHUP}) sigaddset(&sa.sa_mask, s);
  for (int s : {SIGINT, SIGTERM, SIGHUP}) sigaction(s, &sa, nullptr);
  return fds[0];
}

void writeAll(const std::string& text) {
  const char* p = text.data();
  size_t left = text.size();
  while (left > 0) {
    ssize_t n = write(STDERR_FILENO, p, left);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return;
    p += n;
    left -= static_cast<size_t>(n);
  }
}

int32_t defaultJobs() {
  cpu_set_t cpus;
  if (sched_getaffinity(0, sizeof cpus, &cpus) == 0 && CPU_COUNT(&cpus) > 0) {
    return CPU_COUNT(&cpus);
  }
  long n = sysconf(_SC_NPROCESSORS_ONLN);
  return n > 0 ? static_cast<int32_t>(n) : 1;
}

class batchrun {
 public:
  batchrun(const options& o, const std::vector<batchjob>& jobs, int wakeFd)
      : options_(o),
        jobs_(jobs),
        outcomes_(jobs.size(), batchoutcome::notstarted),
        wakeFd_(wakeFd),
        progress_(isatty(STDERR_FILENO) == 1, writeAll, progressline::clock::now()) {}

  void run() {
    size_t width = static_cast<size_t>(options_.jobs > 0 ? options_.jobs : defaultJobs());
    for (;;) {
      while (gStopSignal == 0 && running_.size() < width && next_ < jobs_.size()) start(next_++);
      if (running_.empty()) break;
      waitForOutput();
      passSignalsOn();
      progress_.update(progressline::clock::now(), [this](double seconds) {
        return batchprogresstext(done_, jobs_.size(), bytesDone_, seconds);
      });
    }
    progress_.erase();
  }

  const std::vector<batchoutcome>& outcomes() const { return outcomes_; }

 private:
  // One line of a file's messages, in a single write so lines never mix.
  void printLine(const std::string& path, const std::string& line) {
    progress_.erase();
    writeAll(path + ": " + line + "\n");
  }

  struct child {
    size_t job;
    std::unique_ptr<batchprocess> process;
  };

  void start(size_t job) {
    const batchjob& j = jobs_[job];
    std::error_code ec;
    fs::path folder = fs::path(j.output).parent_path();
    if (!folder.empty()) fs::create_directories(folder, ec);
    if (ec) {
      printLine(j.input,
                "rib2zel: Unable to create folder \"" + folder.string() + "\": " + ec.message());
      return ended(job, batchoutcome::failed);
    }
    // -q: the summary takes the place of each file's status line.
    std::vector<std::string> args = {"-q"};
    args.insert(args.end(), options_.fileOptions.begin(), options_.fileOptions.end());
    args.insert(args.end(), {"--", j.input, j.output});
    auto process = std::make_unique<batchprocess>();
    std::string problem;
    if (!process->start(kSelf, args, problem)) {
      printLine(j.input, "rib2zel: Unable to start a conversion: " + problem);
      return ended(job, batchoutcome::failed);
    }
    running_.push_back({job, std::move(process)});
  }

  void ended(size_t job, batchoutcome outcome) {
    outcomes_[job] = outcome;
    ++done_;
    bytesDone_ += jobs_[job].bytes;
  }

  void waitForOutput() {
    std::vector<pollfd> fds;
    fds.push_back({wakeFd_, POLLIN, 0});
    for (const child& c : running_) fds.push_back({c.process->fd(), POLLIN, 0});
    if (poll(fds.data(), fds.size(), kPollMilliseconds) <= 0) return;
    char drain[64];
    while (wakeFd_ >= 0 && read(wakeFd_, drain, sizeof drain) > 0) {
    }
    // Backwards, so that a child that ends can be taken out in place.
    for (size_t i = running_.size(); i-- > 0;) {
      if (fds[i + 1].revents != 0) serve(i);
    }
  }

  // Passes on what the child wrote; at its end, takes its outcome.
  void serve(size_t i) {
    child& c = running_[i];
    const std::string& path = jobs_[c.job].input;
    if (c.process->read([&](const std::string& line) { printLine(path, line); })) return;
    int status = c.process->wait();
    report(path, status);
    ended(c.job, outcomeofwait(status));
    running_.erase(running_.begin() + static_cast<std::ptrdiff_t>(i));
  }

  // A conversion that ended by a signal other than a stop had no chance to tell.
  void report(const std::string& path, int status) {
    if (!WIFSIGNALED(status) || outcomeofwait(status) == batchoutcome::interrupted) return;
    printLine(path, "rib2zel: The conversion ended by signal " + std::to_string(WTERMSIG(status)) +
                        " (" + strsignal(WTERMSIG(status)) + ")");
  }

  void passSignalsOn() {
    while (passed_ < gSignals) {
      ++passed_;
      for (const child& c : running_) kill(c.process->pid(), gLastSignal);
    }
  }

  const options& options_;
  const std::vector<batchjob>& jobs_;
  std::vector<batchoutcome> outcomes_;
  int wakeFd_;
  progressline progress_;
  std::vector<child> running_;
  size_t next_ = 0;
  size_t done_ = 0;
  uint64_t bytesDone_ = 0;
  std::sig_atomic_t passed_ = 0;
};

void printProblem(const std::string& text) {
  writeAll("rib2zel: " + text + "\n");
}

}  // namespace

int32_t runbatch(const options& o) {
  int wakeFd = catchStopSignals();
  std::vector<batchproblem> problems;
  std::vector<batchinput> inputs = findbatchinputs(o.inputs, problems);
  for (const batchproblem& p : problems) printProblem(p.message);
  batchplan plan = planbatch(inputs, o.outputDir);
  if (!plan.clashes.empty()) {
    for (const std::string& clash : plan.clashes) printProblem(clash);
    printProblem("nothing was converted: each scene file must come from one RIB file");
    return kExitFailed;
  }
  if (plan.jobs.empty()) {
    printProblem("no RIB file to convert");
    return kExitFailed;
  }
  batchrun run(o, plan.jobs, wakeFd);
  run.run();
  batchsummary summary;
  for (const batchproblem& p : problems) {
    if (p.failed) summary.add(p.path, batchoutcome::failed);
  }
  for (size_t i = 0; i < plan.jobs.size(); ++i) summary.add(plan.jobs[i].input, run.outcomes()[i]);
  if (!o.quiet) {
    for (const std::string& line : summary.lines()) writeAll(line + "\n");
  }
  return summary.exitstatus(gStopSignal);
}
