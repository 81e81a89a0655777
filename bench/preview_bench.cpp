// The preview's speed, in two figures:
//   preview_bench SCENE.zel [RUNS]     reading the records alone; reading,
//                                      tessellating and drawing the whole
//                                      scene at 640x480 as the window does;
//                                      one picture at 640x480 as the
//                                      command line makes it
//   preview_bench --triangles N [RUNS] drawing a sphere of about N triangles
//                                      at 640x480, in pictures per second
// Each prints the median of RUNS (default 5).
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

#include "preview/builder.h"
#include "preview/preview.h"

namespace {

double medianSeconds(int32_t runs, const std::function<void()>& work) {
  std::vector<double> times;
  for (int32_t i = 0; i < runs; ++i) {
    auto start = std::chrono::steady_clock::now();
    work();
    times.push_back(
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2];
}

Scene sphereScene(size_t triangles) {
  Scene scene;
  scene.camera.perspective = true;
  scene.camera.fov = 40;
  scene.camera.worldToCamera = Mat4::translate(0, 0, 4);
  size_t side = static_cast<size_t>(std::sqrt(triangles / 2.0)) + 1;
  std::vector<Vec3> points;
  for (size_t j = 0; j < side; ++j) {
    float phi = (float(j) / float(side - 1) - 0.5f) * std::numbers::pi_v<float>;
    for (size_t i = 0; i < side; ++i) {
      float t = 2 * std::numbers::pi_v<float> * float(i) / float(side - 1);
      points.push_back({std::cos(phi) * std::cos(t), std::cos(phi) * std::sin(t), std::sin(phi)});
    }
  }
  Builder b(scene.mesh, kMaxTriangles);
  b.grid(points, {}, side, side);
  return scene;
}

// Each step of a scene file's preview, for the window and for one picture.
void benchFile(const std::string& path, int32_t runs) {
  auto readAll = [&](bool unread) {
    return medianSeconds(runs, [&] {
      std::ifstream in(path, std::ios::binary);
      ZelReader reader(in);
      if (unread) reader.leaveValuesUnread(unreadParameters());
      ZelRecord r;
      while (reader.next(r)) {
      }
    });
  };
  std::printf(
      "records read by zel/reader alone: %.3f s, leaving what the preview does not use: %.3f s\n",
      readAll(false), readAll(true));
  Scene scene;
  double read = medianSeconds(runs, [&] {
    std::ifstream in(path, std::ios::binary);
    scene = readScene(in);
  });
  Renderer renderer;
  View view(scene.camera, 640, 480);
  double draw = medianSeconds(runs, [&] { renderer.draw(scene.mesh, scene.lighting, view); });
  std::printf(
      "the window's whole scene: read and tessellate %.3f s, %zu triangles, draw at 640x480 %.3f "
      "s\n",
      read, scene.mesh.triangles(), draw);
  double still = medianSeconds(runs, [&] {
    std::ifstream in(path, std::ios::binary);
    std::vector<std::string> notes;
    stillPicture(in, std::array<int32_t, 2>{640, 480}, notes);
  });
  std::printf("one picture at 640x480: read, tessellate and draw %.3f s\n", still);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 2) {
    std::fprintf(stderr, "usage: preview_bench SCENE.zel [RUNS] | --triangles N [RUNS]\n");
    return 2;
  }
  std::string first = argv[1];
  bool synthetic = first == "--triangles";
  int32_t runs = argc > (synthetic ? 3 : 2) ? std::atoi(argv[synthetic ? 3 : 2]) : 5;
  runs = std::max(runs, 1);
  if (!synthetic) {
    benchFile(first, runs);
    return 0;
  }
  Scene scene = sphereScene(static_cast<size_t>(std::atoll(argc > 2 ? argv[2] : "1000000")));
  Renderer renderer;
  View view(scene.camera, 640, 480);
  double draw = medianSeconds(runs, [&] { renderer.draw(scene.mesh, scene.lighting, view); });
  std::printf("%zu triangles, %zu vertices: draw at 640x480 %.4f s, %.1f pictures/s\n",
              scene.mesh.triangles(), scene.mesh.vertices.size(), draw, 1 / draw);
  return 0;
}
