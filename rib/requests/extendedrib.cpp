// The extended reader's table of requests, its stepping through archives, and
// the classic requests it reads more widely.
#include "rib/requests/extendedrib.h"

#include <cstring>
#include <filesystem>
#include <system_error>

#include "interface/ri.h"
#include "interface/token.h"
#include "rib/inlinedeclaration.h"
#include "rib/requests/archivestate.h"
#include "rib/requests/handler_support.h"

namespace {

readeroptions withExtended(readeroptions options) {
  options.extended = true;
  return options;
}

// The protocol version of the newest forms this reader knows.
constexpr double kVersion = 3.04;

struct extendedrequest {
  const char* word;
  void (extendedrib::*handler)();
};

// The requests that only the extended reader knows. A new one is a row here
// and its handler.
const extendedrequest kRequests[] = {
    {"ReadArchive", &extendedrib::ReadArchive},
    {"ArchiveBegin", &extendedrib::ArchiveBegin},
    {"ArchiveEnd", &extendedrib::ArchiveEnd},
    {"Procedural", &extendedrib::Procedural},
    {"Procedural2", &extendedrib::Procedural2},
    {"System", &extendedrib::System},
    // Geometry of later versions
    {"SubdivisionMesh", &extendedrib::SubdivisionMesh},
    {"HierarchicalSubdivisionMesh", &extendedrib::HierarchicalSubdivisionMesh},
    {"Points", &extendedrib::Points},
    {"Curves", &extendedrib::Curves},
    {"Blobby", &extendedrib::Blobby},
};

// Shading nodes, cameras and spaces, resources, conditionals and edits
// (shading_nodes.cpp, cameras_spaces.cpp, scene_blocks.cpp).
const extendedrequest kShadingRequests[] = {
    {"Bxdf", &extendedrib::Bxdf},
    {"Pattern", &extendedrib::Pattern},
    {"Light", &extendedrib::Light},
    {"Integrator", &extendedrib::Integrator},
    {"Displace", &extendedrib::Displace},
    {"DisplayFilter", &extendedrib::DisplayFilter},
    {"SampleFilter", &extendedrib::SampleFilter},
    {"LightFilter", &extendedrib::LightFilter},
    {"Shader", &extendedrib::Shader},
    {"Camera", &extendedrib::Camera},
    {"CoordSysTransform", &extendedrib::CoordSysTransform},
    {"ScopedCoordinateSystem", &extendedrib::ScopedCoordinateSystem},
    {"ClippingPlane", &extendedrib::ClippingPlane},
    {"GeometricRepresentation", &extendedrib::GeometricRepresentation},
    {"DisplayChannel", &extendedrib::DisplayChannel},
    {"MakeBrickMap", &extendedrib::MakeBrickMap},
    {"Resource", &extendedrib::Resource},
    {"ResourceBegin", &extendedrib::ResourceBegin},
    {"ResourceEnd", &extendedrib::ResourceEnd},
    {"IfBegin", &extendedrib::IfBegin},
    {"ElseIf", &extendedrib::ElseIf},
    {"Else", &extendedrib::Else},
    {"IfEnd", &extendedrib::IfEnd},
    {"EditBegin", &extendedrib::EditBegin},
    {"EditEnd", &extendedrib::EditEnd},
    {"EditWorldBegin", &extendedrib::EditWorldBegin},
    {"EditWorldEnd", &extendedrib::EditWorldEnd},
    {"EditAttributeBegin", &extendedrib::EditAttributeBegin},
    {"EditAttributeEnd", &extendedrib::EditAttributeEnd},
};

std::string identityOf(const std::string& path) {
  std::error_code ec;
  std::filesystem::path canonical = std::filesystem::weakly_canonical(path, ec);
  return ec ? path : canonical.string();
}

}  // namespace

