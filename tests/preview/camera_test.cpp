// Pictures whose covered pixels follow from the camera conventions alone.
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "tests/preview/pictures.h"

namespace {

const std::string kOrtho200 =
    "{\"op\":\"RasterViewport\",\"args\":[0,199,0,199]}\n"
    "{\"op\":\"ViewOrthographic\",\"args\":[]}\n";
const std::string kScene = "{\"op\":\"SceneBegin\",\"args\":[]}\n";
const std::string kEnd = "{\"op\":\"SceneEnd\",\"args\":[]}\n";
// A square of side 1 about the origin, facing the camera at z 1.
const std::string kSquare =
    "{\"op\":\"PolygonV\",\"args\":[4],\"params\":[{\"code\":1,\"name\":\"P\",\"type\":4,"
    "\"class\":3,\"count\":12,\"values\":[-0.5,-0.5,1,0.5,-0.5,1,0.5,0.5,1,-0.5,0.5,1]}]}\n";

std::string patch(int basis) {
  std::string p;
  for (float y : {-0.75f, -0.25f, 0.25f, 0.75f}) {
    for (float x : {-0.75f, -0.25f, 0.25f, 0.75f}) {
      p += (p.empty() ? "" : ",") + std::to_string(x) + "," + std::to_string(y) + ",1";
    }
  }
  std::string b = std::to_string(basis);
  return "{\"op\":\"Basis\",\"args\":[2048," + b + "]}\n{\"op\":\"Basis\",\"args\":[2049," + b +
         "]}\n{\"op\":\"PatchV\",\"args\":[1793],\"params\":[{\"code\":1,\"name\":\"P\",\"type\":"
         "4,\"class\":3,\"count\":48,\"values\":[" +
         p + "]}]}\n";
}

TEST(PreviewCamera, SphereCoversTheDiscOfItsPerspectiveRadius) {
  struct Case {
    float fov, distance;
  } cases[] = {{90, 4}, {40, 10}, {60, 2.5f}};
  for (const Case& c : cases) {
    Image image = picture(
        "{\"op\":\"RasterViewport\",\"args\":[0,199,0,199]}\n"
        "{\"op\":\"ViewPerspective\",\"args\":[" +
        std::to_string(c.fov) + "]}\n" + kScene + "{\"op\":\"Translate\",\"args\":[0,0," +
        std::to_string(c.distance) +
        "]}\n"
        "{\"op\":\"SphereV\",\"args\":[1,-1,1,360],\"params\":[]}\n" +
        kEnd);
    float halfAngle = std::asin(1 / c.distance);
    float expected = std::tan(halfAngle) / std::tan(c.fov * std::numbers::pi_v<float> / 360) * 100;
    float radius = std::sqrt(coverage(image).pixels / std::numbers::pi_v<float>);
    EXPECT_NEAR(radius, expected, 1.0f) << "fov " << c.fov << ", distance " << c.distance;
  }
}

TEST(PreviewCamera, OrthographicPicturesCoverTheirExactRectangles) {
  struct Case {
    std::string camera, geometry;
    int64_t pixels;
    std::array<int32_t, 4> box;
  } cases[] = {
      {"", kSquare, 100 * 100, {50, 50, 149, 149}},
      // The camera transform moves world x +0.5 to the right, y +0.5 up.
      {"{\"op\":\"Translate\",\"args\":[0.5,0,0]}\n", kSquare, 100 * 100, {100, 50, 199, 149}},
      {"{\"op\":\"Translate\",\"args\":[0,0.5,0]}\n", kSquare, 100 * 100, {50, 0, 149, 99}},
      {"{\"op\":\"Scale\",\"args\":[0.5,1,1]}\n", kSquare, 50 * 100, {75, 50, 124, 149}},
      // A quarter turn about z takes +x to +y: the right half of the frame comes to the top.
      {"{\"op\":\"Rotate\",\"args\":[90,0,0,1]}\n{\"op\":\"Translate\",\"args\":[0.5,0,0]}\n",
       kSquare,
       100 * 100,
       {50, 0, 149, 99}},
      {"{\"op\":\"Clip\",\"args\":[2,10]}\n", kSquare, 0, {INT32_MAX, INT32_MAX, -1, -1}},
      // The Bezier basis reaches the outer control points, the B-spline basis a sixth inside them.
      {"", patch(0x0900), 150 * 150, {25, 25, 174, 174}},
      {"", patch(0x0901), 50 * 50, {75, 75, 124, 124}},
      // An object placed three times, the third outside the frame on the left.
      {"",
       "{\"op\":\"ObjectBegin\",\"args\":[],\"handle\":1}\n" + kSquare +
           "{\"op\":\"ObjectEnd\",\"args\":[]}\n{\"op\":\"ObjectCall\",\"args\":[1]}\n"
           "{\"op\":\"Translate\",\"args\":[0.5,0.5,0]}\n{\"op\":\"ObjectCall\",\"args\":[1]}\n"
           "{\"op\":\"Translate\",\"args\":[-4,0,0]}\n{\"op\":\"ObjectCall\",\"args\":[1]}\n",
       100 * 100 + 100 * 100 - 50 * 50,
       {50, 0, 199, 149}},
  };
  for (const Case& c : cases) {
    Coverage got = coverage(picture(kOrtho200 + c.camera + kScene + c.geometry + kEnd));
    EXPECT_EQ(got.pixels, c.pixels) << c.camera << c.geometry;
    EXPECT_EQ(got.box, c.box) << c.camera << c.geometry;
  }
}

}  // namespace
