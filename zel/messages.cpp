#include "zel/messages.h"

#include <cstdio>
#include <cstdlib>

#include "zel/library.h"

namespace zel {

namespace {

void writeToStderr(const char* line) {
  std::fputs(line, stderr);
  std::fputc('\n', stderr);
}

// Plain pointers and an enum, so that reports stay safe during static
// destruction, when the output's destructor may still report a failure.
LineSink gSink = writeToStderr;
Mode gMode = Mode::Print;
RtErrorHandler gCustom = nullptr;

const char* severityLabel(Severity severity) {
  switch (severity) {
    case kInfo:
      return "info";
    case kWarning:
      return "warning";
    case kSevereError:
      return "severe error";
    default:
      return "error";
  }
}

}  // namespace

void setSink(LineSink sink) {
  gSink = sink ? sink : writeToStderr;
}

void notify(const std::string& line) {
  gSink(line.c_str());
}

void setMode(Mode mode, RtErrorHandler custom) {
  gMode = mode;
  gCustom = mode == Mode::Custom ? custom : nullptr;
}

Mode mode() {
  return gMode;
}

void report(int32_t code, Severity severity, const std::string& text) {
  if (gMode == Mode::Ignore) return;
  std::string line = std::string("ZEL ") + severityLabel(severity) + ": " + text;
  if (gMode == Mode::Custom && gCustom != nullptr) {
    gCustom(code, severity, line.c_str());
    return;
  }
  notify(line);
  if (gMode == Mode::Abort && severity > kInfo) {
    library().output.flush();
    std::abort();
  }
}

void resetMessages() {
  gSink = writeToStderr;
  gMode = Mode::Print;
  gCustom = nullptr;
}

}  // namespace zel
