// Ctrl-C in the middle of a conversion: rib2zel stops between two statements,
// says so, exits with 130, and the scene file holds whole records only. And
// every other way a conversion ends early leaves whole records too.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
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

// The operations of a scene file that must end on a whole record.
std::vector<std::string> wholeOps(const fs::path& scene) {
  const std::string text = readFile(scene);
  EXPECT_EQ(text.empty() ? '\0' : text.back(), '\n');
  std::vector<std::string> ops;
  EXPECT_NO_THROW(ops = sceneops(text));
  return ops;
}

}  // namespace

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
  EXPECT_EQ(r.status, 130);
  EXPECT_EQ(r.errLines, std::vector<std::string>{"Conversion cancelled."});
  const std::vector<std::string> ops = wholeOps(scene);
  EXPECT_EQ(ops.empty() ? "" : ops.back(), "SphereV");
}

TEST(Rib2zelWaysOut, EachEndsOnAWholeRecord) {
  scratchdir dir;
  std::string spheres = "WorldBegin\n";
  for (int i = 0; i < 1000; ++i) spheres += kStatement;
  std::string big = spheres;
  for (int i = 0; i < 400000; ++i) big += kStatement;
  // 65,535 vertices as binary floats: the parser holds 0.8 MB, the record
  // needs more than 3 MB, which the data limit refuses inside RiPolygonV.
  std::string polygon = spheres + "Polygon \"P\" \xCB";
  const uint32_t floats = 3 * 65535;
  for (int shift : {24, 16, 8, 0}) polygon += static_cast<char>(floats >> shift & 0xFF);
  for (uint32_t i = 0; i < floats; ++i) polygon += std::string("\x00\x80\x00\x00", 4);
  const std::string abort = spheres + "ErrorHandler \"abort\"\n";
  const std::string scene = dir.file("out.zel").string();
  const struct {
    std::string rib;  // or, when empty, /dev/zero: one endless token
    int signal;
    std::pair<rlim_t, rlim_t> limits;  // file size, data
    std::string output;
    int status;
    std::string errLine;  // the one line on standard error
  } ways[] = {
      {big, SIGTERM, {}, scene, 128 + SIGTERM, "Conversion cancelled."},
      {big, SIGHUP, {}, scene, 128 + SIGHUP, "Conversion cancelled."},
      {big, SIGINT, {}, scene, 128 + SIGINT, "Conversion cancelled."},
      {"", SIGTERM, {}, scene, 128 + SIGTERM, "Conversion cancelled."},
      {abort + "Bogus\n" + kStatement,
       0,
       {},
       scene,
       128 + SIGABRT,
       "RIB error: undefined RIB request at line 1002 'Bogus'"},
      {abort + "Orientation \"sideways\"\n" + kStatement,
       0,
       {},
       scene,
       128 + SIGABRT,
       "error: Invalid token for request. undeclared token \"sideways\""},
#ifndef __SANITIZE_ADDRESS__  // which reserves far more than the limit
      {polygon,
       0,
       {0, 6 << 20},
       scene,
       128 + SIGABRT,
       "severe error: Out of memory. RiPolygonV: free store exhausted"},
#endif
      {big,
       0,
       {256 << 10, 0},
       scene,
       2,
       "ZEL severe error: cannot write the scene file \"" + scene + "\": File too large"},
      {big,
       0,
       {},
       "/dev/full",
       2,
       "ZEL severe error: cannot write the scene file \"/dev/full\": No space left on device"},
  };
  for (const auto& way : ways) {
    SCOPED_TRACE(way.errLine);
    const fs::path in = way.rib.empty() ? "/dev/zero" : dir.write("in.rib", way.rib);
    rib2zelprocess p(dir, {in.string(), way.output}, "", false, way.limits.first,
                     way.limits.second);
    if (way.signal != 0) {
      if (way.rib.empty()) {
        std::this_thread::sleep_for(300ms);
      } else {
        ASSERT_TRUE(waitForRecords(scene));
      }
      kill(p.pid(), way.signal);
    }
    const runresult r = p.wait();
    EXPECT_EQ(r.status, way.status);
    EXPECT_EQ(r.errLines, std::vector<std::string>{way.errLine});
    if (way.output != scene) continue;
    const std::vector<std::string> ops = wholeOps(scene);
    // Cut back to the last whole line of what did fit.
    if (way.limits.first != 0) {
      EXPECT_LE(fs::file_size(scene), way.limits.first);
    }
    // Every record before the way out is kept, up to the point it was taken.
    const long spheres = std::count(ops.begin(), ops.end(), "SphereV");
    EXPECT_GE(spheres, way.rib.empty() ? 0 : way.signal ? 1 : 1000);
    // A signal stops between two statements, long before the end.
    if (way.signal != 0 && !way.rib.empty()) {
      EXPECT_EQ(ops.back(), "SphereV");
      EXPECT_LT(spheres, 400000);
    }
    fs::remove(scene);
  }
}
