#include "tests/frontend/testdata.h"

#include <zlib.h>

#include <sstream>
#include <stdexcept>

#include "zel/reader/zelreader.h"

std::string gzipped(const std::string& bytes) {
  z_stream zs{};
  if (deflateInit2(&zs, Z_BEST_COMPRESSION, Z_DEFLATED, 16 + MAX_WBITS, 8, Z_DEFAULT_STRATEGY) !=
      Z_OK)
    throw std::runtime_error("deflateInit2 failed");
  std::string out(deflateBound(&zs, bytes.size()), '\0');
  zs.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  zs.avail_in = static_cast<uInt>(bytes.size());
  zs.next_out = reinterpret_cast<Bytef*>(out.data());
  zs.avail_out = static_cast<uInt>(out.size());
  int r = deflate(&zs, Z_FINISH);
  out.resize(zs.total_out);
  deflateEnd(&zs);
  if (r != Z_STREAM_END) throw std::runtime_error("deflate failed");
  return out;
}

std::vector<std::string> sceneops(const std::string& zelText) {
  std::istringstream in(zelText);
  ZelReader reader(in);
  std::vector<std::string> ops;
  ZelRecord record;
  while (reader.next(record)) ops.push_back(record.op);
  return ops;
}
