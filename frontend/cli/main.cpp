// rib2zel: converts a RIB file into a scene file from the command line.
// Standard error gets every message line in the order it arises, then the
// status line; the exit status tells the outcome (see helptext()).
#include <unistd.h>

#include <csignal>
#include <cstdint>
#include <cstdio>
#include <new>
#include <string>

#include "frontend/cli/batch.h"
#include "frontend/cli/exitstatus.h"
#include "frontend/cli/options.h"
#include "frontend/cli/previewstep.h"
#include "frontend/cli/progressline.h"
#include "frontend/conversion.h"

namespace {

// The signal that asked for the stop, or 0.
volatile std::sig_atomic_t gInterrupted = 0;
progressline* gProgress = nullptr;
int32_t gOtherMessages = 0;  // lines of the Ri layer and the scene library, for --strict

void onInterrupt(int signal) {
  gInterrupted = signal;
}

// Ctrl-C, SIGTERM (timeout, job systems, container stops) and SIGHUP (a
// closing terminal) ask for a stop between two statements, so that the scene
// file keeps whole records. A second one finds the default action back in
// place and ends the process at once.
void catchInterrupt() {
  struct sigaction sa {};
  sa.sa_handler = onInterrupt;
  sigemptyset(&sa.sa_mask);
  // No SA_RESTART: a read from a pipe or terminal that is waiting for data
  // must come back so that the stop is seen.
  sa.sa_flags = SA_RESETHAND;
  for (int signal : {SIGINT, SIGTERM, SIGHUP}) sigaction(signal, &sa, nullptr);
  // A write beyond the file-size limit then fails with EFBIG, and the scene
  // library cuts the file back to its last whole record, instead of the
  // signal ending the process in the middle of a line.
  std::signal(SIGXFSZ, SIG_IGN);
}

void writeError(const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stderr);
}

// One message line on standard error, written in one piece so lines never mix.
void printLine(const char* line) {
  if (gProgress) gProgress->erase();
  writeError(std::string(line) + "\n");
}

void printMessage(const char* line) {
  ++gOtherMessages;
  printLine(line);
}

int usageError(const std::string& problem) {
  writeError("rib2zel: " + problem + "\nTry 'rib2zel --help' for more information.\n");
  return kExitFailed;
}

int finish(conversion& c, const options& o) {
  switch (c.state()) {
    case conversion::phase::cancelled:
      printLine("Conversion cancelled.");
      return kExitSignalBase + gInterrupted;
    case conversion::phase::failed:
      // A write error has already been told by the scene library, in its place among the lines.
      if (!c.errorShown()) printLine(("rib2zel: " + c.error()).c_str());
      return kExitFailed;
    default:
      if (!o.quiet) printLine(c.statusText());
      bool clean = c.logLines() == 0 && !(o.strict && gOtherMessages > 0);
      return clean ? kExitSuccess : kExitMessages;
  }
}

int convert(const options& o, progressline& progress) {
  conversion::request r;
  r.input = o.input;
  r.output = o.output;
  r.parseOnly = o.parseOnly;
  r.extended = o.extended;
  r.log = printLine;
  r.messages = printMessage;
  r.stop = [] { return gInterrupted != 0; };
  conversion c(std::move(r));
  if (!c.open()) return finish(c, o);
  while (c.step()) {
    if (gInterrupted) {
      c.cancel();
      break;
    }
    progress.update(c.bytesRead(), c.progress(), progressline::clock::now());
  }
  progress.erase();
  return finish(c, o);
}

}  // namespace

int main(int argc, char** argv) {
  options o;
  std::string problem = parseoptions(argc, argv, o);
  if (o.help) {
    std::fputs(helptext(), stdout);
    return kExitSuccess;
  }
  if (o.version) {
    std::printf("rib2zel %s\n", RIB2ZEL_VERSION);
    return kExitSuccess;
  }
  if (!problem.empty()) return usageError(problem);
  if (o.batch()) return runbatch(o);
  catchInterrupt();
  progressline progress(isatty(STDERR_FILENO) == 1, writeError, progressline::clock::now());
  gProgress = &progress;
  int status = kExitFailed;
  try {
    status = runPreview(o, convert(o, progress), printLine);
  } catch (const std::bad_alloc&) {
    // Only the setup before the first request meets this: the statements
    // have the reader's and the Ri layer's own handling. The text is fixed,
    // so telling it needs no memory.
    std::fputs("rib2zel: Out of memory\n", stderr);
  }
  gProgress = nullptr;
  return status;
}
