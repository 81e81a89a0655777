// The scene library's side interface, for front ends and tests; the Ri layer
// uses only interface/scene/zel.h.
//
// A conversion: choose where the scene goes (_zelOutputFile(kZelSceneFile, path) in
// zel.h, or zelOutputToStream, zelDiscardOutput or zelSkipOutput), run it, then call
// zelFlush (cancelled) or zelClose (finished) and ask zelWriteFailed.
// Between two operations the library holds only whole lines, so after either
// call the file ends on a complete record, whatever point the conversion
// reached.
#pragma once

#include <cstdio>

// Where the library's report lines go ("ZEL error: ..."), one call per line,
// without a line end. Null restores the default, which writes to stderr.
void zelSetMessageSink(void (*sink)(const char* line));

// Names the reader that made the scene in the header of every file chosen
// from now on ("reader"); null or "" (the default) writes no such field.
void zelSetReader(const char* name);

// Writes the scene to `stream` (stdout, say), starting with the header line.
// The library flushes the stream but never closes it.
void zelOutputToStream(FILE* stream);
// Runs every operation, its checks and its formatting, and drops the bytes:
// for fuzzing, which must see every value read.
void zelDiscardOutput();
// Runs every operation and its checks but formats nothing: for measuring the
// reader and the Ri layer apart from the writing.
void zelSkipOutput();

// Hands every whole line to the destination and flushes it. False once
// writing has failed.
bool zelFlush();
// zelFlush, then drops every later record until the next output is chosen:
// for a conversion stopped in the middle of a statement, whose reader sees
// the statement cut short.
void zelFreezeOutput();
// zelFlush, then closes a file that _zelOutputFile opened. False once writing
// has failed.
bool zelClose();

// Whether creating or writing the scene file failed. The failure is reported
// once, through the sink, when it happens; it stays until the next output is
// chosen, and nothing more is written until then.
bool zelWriteFailed();
// That report line, or "" while nothing failed.
const char* zelWriteError();

// For tests of the library alone: drops the output and its buffer without
// writing, and forgets every name, handle, open block and the error mode and
// sink. A process whose Ri dictionary holds codes from _zelQuark must not call
// it, for those codes would be given again to other names.
void zelReset();
