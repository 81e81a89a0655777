#include "tests/frontend/runner.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <utility>

std::string readfile(const fs::path& p) {
  std::ifstream in(p, std::ios::binary);
  std::stringstream s;
  s << in.rdbuf();
  return s.str();
}

std::vector<std::string> splitlines(const std::string& text) {
  std::vector<std::string> lines;
  size_t start = 0;
  while (start < text.size()) {
    size_t end = text.find('\n', start);
    if (end == std::string::npos) end = text.size();
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  return lines;
}

namespace {

// Only async-signal-safe calls between fork and exec: argv is built before.
[[noreturn]] void execChild(char* const* argv, int in, int out, int err, childlimits limits) {
  dup2(in, STDIN_FILENO);
  dup2(out, STDOUT_FILENO);
  dup2(err, STDERR_FILENO);
  const std::pair<int, rlim_t> wanted[] = {{RLIMIT_FSIZE, limits.fileSize},
                                           {RLIMIT_DATA, limits.data}};
  for (const auto& [resource, value] : wanted) {
    const rlimit limit{value, value};
    if (value != 0) setrlimit(resource, &limit);
  }
  execv(argv[0], argv);
  _exit(127);
}

int openOrThrow(const fs::path& p, int flags) {
  int fd = open(p.c_str(), flags | O_CLOEXEC, 0644);
  if (fd < 0) throw std::runtime_error("cannot open " + p.string());
  return fd;
}

}  // namespace

rib2zelprocess::rib2zelprocess(const scratchdir& dir, const std::vector<std::string>& args,
                               const std::string& stdinPath, bool stdinPipe, childlimits limits)
    : outPath_(dir.file("stdout.txt")), errPath_(dir.file("stderr.txt")) {
  int in = -1;
  if (stdinPipe) {
    int fds[2];
    if (pipe2(fds, O_CLOEXEC) != 0) throw std::runtime_error("pipe failed");
    in = fds[0];
    stdinFd_ = fds[1];
  } else {
    in = openOrThrow(stdinPath.empty() ? "/dev/null" : stdinPath, O_RDONLY);
  }
  int out = openOrThrow(outPath_, O_WRONLY | O_CREAT | O_TRUNC);
  int err = openOrThrow(errPath_, O_WRONLY | O_CREAT | O_TRUNC);
  std::vector<std::string> words = args;
  words.insert(words.begin(), RIB2ZEL_PATH);
  std::vector<char*> argv;
  for (auto& w : words) argv.push_back(w.data());
  argv.push_back(nullptr);
  pid_ = fork();
  if (pid_ == 0) execChild(argv.data(), in, out, err, limits);
  close(in);
  close(out);
  close(err);
  if (pid_ < 0) throw std::runtime_error("fork failed");
}

rib2zelprocess::~rib2zelprocess() {
  closeStdin();
  if (pid_ > 0) {
    kill(pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
  }
}

void rib2zelprocess::closeStdin() {
  if (stdinFd_ >= 0) close(stdinFd_);
  stdinFd_ = -1;
}

runresult rib2zelprocess::wait() {
  runresult r;
  int status = 0;
  waitpid(pid_, &status, 0);
  pid_ = -1;
  r.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  r.out = readfile(outPath_);
  r.err = readfile(errPath_);
  r.errLines = splitlines(r.err);
  return r;
}

runresult runrib2zel(const scratchdir& dir, const std::vector<std::string>& args,
                     const std::string* stdinData) {
  std::string stdinPath;
  if (stdinData) stdinPath = dir.write("stdin.rib", *stdinData).string();
  return rib2zelprocess(dir, args, stdinPath).wait();
}
