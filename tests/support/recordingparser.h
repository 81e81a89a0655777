// A parser for tests: reads from a string held in memory, records the name of
// every handler that ran, and runs an optional action per request so that a
// test can read arguments the way a real handler would.
#pragma once

#include <cstring>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "rib/bytesource.h"
#include "rib/parserib.h"

// The input is built before the parser, which takes a reference to it.
struct RecordingParserInput {
  explicit RecordingParserInput(std::string text)
      : text(std::move(text)), source(this->text.data(), this->text.size()) {}
  std::string text;
  memorybytesource source;
};

class RecordingParser : private RecordingParserInput, public parserib {
 public:
  using Action = std::function<void(RecordingParser&)>;

  explicit RecordingParser(std::string text)
      : RecordingParserInput(std::move(text)), parserib(source) {
    // Recording must not allocate while a test makes the allocator fail.
    ran.reserve(256);
  }

  // Runs `action` whenever the handler of `request` is called.
  void on(const char* request, Action action) { actions_[indexOf(request)] = std::move(action); }

  // Fetches the first token, as the first parse1 would, for tests that call
  // the match overloads directly.
  RecordingParser& primed() {
    token = lex.next();
    return *this;
  }

  // Calls parse1 until the stream ends.
  void parseAll() {
    while (parse1()) {
    }
  }

  // Handler names in the order they ran; pointers to literals, so recording
  // never allocates.
  std::vector<const char*> ran;

  std::vector<std::string> ranNames() const { return {ran.begin(), ran.end()}; }

  static const char* const* requestNames() {
#define RECORDING_PARSER_NAME(name) #name,
    static const char* const names[kRequestCount] = {RIB_REQUESTS(RECORDING_PARSER_NAME)};
#undef RECORDING_PARSER_NAME
    return names;
  }

#define RECORDING_PARSER_HANDLER(name) \
  void name() override {               \
    handle(#name);                     \
  }
  RIB_REQUESTS(RECORDING_PARSER_HANDLER)
#undef RECORDING_PARSER_HANDLER

 private:
  static int indexOf(const char* request) {
    for (int i = 0; i < kRequestCount; ++i) {
      if (std::strcmp(requestNames()[i], request) == 0) return i;
    }
    throw std::invalid_argument(std::string("no such request: ") + request);
  }

  void handle(const char* name) {
    ran.push_back(name);
    const Action& action = actions_[indexOf(name)];
    if (action) action(*this);
  }

  Action actions_[kRequestCount];
};
