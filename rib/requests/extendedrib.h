// The extended reader: the classic reader with the forms of later versions of
// the interface. It adds requests of its own (a table of words and handlers,
// below) and widens some classic ones (string light and object handles,
// version numbers up to 3.04). Archives are played by readers of their own,
// stacked over this one, each with its scanner (its own name, line count and
// binary definitions); they read on with the state this one hands over.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "interface/ritypes.h"
#include "rib/archiveopener.h"
#include "rib/requests/rendrib.h"

struct archivestate;

class extendedrib : public rendrib {
 public:
  // `folder` is where archive paths of the stream are resolved from (the
  // folder of the input file; empty for the current folder). `opener` may be
  // null: then only inline archives can be read. `options` are taken with
  // `extended` set.
  extendedrib(bytesource& in, const char* name, std::string folder, archiveopener* opener,
              readeroptions options = {});
  ~extendedrib() override;

  // The innermost archive being played reads the next statement.
  int16_t parse1() override;
  void parse() override;

  void version() override;
  void Declare() override;
  void Option() override;
  void LightSource() override;
  void AreaLightSource() override;
  void Illuminate() override;
  void ObjectBegin() override;
  void ObjectInstance() override;

  // Requests of the extended reader alone (archives.cpp, procedurals.cpp).
  void ReadArchive();
  void ArchiveBegin();
  void ArchiveEnd();
  void Procedural();
  void Procedural2();
  void System();

  // Requests of later versions: shading nodes (shading_nodes.cpp); cameras,
  // spaces, channels and brick maps (cameras_spaces.cpp); resources,
  // conditionals and edits (scene_blocks.cpp); classic requests by the names
  // later versions added (named_forms.cpp).
  void Bxdf();
  void Pattern();
  void Light();
  void Integrator();
  void Displace();
  void DisplayFilter();
  void SampleFilter();
  void LightFilter();
  void Shader();
  void Camera();
  void CoordSysTransform();
  void ScopedCoordinateSystem();
  void ClippingPlane();
  void GeometricRepresentation();
  void DisplayChannel();
  void MakeBrickMap();
  void Resource();
  void ResourceBegin();
  void ResourceEnd();
  void IfBegin();
  void ElseIf();
  void Else();
  void IfEnd();
  void EditBegin();
  void EditEnd();
  void EditWorldBegin();
  void EditWorldEnd();
  void EditAttributeBegin();
  void EditAttributeEnd();
  void PixelFilter() override;
  void Projection() override;
  void Hider() override;
  void Display() override;
  // Geometry of later versions (subdivision.cpp, curves_points.cpp, blobby.cpp).
  void SubdivisionMesh();
  void HierarchicalSubdivisionMesh();
  void Points();
  void Curves();
  void Blobby();

 private:
  struct SubdivisionTags;
  void subdivisionMesh(bool hierarchical);
  int16_t matchTags(SubdivisionTags& tags, bool hierarchical);
  int16_t matchTagNames(std::vector<std::string>& names);
  int16_t checkFaces(const Array<int32_t>& nvertices, int32_t nfaces);
  int16_t curveCounts(const Array<int32_t>& nvertices, int32_t ncurves, bool cubic, bool periodic,
                      int32_t& varying);
  int16_t blobbyLeaves(const Array<int32_t>& code, int32_t ncode, int32_t nfloats, int32_t nstrings,
                       int32_t& leaves);

 protected:
  // The reader of an archive inside `outer`'s stream; `name` as the request
  // wrote it, which its reports give.
  extendedrib(bytesource& in, const char* name, std::string folder, std::string identity,
              extendedrib& outer);
  // Makes that reader; a subclass makes readers of its own kind.
  virtual std::unique_ptr<extendedrib> archiveReader(bytesource& in, const char* name,
                                                     std::string folder, std::string identity);

 private:
  void addRequests();
  void prepareScanner();
  // Archives (archives.cpp).
  void playArchive(const std::string& name, bool scoped);
  bool playInline(const std::string& name, bool scoped);
  std::string resolve(const std::string& name) const;
  bool enterable(const std::string& name, const std::string& identity);
  void pushArchive(std::unique_ptr<bytesource> source, std::shared_ptr<const std::string> text,
                   const std::string& name, std::string folder, std::string identity, bool scoped);
  void popArchive();
  void recordInline(const std::string& name);
  void trackSearchPath(const char* value);
  // Light and object handles given as strings (handles.cpp).
  void lightAfterName(const String& name, LightCall call) override;
  void* lookupHandle(std::unordered_map<std::string, void*>& table, const char* words);
  // Procedurals that are kept, not expanded (procedurals.cpp).
  int16_t matchStrings(std::vector<std::string>& out);
  void notExpanded(const char* what, const char* generator);

  // Requests of later versions (see above).
  using NodeCall = RtVoid (*)(RtToken, RtToken, RtInt, RtToken[], RtPointer[]);
  // Reads and plays one node; gives its handle, or false after a fault.
  bool shadingNode(NodeCall call, String* handle);
  void opens(uint8_t kind);
  bool closes(uint8_t kind);
  bool inIf(const char* request);
  void reportOpenBlocks();

  std::unique_ptr<archivestate> own_;  // the outermost reader's
  archivestate* state_;
  std::string folder_;    // where relative archive names start from
  std::string identity_;  // the file read, for finding cycles; empty when unknown
  std::string name_;      // an archive's name as written
};
