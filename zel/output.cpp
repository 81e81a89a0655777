#include "zel/output.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "zel/messages.h"

namespace zel {

namespace {

// A buffer that one huge record stretched is given back once it is drained,
// so that memory follows the largest record only while it is being written.
constexpr size_t kKeptCapacity = 4 * Output::kBufferBytes;

}  // namespace

Output::Output() {
  buffer_.reserve(kBufferBytes + kBufferBytes / 4);
}

Output::~Output() {
  close();
}

bool Output::openFile(const char* path) {
  close();
  failure_.clear();
  name_ = path ? path : "";
  if (path == nullptr || *path == '\0') {
    failure_ = "ZEL severe error: no name given for the scene file";
    notify(failure_);
    return false;
  }
  FILE* file = std::fopen(path, "wb");
  if (file == nullptr) {
    fail("create");
    return false;
  }
  // This class buffers whole lines itself; a second buffer would only hide
  // a write error until later.
  std::setvbuf(file, nullptr, _IONBF, 0);
  stream_ = file;
  fileBytes_ = 0;
  kind_ = Kind::File;
  return true;
}

void Output::useStream(FILE* stream) {
  close();
  failure_.clear();
  name_ = stream == stdout ? "standard output" : "the output stream";
  stream_ = stream;
  kind_ = stream ? Kind::Stream : Kind::None;
}

void Output::discard() {
  close();
  failure_.clear();
  name_.clear();
  kind_ = Kind::Discard;
}

void Output::skip() {
  discard();
  kind_ = Kind::Skip;
}

void Output::commit() {
  if (frozen_) {
    buffer_.clear();
    return;
  }
  committed_ = buffer_.size();
  if (committed_ >= kBufferBytes) drain();
}

void Output::drain() {
  if ((kind_ == Kind::File || kind_ == Kind::Stream) && !failed() && committed_ > 0) {
    size_t written = std::fwrite(buffer_.data(), 1, committed_, stream_);
    if (written != committed_ || std::fflush(stream_) != 0) {
      fail("write");
      // The part of a record that did reach a full disk (or a file at its
      // size limit) is cut off again, so that the file still ends on a whole
      // line. A stream cannot be taken back.
      std::error_code ignored;
      if (kind_ == Kind::File) std::filesystem::resize_file(name_, fileBytes_, ignored);
    } else {
      fileBytes_ += written;
    }
  }
  buffer_.erase(0, committed_);
  committed_ = 0;
  if (buffer_.capacity() > kKeptCapacity) {
    buffer_.shrink_to_fit();
    buffer_.reserve(kBufferBytes + kBufferBytes / 4);
  }
}

bool Output::flush() {
  drain();
  if ((kind_ == Kind::File || kind_ == Kind::Stream) && !failed() && std::fflush(stream_) != 0)
    fail("write");
  return !failed();
}

void Output::freeze() {
  flush();
  frozen_ = true;
}

bool Output::close() {
  rollback();
  bool ok = flush();
  if (kind_ == Kind::File && std::fclose(stream_) != 0 && ok) {
    fail("close");
    ok = false;
  }
  releaseDestination();
  return ok;
}

void Output::reset() {
  buffer_.clear();
  committed_ = 0;
  if (kind_ == Kind::File) std::fclose(stream_);
  releaseDestination();
  failure_.clear();
}

void Output::releaseDestination() {
  frozen_ = false;
  stream_ = nullptr;
  kind_ = Kind::None;
}

void Output::fail(const char* action) {
  if (failed()) return;
  int error = errno;
  failure_ = "ZEL severe error: cannot ";
  failure_ += action;
  failure_ += " the scene file \"" + name_ + "\": ";
  failure_ += error ? std::strerror(error) : "unknown error";
  notify(failure_);
}

}  // namespace zel
