#include "rib/parserib.h"

#include <cstring>
#include <new>
#include <utility>

#include "interface/ri_paramcounts.h"

namespace {

// Puts a new-handler in for the lifetime of the object and restores the one it
// replaced, also when an exception other than RIBException passes through.
class NewHandlerScope {
 public:
  explicit NewHandlerScope(std::new_handler h) : saved_(std::set_new_handler(h)) {}
  NewHandlerScope(const NewHandlerScope&) = delete;
  NewHandlerScope& operator=(const NewHandlerScope&) = delete;
  ~NewHandlerScope() { std::set_new_handler(saved_); }

 private:
  std::new_handler saved_;
};

}  // namespace

parserib::parserib(bytesource& in, const char* name, readeroptions options)
    : lex(in, name), keywords(kBuckets), lights(kBuckets), objects(kBuckets), options(options) {
  hash_init();
  // The basis steps live in the Ri layer, which this reader shares with the
  // conversion before; they start afresh with each conversion.
  resetBasisSteps();
}

parserib::parserib(bytesource& in, const char* name, const parserib& outer)
    : lex(in, name), keywords(1), lights(1), objects(1), options(outer.options) {
  lex.RIBErrorHandler = outer.lex.RIBErrorHandler;
}

parserib::~parserib() = default;

namespace {

template <class T>
void swapTables(Hash<T>& a, Hash<T>& b) {
  std::swap(a.table, b.table);
  std::swap(a.size, b.size);
}

}  // namespace

void parserib::handOver(parserib& to) {
  swapTables(keywords, to.keywords);
  swapTables(lights, to.lights);
  swapTables(objects, to.objects);
  to.colorsamples = colorsamples;
  to.lastlight = lastlight;
  to.lastobject = lastobject;
}

void parserib::hash_init() {
#define RIB_KEYWORD_ENTRY(name) {String(#name), &parserib::name},
  const keyword_assoc table[kRequestCount] = {RIB_REQUESTS(RIB_KEYWORD_ENTRY)};
#undef RIB_KEYWORD_ENTRY
  for (const keyword_assoc& entry : table) keywords.add(entry);
}

void parserib::errorPrinter(void (*printer)(const char*)) {
  lexanrib::RIBErrorPrinter = printer;
}

void parserib::outOfMemory() {
  throw lexanrib::exception(kRibNoMemory, kRibSevere, "Free store exhausted");
}

void parserib::report(const RIBException& e) {
  if (e.code != kRibReported) lex.RIBError(e.code, e.severity, "%s", e.message.c_str());
}

// Skips to the next known request. Recovery reads on with next, and a scanner
// error met there has no caller left to catch it, so it is reported here and
// the skipping goes on behind the bytes that the failed scan consumed.
void parserib::recover() {
  for (;;) {
    try {
      panic();
      return;
    } catch (const RIBException& e) {
      report(e);
    }
  }
}

void parserib::guardedStatement() {
  try {
    statement();
  } catch (const RIBException& e) {
    report(e);
    recover();
  }
}

// The very first fetch, which stands outside the statement guard. On a scanner
// error `token` stays LEXNONE; recovery then skips on as after any bad request.
// Returns 0 when the fetch failed and recovery has run instead.
int16_t parserib::fetch() {
  try {
    token = lex.next();
    return 1;
  } catch (const RIBException& e) {
    report(e);
    recover();
    return 0;
  }
}

int16_t parserib::parse1() {
  NewHandlerScope scope(outOfMemory);
  // A first call whose fetch failed has recovered and, like any call that met
  // junk, returns without running a handler.
  if (token == LEXNONE && !fetch()) return token != LEXEOF;
  if (token != LEXEOF) guardedStatement();
  return token != LEXEOF;
}

void parserib::parse() {
  NewHandlerScope scope(outOfMemory);
  Begin();
  fetch();
  while (token != LEXEOF) guardedStatement();
  End();
}

void parserib::statement() {
  handler_t handler = nullptr;
  if (match(handler)) (this->*handler)();
}

// The scanner's text up to its first NUL. A scan that failed half-way may have
// left it unterminated, so its count bounds the search.
static uint32_t wordLength(const Array<char>& text) {
  const void* nul = std::memchr(text.data, '\0', text.count);
  return nul ? static_cast<uint32_t>(static_cast<const char*>(nul) - text.data) : text.count;
}

// One hash of the word, then one bucket walk; no String is made.
const parserib::keyword_assoc* parserib::lookupCurrentWord() const {
  const char* word = lex.text.data;
  const uint32_t n = wordLength(lex.text);
  const List<keyword_assoc>* bucket = keywords.table[String::hash(word, n) % keywords.size];
  for (const ListElement<keyword_assoc>* e = bucket ? bucket->head : nullptr; e; e = e->next) {
    const String& keyword = e->value.keyword;
    if (keyword.size() == n && std::memcmp(keyword.c_str(), word, n) == 0) return &e->value;
  }
  return nullptr;
}

int16_t parserib::match(handler_t& handler) {
  if (token != LEXKEYWORD) {
    lex.RIBError(kRibSyntax, kRibError, "Expected Keyword");
    panic();
    return 0;
  }
  const keyword_assoc* found = lookupCurrentWord();
  if (found == nullptr) {
    lex.RIBError(kRibUnknownRequest, kRibError, nullptr);
    panic();
    return 0;
  }
  handler = found->handler;
  token = lex.next();
  return 1;
}

void parserib::panic() {
  while (token != LEXEOF) {
    if (token == LEXKEYWORD && lookupCurrentWord() != nullptr) return;
    token = lex.next();
  }
}
