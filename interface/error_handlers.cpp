// The three standard handlers, the library's side of RiErrorHandler, and the
// sink where printed lines go.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "interface/error.h"
#include "interface/scene/zel.h"

namespace {

const char* severityLabel(RtInt severity) {
  switch (severity) {
    case RIE_INFO:
      return "info:";
    case RIE_WARNING:
      return "warning:";
    case RIE_SEVERE:
      return "severe error:";
    default:
      return "error:";
  }
}

struct Sentence {
  RtInt code;
  const char* text;
};

const Sentence kSentences[] = {
    {RIE_NOERROR, ""},
    {RIE_NOMEM, " Out of memory."},
    {RIE_SYSTEM, " Miscellaneous system error."},
    {RIE_NOFILE, " File nonexistent."},
    {RIE_BADFILE, " Bad file format."},
    {RIE_VERSION, " File version mismatch."},
    {RIE_INCAPABLE, " Optional RI feature."},
    {RIE_UNIMPLEMENT, " Unimplemented feature."},
    {RIE_LIMIT, " Arbitrary program limit."},
    {RIE_BUG, " Probably a bug in renderer."},
    {RIE_NOTSTARTED, " RiBegin not called."},
    {RIE_NESTING, " Bad begin-end nesting."},
    {RIE_NOTOPTIONS, " Invalid state for options."},
    {RIE_NOTATTRIBS, " Invalid state for attribs."},
    {RIE_NOTPRIMS, " Invalid state for primitives."},
    {RIE_ILLSTATE, " Invalid state."},
    {RIE_BADMOTION, " Badly formed motion block."},
    {RIE_BADSOLID, " Badly formed solid block."},
    {RIE_BADTOKEN, " Invalid token for request."},
    {RIE_RANGE, " Parameter out of range."},
    {RIE_CONSISTENCY, " Parameters inconsistent."},
    {RIE_BADHANDLE, " Bad object/light handle."},
    {RIE_NOSHADER, " Can't load requested shader."},
    {RIE_MISSINGDATA, " Required parameters not provided."},
    {RIE_SYNTAX, " Declare type syntax error."},
    {RIE_MATH, " Undefined mathematical operation."},
};

std::string codeSentence(RtInt code) {
  for (const Sentence& s : kSentences) {
    if (s.code == code) return s.text;
  }
  return " Error code: " + std::to_string(code);
}

void writeToStandardError(const char* line) {
  std::fputs(line, stderr);
  std::fputc('\n', stderr);
}

void (*gMessageSink)(const char* line) = writeToStandardError;

}  // namespace

RtVoid RiErrorIgnore(RtInt code, RtInt, const char*) {
  RiLastError = code;
}

RtVoid RiErrorPrint(RtInt code, RtInt severity, const char* message) {
  RiLastError = code;
  std::string line = severityLabel(severity);
  line += codeSentence(code);
  if (message) {
    line += ' ';
    line += message;
  }
  printMessage(line.c_str());
}

RtVoid RiErrorAbort(RtInt code, RtInt severity, const char* message) {
  RiErrorPrint(code, severity, message);
  if (severity > RIE_INFO) abortProgram();
}

RtVoid RiErrorHandler(RtErrorHandler handler) {
  setErrorHandler(handler);
  if (handler == RiErrorIgnore) {
    _zelErrorHandler(kZelHandlerSetting, kZelIgnore);
  } else if (handler == RiErrorPrint) {
    _zelErrorHandler(kZelHandlerSetting, kZelPrint);
  } else if (handler == RiErrorAbort) {
    _zelErrorHandler(kZelHandlerSetting, kZelAbort);
  } else {
    _zelCustomErrorHandler(kZelHandlerSetting, handler);
  }
}

void printMessage(const char* line) {
  gMessageSink(line ? line : "");
}

void setMessageSink(void (*sink)(const char* line)) {
  gMessageSink = sink ? sink : writeToStandardError;
}
