#include "preview/preview.h"

#include <fstream>

#include "preview/png.h"
#include "preview/previewerror.h"

Image drawScene(const Scene& scene, std::optional<std::array<int32_t, 2>> size) {
  std::array<int32_t, 2> wh = size.value_or(scene.camera.imageSize());
  Renderer renderer;
  return renderer.draw(scene.mesh, scene.lighting, View(scene.camera, wh[0], wh[1]));
}

Image stillPicture(std::istream& in, std::optional<std::array<int32_t, 2>> size,
                   std::vector<std::string>& notes, size_t maxTriangles) {
  Renderer renderer;
  bool started = false;
  auto draw = [&](Scene& scene, bool last) {
    // Until a light has a direction, the eye's may yet light every surface.
    if (scene.mesh.indices.empty() || (!last && headlit(scene.lighting))) return;
    if (!started) {
      std::array<int32_t, 2> wh = size.value_or(scene.camera.imageSize());
      renderer.start(View(scene.camera, wh[0], wh[1]));
      started = true;
    }
    renderer.add(scene.mesh, scene.lighting);
    scene.mesh.vertices.clear();
    scene.mesh.indices.clear();
  };
  Scene scene = readScene(in, maxTriangles, StillPicture{size}, [&](Scene& s) { draw(s, false); });
  draw(scene, true);
  notes = std::move(scene.notes);
  if (!started) return drawScene(scene, size);
  return renderer.image();
}

PreviewResult previewFile(const std::string& scenePath, const std::string& pngPath,
                          std::optional<std::array<int32_t, 2>> size) {
  PreviewResult result;
  std::ifstream in(scenePath, std::ios::binary);
  if (!in) {
    result.error = "cannot open the scene file \"" + scenePath + "\"";
    return result;
  }
  try {
    Image image = stillPicture(in, size, result.notes);
    result.error = writePng(image, pngPath);
  } catch (const ZelReadError& e) {
    result.error = e.what();
  } catch (const PreviewError& e) {
    result.error = e.what();
  } catch (const std::bad_alloc&) {
    result.error = "out of memory";
  }
  return result;
}
