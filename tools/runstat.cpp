// runstat: runs one command and prints its wall time in seconds, its peak
// resident memory in KB, its exit status and its CPU time in seconds (user
// and system: on a shared machine the wall time also holds others' work) on
// one line, for the benchmark.
// A small C++ parent keeps the measured peak honest: a child's peak includes
// the memory of the parent it was forked from, until its exec.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <time.h>

#include <cerrno>
#include <cstdio>

extern char** environ;

namespace {

double now() {
  timespec t;
  clock_gettime(CLOCK_MONOTONIC, &t);
  return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) / 1e9;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs(
        "Usage: runstat ERRFILE COMMAND [ARG...]\n"
        "Runs COMMAND with its output discarded and its standard error in ERRFILE, and\n"
        "prints: wall-seconds peak-resident-KB exit-status cpu-seconds (user + system)\n",
        stderr);
    return 2;
  }
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_addopen(&actions, 1, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&actions, 2, argv[1], O_WRONLY | O_CREAT | O_TRUNC, 0644);

  double start = now();
  pid_t pid;
  int failed = posix_spawnp(&pid, argv[2], &actions, nullptr, argv + 2, environ);
  posix_spawn_file_actions_destroy(&actions);
  if (failed != 0) {
    std::fprintf(stderr, "runstat: cannot run '%s'\n", argv[2]);
    return 2;
  }
  int status = 0;
  rusage usage{};
  while (wait4(pid, &status, 0, &usage) < 0) {
    if (errno != EINTR) {
      std::perror("runstat: wait4");
      return 2;
    }
  }
  double seconds = now() - start;
  int exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  const double cpu = static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                     static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e6;
  std::printf("%.4f %ld %d %.4f\n", seconds, static_cast<long>(usage.ru_maxrss), exitStatus, cpu);
  return 0;
}
