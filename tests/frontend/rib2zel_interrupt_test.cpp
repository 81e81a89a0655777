// Ctrl-C in the middle of a conversion: rib2zel stops between two statements,
// says so, exits with 130, and the scene file holds whole records only.
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <string>
#include <thread>

#include "tests/frontend/runner.h"
#include "tests/frontend/testdata.h"

namespace {

using namespace std::chrono_literals;

const std::string kStatement = "Sphere 1 -1 1 360\n";

// Waits until the scene file has grown past its header, that is, until the
// conversion is well under way.
bool waitForRecords(const fs::path& scene) {
  for (int i = 0; i < 20000; ++i) {
    std::error_code ec;
    if (fs::file_size(scene, ec) > 4096 && !ec) return true;
    std::this_thread::sleep_for(1ms);
  }
  return false;
}

void expectCancelled(const runresult& r, const fs::path& scene) {
  EXPECT_EQ(r.status, 130);
  EXPECT_EQ(r.errLines, std::vector<std::string>{"Conversion cancelled."});
  std::string text = readfile(scene);
  ASSERT_FALSE(text.empty());
  EXPECT_EQ(text.back(), '\n');
  std::vector<std::string> ops = sceneops(text);  // throws on a broken record
  EXPECT_GT(ops.size(), 1u);
  EXPECT_EQ(ops.back(), "SphereV");
}

}  // namespace

TEST(Rib2zelInterrupt, StopsALargeFileBetweenTwoStatements) {
  scratchdir dir;
  std::string rib = "WorldBegin\n";
  for (int i = 0; i < 400000; ++i) rib += kStatement;
  fs::path in = dir.write("big.rib", rib);
  fs::path scene = dir.file("big.zel");
  rib2zelprocess p(dir, {in.string(), scene.string()});
  ASSERT_TRUE(waitForRecords(scene));
  kill(p.pid(), SIGINT);
  runresult r = p.wait();
  expectCancelled(r, scene);
  EXPECT_LT(sceneops(readfile(scene)).size(), 400000u) << "finished before the interrupt";
}

TEST(Rib2zelInterrupt, StopsWhileStandardInputKeepsComing) {
  signal(SIGPIPE, SIG_IGN);
  scratchdir dir;
  fs::path scene = dir.file("piped.zel");
  rib2zelprocess p(dir, {"-", scene.string()}, "", true);
  std::atomic<bool> stop = false;
  int fd = p.stdinFd();
  std::thread writer([&] {
    std::string chunk;
    for (int i = 0; i < 100; ++i) chunk += kStatement;
    // Ends when the process is gone and the pipe has no reader (EPIPE).
    bool open = write(fd, "WorldBegin\n", 11) == 11;
    while (open && !stop) open = write(fd, chunk.data(), chunk.size()) > 0;
  });
  bool started = waitForRecords(scene);
  kill(p.pid(), SIGINT);
  runresult r = p.wait();
  stop = true;
  writer.join();
  ASSERT_TRUE(started);
  expectCancelled(r, scene);
}
