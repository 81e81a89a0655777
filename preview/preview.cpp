#include "preview/preview.h"

#include <fstream>

#include "preview/png.h"
#include "preview/previewerror.h"

Image drawScene(const Scene& scene, std::optional<std::array<int32_t, 2>> size) {
  std::array<int32_t, 2> wh = size.value_or(scene.camera.imageSize());
  Renderer renderer;
  return renderer.draw(scene.mesh, scene.lighting, View(scene.camera, wh[0], wh[1]));
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
    Scene scene = readScene(in, kMaxTriangles, StillPicture{size});
    result.notes = scene.notes;
    result.error = writePng(drawScene(scene, size), pngPath);
  } catch (const ZelReadError& e) {
    result.error = e.what();
  } catch (const PreviewError& e) {
    result.error = e.what();
  } catch (const std::bad_alloc&) {
    result.error = "out of memory";
  }
  return result;
}
