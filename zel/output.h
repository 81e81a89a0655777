// Where the scene file's lines go, and the bounded buffer in front of it.
//
// Records are formatted straight into `line()`. Only `commit` makes them part
// of the output, so the buffer handed to the destination always ends on a
// line end: whenever it is drained (when it is full, on flush, on close), the
// file holds whole records and nothing else. A write error stops all further
// writing and is kept until the next destination is chosen.
#pragma once

#include <cstdio>
#include <string>

namespace zel {

class Output {
 public:
  // Drained as soon as this many bytes of whole lines are waiting.
  static constexpr size_t kBufferBytes = 64 * 1024;

  Output();
  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  // Each closes the previous destination first. openFile creates or truncates
  // the file; on failure the destination is none and the failure is kept.
  bool openFile(const char* path);
  void useStream(FILE* stream);  // not closed by this class
  void discard();                // lines are formatted, then dropped
  void skip();                   // lines are not even formatted

  bool flush();  // whole lines to the destination, then the stream's own buffer
  // flush, then drop every later line until the next destination is chosen.
  void freeze();
  bool close();  // flush, and close a file that openFile made
  // Back to no destination with no failure kept, dropping whatever is buffered.
  void reset();

  // Whether records are formatted at all: not when skipping.
  bool formats() const { return kind_ != Kind::Skip; }
  // The line under construction: append to it, then commit.
  std::string& line() { return buffer_; }
  void commit();
  // Drops whatever was appended since the last commit.
  void rollback() { buffer_.resize(committed_); }

  bool failed() const { return !failure_.empty(); }
  const std::string& failure() const { return failure_; }

 private:
  enum class Kind { None, File, Stream, Discard, Skip };

  void drain();
  void fail(const char* action);
  void releaseDestination();

  std::string buffer_;
  size_t committed_ = 0;
  bool frozen_ = false;
  Kind kind_ = Kind::None;
  FILE* stream_ = nullptr;
  size_t fileBytes_ = 0;  // whole lines that reached the file
  std::string name_;      // for messages
  std::string failure_;   // empty while all is well
};

}  // namespace zel
