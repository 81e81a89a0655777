#include "tests/frontend/runner.h"

namespace {

childrequest rib2zelrequest(const scratchdir& dir, const std::vector<std::string>& args,
                            const std::string& stdinPath, bool stdinPipe, rlim_t fileSize,
                            rlim_t data) {
  childrequest request{
      {RIB2ZEL_PATH}, stdinPath, dir.file("stdout.txt"), dir.file("stderr.txt"), stdinPipe, false,
      fileSize,       data};
  request.argv.insert(request.argv.end(), args.begin(), args.end());
  return request;
}

}  // namespace

rib2zelprocess::rib2zelprocess(const scratchdir& dir, const std::vector<std::string>& args,
                               const std::string& stdinPath, bool stdinPipe, rlim_t fileSizeLimit,
                               rlim_t dataLimit)
    : outPath_(dir.file("stdout.txt")),
      errPath_(dir.file("stderr.txt")),
      child_(rib2zelrequest(dir, args, stdinPath, stdinPipe, fileSizeLimit, dataLimit)) {}

runresult rib2zelprocess::wait() {
  runresult r;
  r.status = child_.wait();
  r.out = readFile(outPath_);
  r.err = readFile(errPath_);
  r.errLines = splitLines(r.err);
  return r;
}

runresult runrib2zel(const scratchdir& dir, const std::vector<std::string>& args,
                     const std::string* stdinData) {
  std::string stdinPath;
  if (stdinData) stdinPath = dir.write("stdin.rib", *stdinData).string();
  return rib2zelprocess(dir, args, stdinPath).wait();
}
