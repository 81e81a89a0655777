#include "interface/error.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <new>

#include "foundation/String.h"

RtInt RiLastError = 0;

RtErrorHandler Error::fHandler = RiErrorPrint;
const char* Error::fFuncName = nullptr;
void (*Error::fStoredNewHandler)() = nullptr;

namespace {

void (*gAbortFlush)() = nullptr;

// Prefix and terminator included.
constexpr size_t kMessageBytes = 124;

void deliver(RtInt code, RtInt severity, const char* message) {
  if (Error::fHandler) Error::fHandler(code, severity, message);
}

// The one report of String, which cannot call into this layer itself. The two
// numbers are code 3 and severity 2820, as this report has always been given.
void reportStringIndex(const char* message) {
  error(3, 2820, "%s", message);
}

struct InstallStringIndexHook {
  InstallStringIndexHook() { String::indexErrorHook = reportStringIndex; }
} gInstallStringIndexHook;

}  // namespace

RtErrorHandler setErrorHandler(RtErrorHandler handler) {
  RtErrorHandler old = Error::fHandler;
  Error::fHandler = handler;
  return old;
}

const char* setErrorFuncName(const char* name) {
  const char* old = Error::fFuncName;
  Error::fFuncName = name;
  if (!name) {
    std::set_new_handler(Error::fStoredNewHandler);
  } else if (!old) {
    Error::fStoredNewHandler = std::set_new_handler(errorNewHandler);
  }
  return old;
}

void errorNewHandler() {
  // Reporting may itself allocate; a second failure must not come back here.
  std::set_new_handler(nullptr);
  try {
    error(RIE_NOMEM, RIE_SEVERE, "free store exhausted");
  } catch (...) {
  }
  abortProgram();
}

void setAbortFlush(void (*flush)()) {
  gAbortFlush = flush;
}

void abortProgram() {
  // Taken first, so that an abort from within the flush cannot come back here.
  void (*flush)() = gAbortFlush;
  gAbortFlush = nullptr;
  if (flush) flush();
  std::abort();
}

void error(RtInt code, RtInt severity, const char* format, ...) {
  if (!format) {
    deliver(code, severity, Error::fFuncName);
    return;
  }
  va_list args;
  va_start(args, format);
  verror(code, severity, format, args);
  va_end(args);
}

void verror(RtInt code, RtInt severity, const char* format, va_list args) {
  if (!format) {
    deliver(code, severity, Error::fFuncName);
    return;
  }
  char buffer[kMessageBytes];
  size_t used = 0;
  if (Error::fFuncName) {
    int n = std::snprintf(buffer, sizeof buffer, "%s: ", Error::fFuncName);
    used = n < 0 ? 0 : std::min(static_cast<size_t>(n), sizeof buffer - 1);
  }
  // vsnprintf cuts what does not fit and always terminates.
  if (std::vsnprintf(buffer + used, sizeof buffer - used, format, args) < 0) buffer[used] = '\0';
  deliver(code, severity, buffer);
}
