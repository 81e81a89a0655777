// End-to-end: rib2zel --output-dir on folders and files, run as the user
// would, checking the scene files, standard error and the exit status.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include "tests/frontend/runner.h"
#include "tests/frontend/testdata.h"

namespace {

using lines = std::vector<std::string>;

const std::string kGood = "Format 640 480 1\nWorldBegin\nSphere 1 -1 1 360\nWorldEnd\n";
const std::string kBad = "WorldBegin\nBogus 1 2\nWorldEnd\n";
const std::string kHider = "Hider \"x\"\n";

// The shot folder: a/ holds two frames, b/ a compressed one, an Ri-layer
// message and a file that is not RIB.
void makeShot(const scratchdir& dir) {
  fs::create_directories(dir.file("shot/a"));
  fs::create_directories(dir.file("shot/b"));
  dir.write("shot/a/f.0001.rib", kGood);
  dir.write("shot/a/f.0002.RIB", kBad);
  dir.write("shot/b/g.rib.gz", gzipped(kGood));
  dir.write("shot/b/h.rib", kHider);
  dir.write("shot/b/notes.txt", "not a scene");
}

// Relative paths in the tests are below the scratch folder.
class inside {
 public:
  explicit inside(const scratchdir& dir) : previous_(fs::current_path()) {
    fs::current_path(dir.path());
  }
  ~inside() { fs::current_path(previous_); }

 private:
  fs::path previous_;
};

lines sorted(lines l) {
  std::sort(l.begin(), l.end());
  return l;
}

}  // namespace

TEST(Rib2zelBatch, SummarisesMixedFilesWithTheirExitStatus) {
  scratchdir dir;
  inside here(dir);
  makeShot(dir);
  const std::string bogus = "shot/a/f.0002.RIB: RIB error: undefined RIB request at line 1 'Bogus'";
  const std::string hider =
      "shot/b/h.rib: error: Parameter out of range. RiHiderV: unknown hider type \"x\", using "
      "hidden";
  const std::string missing =
      "none.rib: rib2zel: Unable to open input file \"none.rib\": No such file or directory";
  const struct {
    lines args;
    int status;
    lines errLines;
  } cases[] = {
      {{"shot/b/g.rib.gz"},
       0,
       {"1 file: 1 \"Success.\", 0 with messages, 0 failed, 0 interrupted."}},
      {{"-j1", "shot"},
       1,
       {bogus, hider, "With messages: shot/a/f.0002.RIB",
        "4 files: 3 \"Success.\", 1 with messages, 0 failed, 0 interrupted."}},
      {{"--jobs", "4", "--strict", "shot", "none.rib"},
       2,
       {bogus, hider, missing, "With messages: shot/a/f.0002.RIB", "With messages: shot/b/h.rib",
        "Failed: none.rib", "5 files: 2 \"Success.\", 2 with messages, 1 failed, 0 interrupted."}},
      {{"-q", "shot/a/f.0002.RIB"}, 1, {bogus}},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.args.back());
    lines args = {"--output-dir", "out"};
    args.insert(args.end(), c.args.begin(), c.args.end());
    runresult r = runrib2zel(dir, args);
    EXPECT_EQ(r.status, c.status);
    EXPECT_EQ(sorted(r.errLines), sorted(c.errLines));
  }
}

// Folders are mirrored below the output folder, and every scene file is the
// one a conversion of its file alone writes, whatever the number of jobs.
TEST(Rib2zelBatch, MirrorsFoldersAndWritesWhatSingleConversionsWrite) {
  scratchdir dir;
  makeShot(dir);
  inside here(dir);
  const struct {
    const char* rib;
    const char* scene;
  } files[] = {{"a/f.0001.rib", "a/f.0001.zel"},
               {"a/f.0002.RIB", "a/f.0002.zel"},
               {"b/g.rib.gz", "b/g.zel"},
               {"b/h.rib", "b/h.zel"}};
  for (const std::string jobs : {"1", "4"}) {
    runresult r = runrib2zel(dir, {"-j", jobs, "--output-dir", "out" + jobs, "shot"});
    EXPECT_EQ(r.status, 1);
    for (const auto& f : files) {
      runrib2zel(dir, {"shot/" + std::string(f.rib), "single.zel"});
      EXPECT_EQ(readFile("out" + jobs + "/" + f.scene), readFile("single.zel")) << f.scene;
    }
    EXPECT_EQ(std::distance(fs::recursive_directory_iterator("out" + jobs), {}), 6);
  }
}

