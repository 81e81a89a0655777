#include "frontend/conversion.h"

#include <cstdio>
#include <filesystem>

#include "frontend/gzipbytesource.h"
#include "frontend/outputname.h"
#include "interface/error.h"
#include "interface/scene/zel.h"
#include "rib/requests/extendedrib.h"
#include "rib/requests/rendrib.h"
#include "zel/zellib.h"

namespace {

std::string quoted(const std::string& path) {
  return "\"" + path + "\"";
}

std::string describeInput(const std::string& path) {
  return path == "-" ? "standard input" : quoted(path);
}

void printToStderr(const char* line) {
  std::fprintf(stderr, "%s\n", line);
}

// An abort handler or exhausted memory ends the program in the middle of a
// statement; the records before it are kept. Memory may be short here: a
// failure only loses what the flush would have saved.
void flushBeforeAbort() {
  try {
    zelFlush();
  } catch (...) {
  }
}

}  // namespace

conversion* conversion::open_ = nullptr;

conversion::conversion(request r) : request_(std::move(r)) {}

conversion::~conversion() {
  if (phase_ == phase::running) cancel();
  if (open_ == this) {
    open_ = nullptr;
    setAbortFlush(nullptr);
  }
}

bool conversion::open() {
  open_ = this;
  setMessageSink(&conversion::printMessage);
  zelSetMessageSink(&conversion::printMessage);
  setAbortFlush(flushBeforeAbort);
  zelSetReader(request_.extended ? "extended" : nullptr);
  if (!openInput() || !openOutput()) return false;
  makeSource();
  makeReader();
  rib_->errorPrinter(&conversion::printLog);
  phase_ = phase::running;
  return true;
}

bool conversion::openInput() {
  if (inMemory()) return true;
  inputfile::stopcheck stop;
  if (request_.stop) stop = [this] { return stopAsked(); };
  archives_.stopWith(stop);
  if (input_.open(request_.input, stop)) return true;
  fail("Unable to open input file " + describeInput(request_.input) + ": " + input_.problem());
  return false;
}

bool conversion::openOutput() {
  if (request_.parseOnly) {
    zelSkipOutput();
    return true;
  }
  if (request_.discardOutput) {
    zelDiscardOutput();
    return true;
  }
  const std::string& path = request_.output;
  std::FILE* stream = request_.outputStream;
  if (!stream && path == "-") stream = stdout;
  if (stream) {
    zelOutputToStream(stream);
    return true;
  }
  // Proves that the file can be written before the library takes it over,
  // which the desktop program also asks before it starts one.
  std::string reason;
  switch (checkoutput(input_, path, reason)) {
    case outputcheck::isInput:
      fail("The output " + quoted(path) + " is the input file");
      return false;
    case outputcheck::unwritable:
      fail("Unable to open file " + quoted(path) + ": " + reason);
      return false;
    case outputcheck::usable:
      break;
  }
  _zelOutputFile(kZelSceneFile, path.c_str());
  if (zelWriteFailed()) {
    error_ = zelWriteError();
    errorShown_ = true;
    phase_ = phase::failed;
    return false;
  }
  return true;
}

// Compressed input is recognised by its first two bytes, the gzip signature.
void conversion::makeSource() {
  if (request_.source) {
    source_ = request_.source;
    gzip_ = dynamic_cast<gzipbytesource*>(source_);
    return;
  }
  if (request_.text) {
    ownSource_ = std::make_unique<memorybytesource>(request_.text->data(), request_.text->size());
  } else {
    size_t n = 0;
    const unsigned char* head = input_.peek(2, n);
    if (gzipbytesource::recognises(head, n)) {
      auto gzip = std::make_unique<gzipbytesource>(input_);
      gzip_ = gzip.get();
      ownSource_ = std::move(gzip);
    } else {
      ownSource_ = std::make_unique<plainbytesource>(input_);
    }
  }
  source_ = ownSource_.get();
}

// Archives named by standard input are found from the current folder.
void conversion::makeReader() {
  const bool stdinput = request_.input == "-";
  const char* name = stdinput ? "stdin" : request_.input.c_str();
  readeroptions options;
  options.mayAbort = request_.mayAbort;
  if (!request_.extended) {
    rib_ = std::make_unique<rendrib>(*source_, name, options);
    return;
  }
  std::string folder = stdinput ? "" : std::filesystem::path(request_.input).parent_path().string();
  archiveopener* opener = inMemory() ? nullptr : &archives_;
  rib_ = std::make_unique<extendedrib>(*source_, name, std::move(folder), opener, options);
}

bool conversion::step() {
  if (phase_ != phase::running) return false;
  bool more = rib_->parse1() != 0;
  if (zelWriteFailed()) {
    // The library has reported it; nothing more would reach the file.
    error_ = zelWriteError();
    errorShown_ = true;
    end(phase::failed);
  } else if (!more) {
    finish();
  }
  return phase_ == phase::running;
}

void conversion::finish() {
  if (input_.stopped()) {
    end(phase::cancelled);
  } else if (source_->failed()) {
    std::string why = gzip_ && !gzip_->problem().empty() ? gzip_->problem() : input_.problem();
    error_ = "Unable to read " + describeInput(request_.input) + ": " + why;
    end(phase::failed);
  } else {
    end(phase::finished);
  }
}

void conversion::cancel() {
  if (phase_ == phase::running) end(phase::cancelled);
}

// The rendrib goes first, as nothing more may be read; then the scene file is
// brought to its last whole record. A finished conversion closes the file, a
// cancelled one only flushes it: no closing call goes to the library.
void conversion::end(phase how) {
  rib_.reset();
  phase_ = how;
  bool written = how == phase::finished ? zelClose() : zelFlush();
  if (!written && how != phase::failed) {
    error_ = zelWriteError();
    errorShown_ = true;
    if (how == phase::finished) phase_ = phase::failed;
  }
}

void conversion::fail(const std::string& message) {
  error_ = message;
  phase_ = phase::failed;
}

// A stop while the input is read lands in the middle of a statement, which
// the reader then sees cut short, a number perhaps cut to fewer digits: no
// record may come from it.
bool conversion::stopAsked() {
  if (!request_.stop()) return false;
  zelFreezeOutput();
  return true;
}

uint64_t conversion::bytesRead() const {
  // A plain source knows the scanner's exact position; a compressed one only
  // how much of the file the decompressor has taken, unless the caller holds
  // the file.
  if (source_ && (!gzip_ || request_.source)) return source_->consumed();
  return input_.consumed();
}

double conversion::progress() const {
  int64_t size = input_.size();
  if (request_.text) size = static_cast<int64_t>(request_.text->size());
  if (size < 0) return -1;
  if (size == 0) return phase_ == phase::running ? 0 : 1;
  double fraction = static_cast<double>(bytesRead()) / static_cast<double>(size);
  return fraction > 1 ? 1 : fraction;
}

void conversion::printLog(const char* line) {
  conversion* c = open_;
  if (!c) return printToStderr(line);
  // Lines that follow a read cut short by an interrupt speak of a statement
  // that was never complete; the conversion is being cancelled.
  if (c->input_.stopped()) return;
  ++c->logLines_;
  if (c->request_.log) c->request_.log(line);
}

void conversion::printMessage(const char* line) {
  conversion* c = open_;
  if (!c || !c->request_.messages) return printToStderr(line);
  c->request_.messages(line);
}
