// What the readers of one extended conversion share: the archives being
// played, the inline archives defined, string handles, the archive search
// path. Owned by the outermost reader.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "rib/archiveopener.h"
#include "rib/bytesource.h"
#include "rib/requests/sceneblocks.h"

class extendedrib;

struct archivestate {
  // An archive being played, with the reader that plays it.
  struct frame {
    std::unique_ptr<bytesource> source;
    std::shared_ptr<const std::string> text;  // an inline archive's requests, kept alive
    std::unique_ptr<extendedrib> reader;
    bool scoped = false;  // played inside an attribute scope of its own
    bool ended = false;   // read to its end, waiting for the archives it opened
  };

  static constexpr size_t kMaxDepth = 64;
  // Archives that read others several times each could make a small file play
  // an astronomical number of requests; a conversion plays at most this many.
  static constexpr uint64_t kMaxPlays = 1000000;

  archiveopener* opener = nullptr;
  extendedrib* outermost = nullptr;
  std::vector<frame> stack;  // innermost last
  // Inline archives by name, as ArchiveBegin recorded them (see recordInline).
  std::unordered_map<std::string, std::shared_ptr<const std::string>> inlines;
  std::unordered_map<std::string, void*> lights;
  std::unordered_map<std::string, void*> objects;
  // Option "searchpath" "archive": the folders to try, in order.
  std::vector<std::string> searchpath;
  bool toldNotExpanded = false;
  // The resource, conditional and edit blocks open, innermost last.
  sceneblocks blocks;
  // The handles of Light nodes, which Illuminate may name.
  std::unordered_set<std::string> lightNodes;
  uint64_t plays = 0;
};
