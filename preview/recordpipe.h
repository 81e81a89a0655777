// Reads a scene file's records on a thread of its own, a batch at a time, so
// that reading the file and tessellating what it holds overlap.
#pragma once

#include <condition_variable>
#include <deque>
#include <exception>
#include <istream>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "zel/reader/zelreader.h"

class RecordPipe {
 public:
  // Reads the header at once, throwing as ZelReader does. The values of
  // parameters named in `unread` are not read (ZelReader::leaveValuesUnread).
  RecordPipe(std::istream& in, std::vector<std::string> unread);
  ~RecordPipe();
  RecordPipe(const RecordPipe&) = delete;
  RecordPipe& operator=(const RecordPipe&) = delete;

  // The next records in file order, or false at the end. An error the
  // reader met is thrown once the records before it have been taken. The
  // batch given is taken back first.
  bool next(std::vector<ZelRecord>& batch);

 private:
  void run();

  ZelReader reader_;
  std::mutex mutex_;
  std::condition_variable changed_;
  std::deque<std::vector<ZelRecord>> batches_;
  // Batches taken and done with: freed on the reader's thread, which has the
  // lighter load.
  std::vector<std::vector<ZelRecord>> spent_;
  bool done_ = false;
  bool stop_ = false;
  std::exception_ptr error_;
  std::thread thread_;
};