extendedrib::extendedrib(bytesource& in, const char* name, std::string folder,
                         archiveopener* opener, readeroptions options)
    : rendrib(in, name, withExtended(options)),
      own_(std::make_unique<archivestate>()),
      state_(own_.get()),
      folder_(std::move(folder)) {
  state_->opener = opener;
  state_->outermost = this;
  std::error_code ec;
  if (opener && std::filesystem::is_regular_file(name, ec)) identity_ = identityOf(name);
  addRequests();
  prepareScanner();
}

extendedrib::extendedrib(bytesource& in, const char* name, std::string folder, std::string identity,
                         extendedrib& outer)
    : rendrib(in, name, outer),
      state_(outer.state_),
      folder_(std::move(folder)),
      identity_(std::move(identity)),
      name_(name) {
  lex.name = name_.c_str();
  lex.nameInReports = true;
  prepareScanner();
}

// Every file may begin with a UTF-8 byte-order mark, which editors write and
// which would otherwise read as a byte of no token, ending the stream.
void extendedrib::prepareScanner() {
  lex.reportLosses = true;
  bytesource::cursor in(lex.stream);
  // The first read may bring fewer than three bytes (the front end reads a
  // few ahead to know the format), so the mark is matched byte by byte.
  for (const unsigned char mark : {0xEF, 0xBB, 0xBF}) {
    if (in.eof() || *in.peek() != mark) return;
    in.take(1);
  }
}

extendedrib::~extendedrib() = default;

void extendedrib::addRequests() {
  for (const extendedrequest& r : kRequests) {
    keywords.add({String(r.word), static_cast<handler_t>(r.handler)});
  }
  for (const extendedrequest& r : kShadingRequests) {
    keywords.add({String(r.word), static_cast<handler_t>(r.handler)});
  }
}

// The outermost reader steps the innermost archive; an archive read to its
// end gives the state back once the archives it opened have ended too.
int16_t extendedrib::parse1() {
  if (this != state_->outermost) return rendrib::parse1();
  std::vector<archivestate::frame>& stack = state_->stack;
  if (stack.empty()) {
    if (rendrib::parse1() || !stack.empty()) return 1;
    reportOpenBlocks();
    return 0;
  }
  const size_t top = stack.size() - 1;
  if (!stack[top].reader->parse1()) stack[top].ended = true;
  while (!stack.empty() && stack.back().ended) popArchive();
  return 1;
}

void extendedrib::parse() {
  Begin();
  while (parse1()) {
  }
  End();
}

// The declaration grammar of later versions; a declaration it does not take
// goes to RiDeclare, which reports it as the classic reader's does.
void extendedrib::Declare() {
  String name, declaration;
  if (!matchToken(&name) || !match(&declaration)) return;
  inlinedeclaration d;
  if (!parseDeclaration(declaration.c_str(), false, d)) {
    RiDeclare(ritext(name), ritext(declaration));
    return;
  }
  const uint16_t code = nameCode(name.c_str());
  if (code != 0 || find(name.c_str()) != nullptr) {
    declare(name.c_str(), code, d.type, d.tokenClass, d.size);
  }
}

void extendedrib::version() {
  float v;
  if (!match(v)) return;
  if (v - kVersion > 0.001)
    lex.RIBError(kRibVersion, kRibWarning, "Version %4.2f too new", static_cast<double>(v));
}

// Option "searchpath" is read here for its "archive" entry. The dictionary
// holds no "searchpath", so, as the classic reader does with such an option,
// nothing goes on to the Ri layer and other entries are passed over.
void extendedrib::Option() {
  if (token != LEXSTRING || std::strcmp(lex.text.data, "searchpath") != 0) {
    return rendrib::Option();
  }
  String name;
  match(&name);
  while (token == LEXSTRING) {
    String entry;
    match(&entry);
    if (std::strcmp(entry.c_str(), "archive") == 0 ||
        std::strcmp(entry.c_str(), "string archive") == 0) {
      String value;
      if (!match(&value)) return;
      trackSearchPath(value.c_str());
    } else if (!skipvalue()) {
      return;
    }
  }
}