TEST(Rib2zelBatch, RefusesWhatCannotBeConverted) {
  scratchdir dir;
  inside here(dir);
  makeShot(dir);
  dir.write("shot/a/f.0001.RIB", kGood);
  dir.write("file", "");
  fs::create_directories(dir.file("empty"));
  const std::string clash =
      "rib2zel: \"shot/a/f.0001.RIB\" and \"shot/a/f.0001.rib\" would both write";
  const struct {
    lines args;
    lines errLines;
  } cases[] = {
      {{"--output-dir", "out", "shot"},
       {clash + " \"out/a/f.0001.zel\"",
        "rib2zel: nothing was converted: each scene file must come from one RIB file"}},
      {{"--output-dir", "out", "empty"},
       {"rib2zel: No *.rib, *.RIB or *.rib.gz file in the folder \"empty\"",
        "rib2zel: no RIB file to convert"}},
      {{"--output-dir", "file/out", "shot/b/h.rib"},
       {"shot/b/h.rib: rib2zel: Unable to create folder \"file/out\": Not a directory",
        "Failed: shot/b/h.rib",
        "1 file: 0 \"Success.\", 0 with messages, 1 failed, 0 interrupted."}},
  };
  for (const auto& c : cases) {
    runresult r = runrib2zel(dir, c.args);
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.errLines, c.errLines);
  }
  EXPECT_FALSE(fs::exists(dir.file("out")));
}

// A stop signal ends the running conversions between two requests and starts
// no new one. The first two inputs are pipes that never end, so the
// conversions are surely running when it comes.
TEST(Rib2zelBatch, StopsEveryConversionOnASignal) {
  scratchdir dir;
  inside here(dir);
  dir.write("c.rib", kGood);
  dir.write("d.rib", kGood);
  for (const char* fifo : {"a.rib", "b.rib"}) ASSERT_EQ(mkfifo(fifo, 0600), 0);
  // Read and write: the pipe is open for the child at once and never ends.
  int a = open("a.rib", O_RDWR), b = open("b.rib", O_RDWR);
  for (int fd : {a, b}) ASSERT_GT(write(fd, kGood.data(), 30), 0);
  for (int signal : {SIGINT, SIGTERM}) {
    rib2zelprocess p(dir, {"-j2", "--output-dir", "out", "a.rib", "b.rib", "c.rib", "d.rib"});
    for (int i = 0; i < 20000 && !(fs::exists("out/a.zel") && fs::exists("out/b.zel")); ++i) {
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    kill(p.pid(), signal);
    runresult r = p.wait();
    EXPECT_EQ(r.status, 128 + signal);
    EXPECT_EQ(r.errLines.back(),
              "4 files: 0 \"Success.\", 0 with messages, 0 failed, 2 interrupted, 2 not started.");
    EXPECT_FALSE(fs::exists("out/c.zel"));
    if (signal != SIGINT) continue;
    EXPECT_EQ(sorted(r.errLines),
              sorted({"a.rib: Conversion cancelled.", "b.rib: Conversion cancelled.",
                      "Interrupted: a.rib", "Interrupted: b.rib", r.errLines.back()}));
    for (const char* scene : {"out/a.zel", "out/b.zel"}) {
      EXPECT_NO_THROW(sceneops(readFile(scene))) << scene;
    }
    fs::remove_all("out");
  }
  close(a);
  close(b);
}
