#include "tests/support/childprocess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <utility>

namespace {

// Only async-signal-safe calls between fork and exec: argv is built before.
[[noreturn]] void execChild(char* const* argv, const int (&fds)[3], rlim_t fileSize, rlim_t data) {
  for (int stream = 0; stream < 3; ++stream) dup2(fds[stream], stream);
  const std::pair<int, rlim_t> wanted[] = {{RLIMIT_FSIZE, fileSize}, {RLIMIT_DATA, data}};
  for (const auto& [resource, value] : wanted) {
    const rlimit limit{value, value};
    if (value != 0) setrlimit(resource, &limit);
  }
  execv(argv[0], argv);
  _exit(127);
}

int openOrThrow(const std::string& path, int flags) {
  const char* name = path.empty() ? "/dev/null" : path.c_str();
  int fd = open(name, flags | O_CLOEXEC, 0644);
  if (fd < 0) throw std::runtime_error(std::string("cannot open ") + name);
  return fd;
}

// Returns the child's end; the test's end goes to `mine`.
int pipeEnd(bool childReads, int& mine) {
  int fds[2];
  if (pipe2(fds, O_CLOEXEC) != 0) throw std::runtime_error("pipe failed");
  mine = fds[childReads ? 1 : 0];
  return fds[childReads ? 0 : 1];
}

}  // namespace

childprocess::childprocess(const childrequest& request) {
  // A child that stops reading early must not kill the test with SIGPIPE.
  signal(SIGPIPE, SIG_IGN);
  const int writeFlags = O_WRONLY | O_CREAT | O_TRUNC;
  const int fds[3] = {
      request.stdinPipe ? pipeEnd(true, stdinFd_) : openOrThrow(request.stdinPath, O_RDONLY),
      openOrThrow(request.stdoutPath, writeFlags),
      request.stderrPipe ? pipeEnd(false, stderrFd_) : openOrThrow(request.stderrPath, writeFlags)};
  std::vector<std::string> words = request.argv;
  std::vector<char*> argv;
  for (std::string& w : words) argv.push_back(w.data());
  argv.push_back(nullptr);
  pid_ = fork();
  if (pid_ == 0) execChild(argv.data(), fds, request.fileSizeLimit, request.dataLimit);
  for (int fd : fds) close(fd);
  if (pid_ < 0) throw std::runtime_error("fork failed");
}

childprocess::~childprocess() {
  closeStdin();
  if (stderrFd_ >= 0) close(stderrFd_);
  if (pid_ > 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
}

void childprocess::closeStdin() {
  if (stdinFd_ >= 0) close(stdinFd_);
  stdinFd_ = -1;
}

int childprocess::wait(rusage* usage) {
  int status = 0;
  rusage ignored{};
  while (wait4(pid_, &status, 0, usage ? usage : &ignored) < 0 && errno == EINTR) {
  }
  pid_ = -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

int runprogram(const childrequest& request) {
  return childprocess(request).wait();
}
