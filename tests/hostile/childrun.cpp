#include "tests/hostile/childrun.h"

#include <unistd.h>

#include <cerrno>
#include <thread>

#include "tests/support/childprocess.h"

namespace {

constexpr size_t kChunk = 1 << 16;
constexpr size_t kKeptLines = 50;

// Reads the child's standard error to its end, keeping its first lines and its last.
void collectLines(int fd, childresult& r) {
  std::string partial;
  char buf[kChunk];
  auto take = [&r](std::string line) {
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
  buffer_.clear();
}

childresult runchild(const childoptions& options) {
  childrequest request{{RIB2ZEL_PATH}, "", options.stdoutPath, "", true, true};
  request.argv.insert(request.argv.end(), options.args.begin(), options.args.end());
  childprocess child(request);
  childresult r;
  std::thread writer([&] {
    {
      feeder f(child.stdinFd());
      if (options.input) options.input(f);
      f.flush();
    }
    child.closeStdin();
  });
  collectLines(child.stderrFd(), r);
  writer.join();
  r.status = child.wait();
  return r;
}
