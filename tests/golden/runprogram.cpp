#include "tests/golden/runprogram.h"

#include <errno.h>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

namespace golden {

namespace {

void redirect(posix_spawn_file_actions_t* actions, int fd, const std::string& path, int flags) {
  const char* name = path.empty() ? "/dev/null" : path.c_str();
  posix_spawn_file_actions_addopen(actions, fd, name, flags, 0644);
}

}  // namespace

int runProgram(const ProgramRun& run) {
  std::vector<char*> argv;
  for (const std::string& a : run.argv) argv.push_back(const_cast<char*>(a.c_str()));
  argv.push_back(nullptr);

  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  redirect(&actions, 0, run.stdinPath, O_RDONLY);
  redirect(&actions, 1, run.stdoutPath, O_WRONLY | O_CREAT | O_TRUNC);
  redirect(&actions, 2, run.stderrPath, O_WRONLY | O_CREAT | O_TRUNC);
  pid_t pid;
  int started = posix_spawn(&pid, argv[0], &actions, nullptr, argv.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (started != 0) return -1;

  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) return -1;
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::string readFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

bool fileExists(const std::string& path) {
  return std::ifstream(path).good();
}

}  // namespace golden
