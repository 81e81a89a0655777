// Scanner throughput: scans a RIB file held in memory to its end, token by
// token, several times, and prints the median MB/s and tokens/s.
//
// Usage: scanner_bench FILE [RUNS]   (RUNS defaults to 3)
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

#include "rib/bytesource.h"
#include "rib/lexanrib.h"

namespace {

struct Run {
  double seconds;
  double cpu;
  uint64_t tokens;
  uint64_t errors;
};

uint64_t gReports = 0;

bool readFile(const char* path, std::vector<unsigned char>& out) {
  std::FILE* f = std::fopen(path, "rb");
  if (!f) return false;
  bool ok = std::fseek(f, 0, SEEK_END) == 0;
  long size = ok ? std::ftell(f) : -1;
  ok = size >= 0 && std::fseek(f, 0, SEEK_SET) == 0;
  if (ok) {
    out.resize(static_cast<size_t>(size));
    ok = std::fread(out.data(), 1, out.size(), f) == out.size();
  }
  std::fclose(f);
  return ok;
}

// CPU time of this process: on a shared machine it shows the scanner's own
// cost better than the wall clock does.
double cpuSeconds() {
  timespec t;
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
  return t.tv_sec + t.tv_nsec / 1e9;
}

Run scanOnce(const std::vector<unsigned char>& bytes) {
  memorybytesource source(bytes.data(), bytes.size());
  lexanrib lex(source);
  Run run{0, 0, 0, 0};
  double cpuStart = cpuSeconds();
  auto start = std::chrono::steady_clock::now();
  for (;;) {
    try {
      if (lex.next() == LEXEOF) break;
      ++run.tokens;
    } catch (const RIBException&) {
      ++run.errors;
    }
  }
  run.seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  run.cpu = cpuSeconds() - cpuStart;
  return run;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2 || argc > 3) {
    std::fprintf(stderr, "usage: %s FILE [RUNS]\n", argv[0]);
    return 2;
  }
  int runs = argc == 3 ? std::atoi(argv[2]) : 3;
  if (runs < 1) runs = 1;
  std::vector<unsigned char> bytes;
  if (!readFile(argv[1], bytes)) {
    std::fprintf(stderr, "%s: cannot read %s\n", argv[0], argv[1]);
    return 1;
  }
  lexanrib::RIBErrorPrinter = [](const char*) { ++gReports; };

  std::vector<Run> results;
  for (int i = 0; i < runs; ++i) results.push_back(scanOnce(bytes));
  std::sort(results.begin(), results.end(),
            [](const Run& a, const Run& b) { return a.seconds < b.seconds; });
  const Run& median = results[results.size() / 2];
  double mb = bytes.size() / 1e6;
  std::printf("%s: %.1f MB, %llu tokens, %llu scan errors, %llu reports\n", argv[1], mb,
              static_cast<unsigned long long>(median.tokens),
              static_cast<unsigned long long>(median.errors),
              static_cast<unsigned long long>(gReports / runs));
  std::printf("median of %d: %.3f s, %.1f MB/s, %.2f M tokens/s (CPU time %.3f s, %.1f MB/s)\n",
              runs, median.seconds, mb / median.seconds, median.tokens / median.seconds / 1e6,
              median.cpu, mb / median.cpu);
  return 0;
}
