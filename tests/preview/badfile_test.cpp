// Scene files the preview cannot draw, and what it says about each.
#include <gtest/gtest.h>

#include "preview/previewerror.h"
#include "tests/preview/pictures.h"

namespace {

std::string failure(const std::string& records) {
  try {
    picture(records);
  } catch (const ZelReadError& e) {
    return e.what();
  } catch (const PreviewError& e) {
    return e.what();
  }
  return "";
}

TEST(PreviewBadFile, SaysWhatAndWhere) {
  const std::string scene = "{\"op\":\"SceneBegin\",\"args\":[]}\n";
  struct Case {
    std::string records, message;
  } cases[] = {
      {scene + "{\"op\":\"SphereV\",\"args\":[1,-1,1",
       "ZEL line 3: the last record has no line end: the file was cut short"},
      {scene + "{\"op\":\"PolygonMeshV\",\"args\":[1000000000,[4],[0,1,2,3]],\"params\":[]}\n",
       "ZEL line 3: PolygonMeshV: argument 2 holds 1 counts, not 1000000000"},
      {scene + "{\"op\":\"PolygonMeshV\",\"args\":[1,[4],[0,1,2,99999999]],\"params\":[]}\n",
       "ZEL line 3: PolygonMeshV: needs 100000000 points in \"P\" or \"Pw\", has 0"},
      {scene + "{\"op\":\"PatchMeshV\",\"args\":[1793,-4,2561,4,2561],\"params\":[]}\n",
       "ZEL line 3: PatchMeshV: count -4 out of range (0 to 16777216)"},
      {scene + "{\"op\":\"SphereV\",\"args\":[1,-1],\"params\":[]}\n",
       "ZEL line 3: SphereV: has 2 arguments, needs 3 or more"},
      {scene + "{\"op\":\"Translate\",\"args\":[\"x\",0,0]}\n",
       "ZEL line 3: Translate: argument 1: ZEL value is not a float"},
      {scene + "{\"op\":\"NurbMeshV\",\"args\":[4,5,[0,0,0,0,1,1,1,1,1],0,1,2,2,[0,0,1,1],0,1],"
               "\"params\":[]}\n",
       "ZEL line 3: NurbMeshV: order 5 does not fit 4 control points"},
  };
  for (const Case& c : cases) EXPECT_EQ(failure(c.records), c.message) << c.records;
}

TEST(PreviewBadFile, NotesWhatItPassesOver) {
  std::istringstream in(
      "{\"format\":\"ZEL\",\"version\":1,\"generator\":\"test\"}\n"
      "{\"op\":\"SceneBegin\",\"args\":[]}\n{\"op\":\"Teapot\",\"args\":[]}\n"
      "{\"op\":\"Teapot\",\"args\":[]}\n{\"op\":\"System\",\"args\":[\"rm -rf /\"]}\n");
  EXPECT_EQ(readScene(in).notes,
            (std::vector<std::string>{"ZEL line 3: Teapot: unknown record, passed over",
                                      "the scene file ends before its scene does"}));
}

}  // namespace
