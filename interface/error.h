// The Ri layer's error model: every fault found inside an Ri call goes through
// one installed handler, which turns a code, a severity and a text into one
// line. It is separate from the RIB reader's own reports (lexanrib), which
// carry line numbers and go to another place.
//
// The same module guards the free store: while a named Ri call runs, running
// out of memory ends the program with a message naming the call.
#pragma once

#include <cstdarg>

#include "interface/ritypes.h"

// Error codes, with the names the RenderMan Interface gives them.
constexpr RtInt RIE_NOERROR = 0;
constexpr RtInt RIE_NOMEM = 1;
constexpr RtInt RIE_SYSTEM = 2;
constexpr RtInt RIE_NOFILE = 3;
constexpr RtInt RIE_BADFILE = 4;
constexpr RtInt RIE_VERSION = 5;
constexpr RtInt RIE_INCAPABLE = 11;
constexpr RtInt RIE_UNIMPLEMENT = 12;
constexpr RtInt RIE_LIMIT = 13;
constexpr RtInt RIE_BUG = 14;
constexpr RtInt RIE_NOTSTARTED = 23;
constexpr RtInt RIE_NESTING = 24;
constexpr RtInt RIE_NOTOPTIONS = 25;
constexpr RtInt RIE_NOTATTRIBS = 26;
constexpr RtInt RIE_NOTPRIMS = 27;
constexpr RtInt RIE_ILLSTATE = 28;
constexpr RtInt RIE_BADMOTION = 29;
constexpr RtInt RIE_BADSOLID = 30;
constexpr RtInt RIE_BADTOKEN = 41;
constexpr RtInt RIE_RANGE = 42;
constexpr RtInt RIE_CONSISTENCY = 43;
constexpr RtInt RIE_BADHANDLE = 44;
constexpr RtInt RIE_NOSHADER = 45;
constexpr RtInt RIE_MISSINGDATA = 46;
constexpr RtInt RIE_SYNTAX = 47;
constexpr RtInt RIE_MATH = 61;

// Severities.
constexpr RtInt RIE_INFO = 0;
constexpr RtInt RIE_WARNING = 1;
constexpr RtInt RIE_ERROR = 2;
constexpr RtInt RIE_SEVERE = 3;

// The code of the last error that reached one of the three standard handlers.
// Nothing in this program reads it; it is there for whoever links the layer.
extern RtInt RiLastError;

class Error {
 public:
  static RtErrorHandler fHandler;      // what error and verror call; RiErrorPrint at start
  static const char* fFuncName;        // the Ri call now running, or null
  static void (*fStoredNewHandler)();  // the free-store handler that errorNewHandler replaced
};

// Returns the handler that was installed.
RtErrorHandler setErrorHandler(RtErrorHandler handler);
// Names the running Ri call (null when it ends) and returns the old name.
// errorNewHandler is the free-store handler exactly while a name is set.
const char* setErrorFuncName(const char* name);
// Reports code 1, severity 3, "free store exhausted", then aborts.
[[noreturn]] void errorNewHandler();

// What must be written out before the program ends on purpose (an abort
// handler, exhausted memory inside a named call): the front end brings its
// scene file to the last whole record here. Null for nothing; the flush must
// not throw.
void setAbortFlush(void (*flush)());
// Runs the abort flush once, then std::abort: the one way this layer and the
// reader end the program.
[[noreturn]] void abortProgram();

// Reports through Error::fHandler, the message led by "name: " while an Ri
// call is named. The composed message is cut at 123 bytes. With a null format
// the handler gets the call's name alone, or null.
void error(RtInt code, RtInt severity, const char* format, ...)
    __attribute__((format(printf, 3, 4)));
void verror(RtInt code, RtInt severity, const char* format, va_list args)
    __attribute__((format(printf, 3, 0)));

// The standard handlers. Each stores the code in RiLastError. Print writes
// "label sentence message" through printMessage; Abort prints and then aborts
// for any severity above 0.
RtVoid RiErrorIgnore(RtInt code, RtInt severity, const char* message);
RtVoid RiErrorPrint(RtInt code, RtInt severity, const char* message);
RtVoid RiErrorAbort(RtInt code, RtInt severity, const char* message);
// Installs a handler for this layer and tells the scene library.
RtVoid RiErrorHandler(RtErrorHandler handler);

// Writes one line (no line end) to the message sink.
void printMessage(const char* line);
// Replaces the message sink; null puts back the default, which writes the
// line and "\n" to standard error.
void setMessageSink(void (*sink)(const char* line));
