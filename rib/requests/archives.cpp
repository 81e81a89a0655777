// ReadArchive, inline archives and the archive search path. An archive is
// played by a reader of its own over the archive's bytes, stacked on the
// reader that named it; the outermost reader steps the innermost one (see
// extendedrib::parse1), so reports, progress and cancelling work inside
// archives as outside.
#include <cinttypes>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "interface/ri.h"
#include "rib/requests/archivestate.h"
#include "rib/requests/extendedrib.h"
#include "rib/tokenvalue.h"

namespace fs = std::filesystem;

namespace {

// Inline archives are kept as their tokens in the binary encoding (exact for
// every value, strings with any bytes included) with the line ends between
// them, so that replaying them counts the same lines.
void putBigEndian(std::string& out, uint32_t v) {
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>((v >> shift) & 0xFF);
}

void putToken(std::string& out, int16_t token, const lexanrib& lex) {
  switch (token) {
    case LEXKEYWORD:
      out.append(lex.text.data, strnlen(lex.text.data, lex.text.count));
      out += ' ';
      break;
    case LEXINT:
      out += static_cast<char>(0x83);
      putBigEndian(out, static_cast<uint32_t>(lex.intvalue));
      break;
    case LEXFLOAT: {
      uint32_t bits;
      std::memcpy(&bits, &lex.floatvalue, sizeof bits);
      out += static_cast<char>(0xA4);
      putBigEndian(out, bits);
      break;
    }
    case LEXSTRING: {
      const uint32_t n = lex.text.count > 0 ? lex.text.count - 1 : 0;
      out += static_cast<char>(0xA3);
      putBigEndian(out, n);
      out.append(lex.text.data, n);
      break;
    }
    case '[':
    case ']':
      out += static_cast<char>(token);
      break;
    default:
      break;
  }
}

bool isWord(const lexanrib& lex, const char* word) {
  return std::strcmp(lex.text.data, word) == 0;
}

std::string inlineIdentity(const std::string& name) {
  return "\n" + name;  // no file path begins with a line end
}

}  // namespace

void extendedrib::ReadArchive() {
  String name;
  tokenvalue params;
  if (!match(&name) || !match(params, 1)) return;
  playArchive(name.c_str(), false);
}

void extendedrib::ArchiveBegin() {
  String name;
  tokenvalue params;
  if (!match(&name) || !match(params, 1)) return;
  recordInline(name.c_str());
}

void extendedrib::ArchiveEnd() {
  lex.RIBError(kRibSyntax, kRibError, "ArchiveEnd without ArchiveBegin");
}

// The requests up to the matching ArchiveEnd, nested inline archives
// included, are kept under the name instead of being played.
void extendedrib::recordInline(const std::string& name) {
  auto text = std::make_shared<std::string>();
  const uint32_t begun = lex.lastline;
  uint32_t line = lex.lastline;
  int32_t depth = 0;
  for (;;) {
    if (token == LEXEOF) {
      lex.RIBError(kRibSyntax, kRibError, "ArchiveBegin \"%s\" of line %ld has no ArchiveEnd",
                   name.c_str(), static_cast<long>(begun));
      return;
    }
    if (token == LEXKEYWORD && isWord(lex, "ArchiveEnd") && depth-- == 0) break;
    if (token == LEXKEYWORD && isWord(lex, "ArchiveBegin")) ++depth;
    if (token != LEXNONE) {
      text->append(static_cast<size_t>(lex.lastline - line), '\n');
      line = lex.lastline;
      putToken(*text, token, lex);
    }
    try {
      token = lex.next();
    } catch (const RIBException& e) {
      if (e.code != kRibReported) lex.RIBError(e.code, e.severity, "%s", e.message.c_str());
      token = LEXNONE;
    }
  }
  state_->inlines[name] = std::move(text);
  token = lex.next();
}

void extendedrib::playArchive(const std::string& name, bool scoped) {
  if (playInline(name, scoped)) return;
  if (state_->opener == nullptr) {
    lex.RIBError(kRibBadValue, kRibError, "No inline archive \"%s\" (files are not read here)",
                 name.c_str());
    return;
  }
  const std::string path = resolve(name);
  std::error_code ec;
  if (path.empty()) {
    lex.RIBError(kRibBadValue, kRibError, "Cannot find archive \"%s\"", name.c_str());
  } else if (fs::is_directory(path, ec)) {
    lex.RIBError(kRibBadValue, kRibError, "Archive \"%s\" is a directory", name.c_str());
  } else {
    const fs::path canonical = fs::weakly_canonical(path, ec);
    const std::string identity = ec ? path : canonical.string();
    if (!enterable(name, identity)) return;
    std::string problem;
    std::unique_ptr<bytesource> source = state_->opener->open(path, problem);
    if (!source) {
      lex.RIBError(kRibBadValue, kRibError, "Cannot read archive \"%s\": %s", name.c_str(),
                   problem.c_str());
      return;
    }
    pushArchive(std::move(source), nullptr, name, fs::path(path).parent_path().string(), identity,
                scoped);
  }
}

