// One conversion of a RIB file into a scene file, free of any user-interface
// toolkit, so that the command line and the desktop program run the same loop:
// open, call step() until it returns false (or cancel() between two steps),
// then show statusText() or error().
//
// It owns the input and the rendrib of the conversion; what lies below (the
// token dictionary, the Ri layer's statics, its error handler) is left as the
// previous conversion left it. Only one conversion may be open at a time: the
// message sinks of the reader, the Ri layer and the scene library are
// process-wide and lead to the open one.
#pragma once

#include <cstdint>
#include <cstdio>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "frontend/archivefiles.h"
#include "frontend/inputfile.h"

class bytesource;
class gzipbytesource;
class rendrib;

class conversion {
 public:
  using linesink = std::function<void(const char* line)>;

  struct request {
    std::string input;  // a path, or "-" for standard input; with `text` or `source`, its name
    // The input's bytes, held by the caller until the conversion ends, read
    // instead of the file, or a source of them that the caller keeps. Either
    // reads inline archives only.
    std::optional<std::string_view> text;
    bytesource* source = nullptr;
    std::string output;                 // a path, or "-" for standard output; unused when parseOnly
    std::FILE* outputStream = nullptr;  // instead of `output`; the caller closes it
    bool discardOutput = false;         // format every record and drop it (fuzzing)
    bool parseOnly = false;             // run every layer and check, but format no scene
    bool mayAbort = true;       // false: an "abort" error handler in the scene prints instead
    bool extended = false;      // read the forms of later RIB versions (extendedrib)
    linesink log;               // RIB messages (line and token); they decide the status
    linesink messages;          // messages of the Ri layer and of the scene library
    inputfile::stopcheck stop;  // asked before each block of input whether to end there
  };

  enum class phase { created, running, finished, cancelled, failed };

  static constexpr const char* kSuccess = "Success.";
  static constexpr const char* kMessages = "There are warning/error messages.";

  explicit conversion(request r);
  conversion(const conversion&) = delete;
  conversion& operator=(const conversion&) = delete;
  // Cancels a conversion that is still running.
  ~conversion();

  // Opens the input, proves that the output can be written (creating or
  // emptying it), and names it to the scene library. Reads nothing but the
  // first bytes of the input. False, with error() set, when either file
  // cannot be opened.
  bool open();

  // Converts one statement. False once the conversion has ended: the input is
  // exhausted, the output could not be written, or it was cancelled.
  bool step();

  // Stops between two statements: no further request is read, no closing call
  // goes to the scene library, and the scene file keeps the complete records
  // written so far.
  void cancel();

  phase state() const { return phase_; }
  // Lines the RIB log received so far.
  int32_t logLines() const { return logLines_; }
  // The final status of a finished conversion: kSuccess or kMessages.
  const char* statusText() const { return logLines_ == 0 ? kSuccess : kMessages; }
  // Why open() failed or the conversion failed.
  const std::string& error() const { return error_; }
  // True when error() came from the scene library, which has already sent it
  // to the messages sink.
  bool errorShown() const { return errorShown_; }

  // Bytes of the input read so far, as stored (compressed bytes for gzip).
  uint64_t bytesRead() const;
  // bytesRead() over the input's size, or a negative number when the size is
  // unknown (a pipe).
  double progress() const;

  const std::string& inputPath() const { return request_.input; }
  const std::string& outputPath() const { return request_.output; }

 private:
  bool inMemory() const { return request_.text || request_.source; }
  bool openInput();
  bool openOutput();
  void makeSource();
  void makeReader();
  void finish();
  void end(phase how);
  void fail(const std::string& message);
  bool stopAsked();
  static void printLog(const char* line);
  static void printMessage(const char* line);

  request request_;
  phase phase_ = phase::created;
  int32_t logLines_ = 0;
  std::string error_;
  bool errorShown_ = false;
  inputfile input_;
  std::unique_ptr<bytesource> ownSource_;
  bytesource* source_ = nullptr;    // what the reader reads
  gzipbytesource* gzip_ = nullptr;  // source_ when the input is compressed
  archivefiles archives_;
  std::unique_ptr<rendrib> rib_;

  static conversion* open_;
};
