// Catches the finished RIB report lines for the lifetime of the object instead
// of letting them go to standard error, and restores the previous printer.
#pragma once

#include <string>
#include <vector>

#include "rib/lexanrib.h"

class ReportCollector {
 public:
  ReportCollector() : saved_(lexanrib::RIBErrorPrinter) {
    store().clear();
    // Room ahead, so that collecting a line does not itself allocate while a
    // test makes the allocator fail.
    store().reserve(64);
    lexanrib::RIBErrorPrinter = &collect;
  }
  ReportCollector(const ReportCollector&) = delete;
  ReportCollector& operator=(const ReportCollector&) = delete;
  ~ReportCollector() { lexanrib::RIBErrorPrinter = saved_; }

  const std::vector<std::string>& lines() const { return store(); }
  void clear() { store().clear(); }

 private:
  static std::vector<std::string>& store() {
    static std::vector<std::string> lines;
    return lines;
  }
  static void collect(const char* line) { store().emplace_back(line); }

  void (*saved_)(const char*);
};