bool extendedrib::playInline(const std::string& name, bool scoped) {
  const auto found = state_->inlines.find(name);
  if (found == state_->inlines.end()) return false;
  const std::string identity = inlineIdentity(name);
  if (!enterable(name, identity)) return true;
  std::shared_ptr<const std::string> text = found->second;
  auto source = std::make_unique<memorybytesource>(text->data(), text->size());
  pushArchive(std::move(source), std::move(text), name, folder_, identity, scoped);
  return true;
}

// An absolute name as it is; a relative one against the folder of the file
// that holds the request, then each folder of the search path.
std::string extendedrib::resolve(const std::string& name) const {
  const fs::path written(name);
  std::vector<fs::path> tries;
  if (written.is_absolute()) {
    tries.push_back(written);
  } else {
    tries.push_back(fs::path(folder_) / written);
    for (const std::string& folder : state_->searchpath)
      tries.push_back(fs::path(folder) / written);
  }
  for (const fs::path& path : tries) {
    std::error_code ec;
    if (fs::exists(path, ec)) return path.string();
  }
  return "";
}

bool extendedrib::enterable(const std::string& name, const std::string& identity) {
  if (state_->plays >= archivestate::kMaxPlays) {
    lex.RIBError(kRibLimit, kRibError, "More than %" PRIu64 " archives played: \"%s\" is not read",
                 archivestate::kMaxPlays, name.c_str());
    return false;
  }
  if (state_->stack.size() >= archivestate::kMaxDepth) {
    lex.RIBError(kRibLimit, kRibError, "Archives nested more than %zu deep: \"%s\" is not read",
                 archivestate::kMaxDepth, name.c_str());
    return false;
  }
  bool cycle = identity == state_->outermost->identity_;
  for (const archivestate::frame& f : state_->stack)
    cycle = cycle || identity == f.reader->identity_;
  if (cycle) {
    lex.RIBError(kRibBadValue, kRibError, "Archive \"%s\" reads itself", name.c_str());
    return false;
  }
  ++state_->plays;
  return true;
}

void extendedrib::pushArchive(std::unique_ptr<bytesource> source,
                              std::shared_ptr<const std::string> text, const std::string& name,
                              std::string folder, std::string identity, bool scoped) {
  archivestate::frame f;
  f.source = std::move(source);
  f.text = std::move(text);
  f.scoped = scoped;
  f.reader = archiveReader(*f.source, name.c_str(), std::move(folder), std::move(identity));
  if (scoped) RiAttributeBegin();
  handOver(*f.reader);
  state_->stack.push_back(std::move(f));
}

std::unique_ptr<extendedrib> extendedrib::archiveReader(bytesource& in, const char* name,
                                                        std::string folder, std::string identity) {
  return std::unique_ptr<extendedrib>(
      new extendedrib(in, name, std::move(folder), std::move(identity), *this));
}

void extendedrib::popArchive() {
  archivestate::frame f = std::move(state_->stack.back());
  state_->stack.pop_back();
  extendedrib& below = state_->stack.empty() ? *state_->outermost : *state_->stack.back().reader;
  if (f.source->failed()) {
    f.reader->lex.RIBError(kRibBadValue, kRibError, "The archive could not be read to its end");
  }
  f.reader->handOver(below);
  if (f.scoped) RiAttributeEnd();
}

// Option "searchpath" "archive" (or "string archive") ["folder:folder"]: `&`
// is the previous path, `@` the default, the current folder. A relative
// folder is taken from the folder of the file that sets the path, so that a
// scene converts the same from wherever it is converted.
void extendedrib::trackSearchPath(const char* value) {
  std::vector<std::string> folders;
  const char* part = value;
  for (;;) {
    const char* end = std::strchr(part, ':');
    const std::string folder(part, end ? static_cast<size_t>(end - part) : std::strlen(part));
    if (folder == "&") {
      folders.insert(folders.end(), state_->searchpath.begin(), state_->searchpath.end());
    } else if (folder == "@") {
      folders.push_back(".");
    } else if (!folder.empty()) {
      folders.push_back((fs::path(folder_) / folder).string());
    }
    if (!end) break;
    part = end + 1;
  }
  state_->searchpath = std::move(folders);
}
