#include "frontend/cli/batchprocess.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>

#include "frontend/cli/exitstatus.h"

extern char** environ;

namespace {

// A line longer than this is handed over in pieces rather than held back.
constexpr size_t kMaxLine = 64 * 1024;

// Signals that the parent catches, and the children must meet as they would
// from a shell.
void setSpawnAttributes(posix_spawnattr_t& attr) {
  sigset_t defaults;
  sigemptyset(&defaults);
  for (int s : {SIGINT, SIGTERM, SIGHUP, SIGPIPE}) sigaddset(&defaults, s);
  sigset_t none;
  sigemptyset(&none);
  posix_spawnattr_setsigdefault(&attr, &defaults);
  posix_spawnattr_setsigmask(&attr, &none);
  posix_spawnattr_setpgroup(&attr, 0);
  posix_spawnattr_setflags(&attr,
                           POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
}

}  // namespace

batchprocess::~batchprocess() {
  if (fd_ >= 0) close(fd_);
  if (pid_ > 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
}

bool batchprocess::start(const std::string& program, const std::vector<std::string>& args,
                         std::string& problem) {
  int fds[2];
  if (pipe2(fds, O_CLOEXEC) != 0) {
    problem = std::strerror(errno);
    return false;
  }
  std::vector<std::string> words = args;
  words.insert(words.begin(), program);
  std::vector<char*> argv;
  for (std::string& w : words) argv.push_back(w.data());
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_adddup2(&actions, fds[1], STDERR_FILENO);
  posix_spawnattr_t attr;
  posix_spawnattr_init(&attr);
  setSpawnAttributes(attr);
  int error = posix_spawn(&pid_, program.c_str(), &actions, &attr, argv.data(), environ);
  posix_spawnattr_destroy(&attr);
  posix_spawn_file_actions_destroy(&actions);
  close(fds[1]);
  if (error != 0) {
    close(fds[0]);
    pid_ = -1;
    problem = std::strerror(error);
    return false;
  }
  fd_ = fds[0];
  return true;
}

bool batchprocess::read(const linesink& sink) {
  char buffer[16384];
  ssize_t n = ::read(fd_, buffer, sizeof buffer);
  if (n < 0 && (errno == EINTR || errno == EAGAIN)) return true;
  if (n <= 0) {
    if (!pending_.empty()) sink(pending_);
    pending_.clear();
    close(fd_);
    fd_ = -1;
    return false;
  }
  pending_.append(buffer, static_cast<size_t>(n));
  size_t start = 0;
  for (size_t end; (end = pending_.find('\n', start)) != std::string::npos; start = end + 1) {
    sink(pending_.substr(start, end - start));
  }
  pending_.erase(0, start);
  if (pending_.size() > kMaxLine) {
    sink(pending_);
    pending_.clear();
  }
  return true;
}

int batchprocess::wait() {
  int status = 0;
  pid_t got;
  while ((got = waitpid(pid_, &status, 0)) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  // A process that cannot be waited for gave no outcome: it counts as failed.
  return got < 0 ? W_EXITCODE(kExitFailed, 0) : status;
}
