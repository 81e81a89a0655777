// The library's reports: one line each, beginning with "ZEL ", to a
// replaceable line sink. Faults in the scene (nesting, handles, parameter
// lists) go through the mode that _zelErrorHandler chose; trouble with the
// output file goes to the sink whatever the mode, because the front end must
// hear of it to fail the conversion.
#pragma once

#include <cstdint>
#include <string>

#include "interface/ritypes.h"

namespace zel {

using LineSink = void (*)(const char* line);

// Error codes handed to a custom handler, as the Interface numbers them.
enum FaultCode : int32_t {
  kLimit = 13,     // no code left for a new name
  kBug = 14,       // the caller broke the boundary's contract
  kNesting = 24,   // begin and end do not pair
  kRange = 42,     // a number outside its set
  kBadHandle = 44  // a light or object handle that was never given
};

// How grave a report is, as the Interface numbers its severities.
enum Severity : int32_t { kInfo = 0, kWarning = 1, kError = 2, kSevereError = 3 };

enum class Mode { Ignore, Print, Abort, Custom };

void setSink(LineSink sink);  // null: the default, which writes to stderr
// Writes `line` to the sink, ignoring the mode.
void notify(const std::string& line);

void setMode(Mode mode, RtErrorHandler custom = nullptr);
Mode mode();
// A fault in the scene: "ZEL <severity label>: <text>" as the mode says. In
// abort mode the output is flushed before the program ends, so the file keeps
// every operation recorded so far.
void report(int32_t code, Severity severity, const std::string& text);

// Back to the start: default sink, print mode.
void resetMessages();

}  // namespace zel
