#include "frontend/archivefiles.h"

#include "frontend/gzipbytesource.h"
#include "frontend/inputfile.h"

namespace {

// Holds the file, which must exist before the source that reads it.
struct openedfile {
  inputfile file;
};

// A source that owns the file it reads.
template <class Source>
class archivesource : private openedfile, public Source {
 public:
  archivesource() : Source(file) {}
  inputfile& input() { return file; }
};

template <class Source>
std::unique_ptr<archivesource<Source>> openAs(const std::string& path,
                                              const inputfile::stopcheck& stop,
                                              std::string& problem) {
  auto source = std::make_unique<archivesource<Source>>();
  if (source->input().open(path, stop)) return source;
  problem = source->input().problem();
  return nullptr;
}

}  // namespace

std::unique_ptr<bytesource> archivefiles::open(const std::string& path, std::string& problem) {
  // "-" would be standard input to inputfile; an archive is always a file.
  if (path == "-") return open("./-", problem);
  auto plain = openAs<plainbytesource>(path, stop_, problem);
  if (!plain) return nullptr;
  size_t n = 0;
  const unsigned char* head = plain->input().peek(2, n);
  if (!gzipbytesource::recognises(head, n)) return plain;
  plain.reset();
  return openAs<gzipbytesource>(path, stop_, problem);
}
