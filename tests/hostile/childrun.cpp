#include "tests/hostile/childrun.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <thread>

namespace {

constexpr size_t kChunk = 1 << 16;
constexpr size_t kKeptLines = 50;

// Everything the child needs is built before fork: only async-signal-safe
// calls come between fork and exec.
[[noreturn]] void execChild(char* const* argv, int in, int out, int err,
                            const childoptions& options) {
  dup2(in, STDIN_FILENO);
  dup2(out, STDOUT_FILENO);
  dup2(err, STDERR_FILENO);
  if (options.fileSizeLimit != 0) {
    rlimit limit{options.fileSizeLimit, options.fileSizeLimit};
    setrlimit(RLIMIT_FSIZE, &limit);
    // Without this the write beyond the limit kills the process instead of
    // failing.
    signal(SIGXFSZ, SIG_IGN);
  }
  if (options.dataLimit != 0) {
    rlimit limit{options.dataLimit, options.dataLimit};
    setrlimit(RLIMIT_DATA, &limit);
  }
  execv(argv[0], argv);
  _exit(127);
}

// Reads the child's standard error to its end, counting lines and keeping some.
void collectLines(int fd, childresult& r) {
  std::string partial;
  char buf[kChunk];
  auto take = [&r](std::string line) {
    ++r.errLineCount;
    if (r.errLines.size() < kKeptLines) {
      r.errLines.push_back(std::move(line));
    } else {
      r.errLines.back() = std::move(line);
    }
  };
  for (;;) {
    ssize_t n = read(fd, buf, sizeof buf);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) break;
    size_t start = 0;
    for (size_t i = 0; i < static_cast<size_t>(n); ++i) {
      if (buf[i] != '\n') continue;
      partial.append(buf + start, i - start);
      take(std::move(partial));
      partial.clear();
      start = i + 1;
    }
    partial.append(buf + start, n - start);
  }
  if (!partial.empty()) take(std::move(partial));
}

// The sanitizer build keeps freed blocks aside for a while (its quarantine),
// which would count towards a child's peak as if the program held them; the
// children measure without it. Other programs ignore the variable.
void setChildSanitizerOptions() {
  static const bool done = [] {
    const char* given = std::getenv("ASAN_OPTIONS");
    std::string options = given && *given ? std::string(given) + ":" : "";
    setenv("ASAN_OPTIONS", (options + "quarantine_size_mb=0").c_str(), 1);
    return true;
  }();
  (void)done;
}

}  // namespace

feeder& feeder::operator<<(const std::string& s) {
  buffer_ += s;
  if (buffer_.size() >= kChunk) flush();
  return *this;
}

feeder& feeder::operator<<(const char* s) {
  return *this << std::string(s);
}

void feeder::repeat(const std::string& s, uint64_t times) {
  for (uint64_t i = 0; i < times; ++i) {
    buffer_ += s;
    if (buffer_.size() >= kChunk) flush();
  }
}

void feeder::flush() {
  size_t done = 0;
  while (!broken_ && done < buffer_.size()) {
    ssize_t n = write(fd_, buffer_.data() + done, buffer_.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) {
      broken_ = true;
      break;
    }
    done += static_cast<size_t>(n);
  }
  written_ += done;
  buffer_.clear();
}

childresult runchild(const childoptions& options) {
  // A child that stops reading early must not kill the test with SIGPIPE.
  signal(SIGPIPE, SIG_IGN);
  setChildSanitizerOptions();
  std::vector<std::string> words{RIB2ZEL_PATH};
  words.insert(words.end(), options.args.begin(), options.args.end());
  std::vector<char*> argv;
  for (std::string& w : words) argv.push_back(w.data());
  argv.push_back(nullptr);

  int in[2], err[2];
  if (pipe2(in, O_CLOEXEC) != 0 || pipe2(err, O_CLOEXEC) != 0) throw std::runtime_error("pipe");
  int out = open(options.stdoutPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0644);
  if (out < 0) throw std::runtime_error("cannot open " + options.stdoutPath);
  pid_t pid = fork();
  if (pid < 0) throw std::runtime_error("fork");
  if (pid == 0) execChild(argv.data(), in[0], out, err[1], options);
  close(in[0]);
  close(err[1]);
  close(out);

  childresult r;
  std::thread writer([&] {
    {
      feeder f(in[1]);
      if (options.input) options.input(f);
      f.flush();
      r.inputBytes = f.written();
    }
    close(in[1]);
  });
  collectLines(err[0], r);
  writer.join();
  close(err[0]);

  int status = 0;
  rusage usage{};
  while (wait4(pid, &status, 0, &usage) < 0 && errno == EINTR) {
  }
  r.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  r.peakKB = usage.ru_maxrss;
  r.cpuSeconds = usage.ru_utime.tv_sec + usage.ru_stime.tv_sec +
                 (usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
  return r;
}

long baselinePeakKB() {
  static const long peak = runchild({{"--parse-only", "-"}, nullptr}).peakKB;
  return peak;
}
