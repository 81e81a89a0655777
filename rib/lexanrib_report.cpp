// Reports about the input: composition of the line and the three handlers.
// Lines are built in fixed buffers on the stack, so a report allocates
// nothing and cannot fail when memory is exhausted; a part that does not fit
// its buffer is cut, whatever the input put into it.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "interface/error.h"
#include "rib/lexanrib.h"

namespace {

// Each composition step's text fits in this many bytes, the NUL included.
constexpr size_t kStep = 124;

// A fixed buffer that takes text until it is full and silently drops the rest.
template <size_t N>
class LineBuffer {
 public:
  // Not a default member initializer: clang 14 sizes the zero-fill of a
  // string-literal initializer of a dependent array from another instance
  // of the template and overruns the smaller buffer.
  LineBuffer() { buf_[0] = '\0'; }
  void add(const char* s, size_t n) {
    if (n > N - 1 - len_) n = N - 1 - len_;
    std::memcpy(buf_ + len_, s, n);
    len_ += n;
    buf_[len_] = '\0';
  }
  void add(const char* s) { add(s, std::strlen(s)); }
  const char* c_str() const { return buf_; }

 private:
  char buf_[N];
  size_t len_ = 0;
};

const char* severityWords(int32_t severity) {
  switch (severity) {
    case kRibInfo:
      return "RIB info: ";
    case kRibWarning:
      return "RIB warning: ";
    case kRibSevere:
      return "severe RIB error: ";
    default:
      return "RIB error: ";
  }
}

struct CodeText {
  RIBCode code;
  const char* text;
};

const CodeText kCodeTexts[] = {
    {kRibArrayMemory, "insufficient memory to construct array"},
    {kRibBadValue, "incorrect parameter value"},
    {kRibBadArray, "invalid array specification"},
    {kRibBadBasis, "undefined basis matrix name"},
    {kRibBadColor, "invalid color specification"},
    {kRibBadHandle, "invalid light or object handle"},
    {kRibTypeMismatch, "parameter list type mismatch"},
    {kRibBadRequestCode, "invalid encoded RIB request code"},
    {kRibBadStringToken, "undefined encoded string token"},
    {kRibBadBinaryToken, "invalid binary token"},
    {kRibVersion, "protocol version number mismatch"},
    {kRibLimit, "overflowing an internal limit"},
    {kRibNoMemory, "generic instance of insufficient memory"},
    {kRibBadEncoding, "malformed binary encoding"},
    {kRibStringMemory, "insufficient memory to read string"},
    {kRibSyntax, "general syntactic error"},
    {kRibUnknownRequest, "undefined RIB request"},
};

// Any other code, kRibReported included, has no text.
const char* codeText(int32_t code) {
  for (const CodeText& entry : kCodeTexts) {
    if (entry.code == code) return entry.text;
  }
  return "";
}

void printToStderr(const char* line) {
  std::fputs(line, stderr);
  std::fputc('\n', stderr);
}

}  // namespace

void (*lexanrib::RIBErrorPrinter)(const char* line) = printToStderr;

void lexanrib::RIBError(int32_t code, int32_t severity, const char* format, ...) {
  va_list args;
  va_start(args, format);
  vRIBError(code, severity, format, args);
  va_end(args);
}

void lexanrib::vRIBError(int32_t code, int32_t severity, const char* format, va_list args) {
  LineBuffer<3 * kStep> report;
  char step[kStep];
  std::snprintf(step, sizeof step, "at line %lu", static_cast<unsigned long>(lastline));
  report.add(step);
  if (nameInReports) {
    report.add(" of \"");
    report.add(name);
    report.add("\"");
  }
  // text.count includes the terminator; text may hold a NUL earlier, or none
  // at all when a scan was cut short, so its length is bounded by count.
  if (text.count < 30) {
    report.add(" '");
    report.add(text.data, strnlen(text.data, text.count));
    report.add("'");
  }
  if (format) {
    report.add(": ");
    std::vsnprintf(step, sizeof step, format, args);
    report.add(step);
  }
  (this->*RIBErrorHandler)(code, severity, report.c_str());
}

void lexanrib::RIBErrorIgnore(int32_t, int32_t, const char*) {}

void lexanrib::RIBErrorPrint(int32_t code, int32_t severity, const char* message) {
  LineBuffer<5 * kStep> out;
  out.add(severityWords(severity));
  out.add(codeText(code));
  if (message) {
    out.add(" ");
    out.add(message);
  }
  if (RIBErrorPrinter) RIBErrorPrinter(out.c_str());
}

void lexanrib::RIBErrorAbort(int32_t code, int32_t severity, const char* message) {
  RIBErrorPrint(code, severity, message);
  abortProgram();
}

RIBException lexanrib::exception(int32_t code, int32_t severity, const char* format, ...) {
  char message[kStep] = "";
  if (format) {
    va_list args;
    va_start(args, format);
    std::vsnprintf(message, sizeof message, format, args);
    va_end(args);
  }
  return RIBException(code, severity, String(message));
}
