// The example scenes drawn at half their size, against the pictures in
// tests/golden/preview. RZ_UPDATE_PICTURES=1 writes the pictures instead.
#include <gtest/gtest.h>
#include <png.h>

#include <cstdlib>
#include <fstream>

#include "preview/png.h"
#include "preview/preview.h"

namespace {

// Pixels may differ by rounding where triangles meet; more than this many
// (per mille) is a change.
constexpr int64_t kPerMille = 5;
constexpr int32_t kChannelSlack = 8;

std::string source() {
  const char* dir = std::getenv("RZ_SOURCE_DIR");
  return dir ? dir : ".";
}

Image readPng(const std::string& path) {
  png_image png{};
  png.version = PNG_IMAGE_VERSION;
  Image image;
  if (!png_image_begin_read_from_file(&png, path.c_str())) return image;
  png.format = PNG_FORMAT_RGBA;
  image.rgba.resize(PNG_IMAGE_SIZE(png));
  if (png_image_finish_read(&png, nullptr, image.rgba.data(), 0, nullptr)) {
    image.width = static_cast<int32_t>(png.width);
    image.height = static_cast<int32_t>(png.height);
  }
  return image;
}

int64_t differing(const Image& a, const Image& b) {
  int64_t n = 0;
  for (size_t i = 0; i < a.rgba.size(); i += 4) {
    for (size_t c = 0; c < 4; ++c) {
      if (std::abs(a.rgba[i + c] - b.rgba[i + c]) > kChannelSlack) {
        ++n;
        break;
      }
    }
  }
  return n;
}

std::vector<std::string> sceneNames() {
  std::ifstream list(source() + "/tests/golden/scenes.txt");
  std::vector<std::string> names{"extended/modern"};
  for (std::string line; std::getline(list, line);) {
    if (!line.empty() && line[0] != '#') names.push_back(line);
  }
  return names;
}

TEST(PreviewGolden, ExampleScenesLookAsBefore) {
  std::vector<std::string> names = sceneNames();
  ASSERT_GT(names.size(), 1u);
  bool update = std::getenv("RZ_UPDATE_PICTURES") != nullptr;
  for (const std::string& name : names) {
    std::ifstream in(source() + "/tests/golden/" + name + ".zel");
    Scene scene = readScene(in);
    std::array<int32_t, 2> size = scene.camera.imageSize();
    Image got = drawScene(scene, std::array<int32_t, 2>{size[0] / 2, size[1] / 2});
    std::string picture =
        source() + "/tests/golden/preview/" + name.substr(name.find('/') + 1) + ".png";
    if (update) {
      EXPECT_EQ(writePng(got, picture), "");
      continue;
    }
    Image want = readPng(picture);
    ASSERT_EQ(want.width, got.width) << picture;
    ASSERT_EQ(want.height, got.height) << picture;
    EXPECT_LE(differing(got, want) * 1000, kPerMille * got.width * got.height) << picture;
  }
}

// Drawn while the file is read, leaving out what it cannot show, a picture
// is still the whole scene's, pixel for pixel.
TEST(PreviewGolden, StillPictureIsTheWholeScenes) {
  for (const std::string& name : sceneNames()) {
    std::string path = source() + "/tests/golden/" + name + ".zel";
    std::ifstream whole(path), still(path);
    std::vector<std::string> notes;
    EXPECT_EQ(stillPicture(still, std::nullopt, notes).rgba,
              drawScene(readScene(whole), std::nullopt).rgba)
        << name;
  }
}

}  // namespace
