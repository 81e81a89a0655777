#include "frontend/gui/previewwindow.h"

#include <QFile>
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <fstream>

#include "preview/previewerror.h"

namespace {

constexpr float kDegreesPerPixel = 0.4f;
constexpr float kZoomPerNotch = 0.1f;

// The scene's view with its screen window widened or heightened to the
// window's shape, so that the picture is not stretched.
View fitted(const Camera& camera, int32_t width, int32_t height) {
  View v(camera, std::max(width, 1), std::max(height, 1));
  float cx = (v.screen[0] + v.screen[1]) / 2, cy = (v.screen[2] + v.screen[3]) / 2;
  float hw = (v.screen[1] - v.screen[0]) / 2, hh = (v.screen[3] - v.screen[2]) / 2;
  float aspect = float(v.width) / float(v.height);
  if (hw / hh < aspect) {
    hw = hh * aspect;
  } else {
    hh = hw / aspect;
  }
  v.screen = {cx - hw, cx + hw, cy - hh, cy + hh};
  return v;
}

}  // namespace

TPreviewWindow* TPreviewWindow::open(const QString& scenePath, QWidget* parent, QString& error) {
  std::ifstream in(QFile::encodeName(scenePath).toStdString(), std::ios::binary);
  if (!in) {
    error = "Cannot open the scene file " + scenePath + ".";
    return nullptr;
  }
  try {
    return new TPreviewWindow(readScene(in), parent);
  } catch (const ZelReadError& e) {
    error = QString::fromLocal8Bit(e.what());
  } catch (const PreviewError& e) {
    error = QString::fromLocal8Bit(e.what());
  } catch (const std::bad_alloc&) {
    error = "Out of memory.";
  }
  return nullptr;
}

TPreviewWindow::TPreviewWindow(Scene scene, QWidget* parent)
    : QWidget(parent, Qt::Window), fScene(std::move(scene)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setFocusPolicy(Qt::StrongFocus);
  setToolTip(
      "Drag: orbit   Wheel: nearer, farther   F: the whole scene   Home: the scene's camera");
  Vec3 lo{INFINITY, INFINITY, INFINITY}, hi{-INFINITY, -INFINITY, -INFINITY};
  for (const MeshVertex& v : fScene.mesh.vertices) {
    lo = {std::min(lo.x, v.p.x), std::min(lo.y, v.p.y), std::min(lo.z, v.p.z)};
    hi = {std::max(hi.x, v.p.x), std::max(hi.y, v.p.y), std::max(hi.z, v.p.z)};
  }
  if (!fScene.mesh.vertices.empty()) {
    fCentre = (lo + hi) * 0.5f;
    fRadius = std::max(length(hi - lo) / 2, 1e-6f);
  }
  std::array<int32_t, 2> size = fScene.camera.imageSize();
  resize(std::min(size[0], 1280), std::min(size[1], 960));
  home();
}

void TPreviewWindow::home() {
  fView = fitted(fScene.camera, width(), height());
  update();
}

Vec3 TPreviewWindow::pivot() const {
  return fView.worldToCamera.point(fCentre);
}

void TPreviewWindow::moveCamera(const Mat4& inCameraSpace) {
  fView.worldToCamera = fView.worldToCamera * inCameraSpace;
  fView.cameraToWorld = fView.worldToCamera.inverseAffine();
  update();
}

void TPreviewWindow::frameAll() {
  Vec3 p = pivot();
  float half = std::min(fView.screen[1] - fView.screen[0], fView.screen[3] - fView.screen[2]) / 2;
  if (fView.perspective) {
    float distance = fRadius * std::sqrt(1 + std::pow(fView.scale / half, 2.0f));
    moveCamera(Mat4::translate(-p.x, -p.y, distance - p.z));
  } else {
    float s = half / fRadius;
    moveCamera(Mat4::translate(-p.x, -p.y, 2 * fRadius - p.z) * Mat4::scale(s, s, s));
  }
}

void TPreviewWindow::orbit(float across, float up) {
  Vec3 p = pivot();
  moveCamera(Mat4::translate(-p.x, -p.y, -p.z) * Mat4::rotate(-across, {0, 1, 0}) *
             Mat4::rotate(up, {1, 0, 0}) * Mat4::translate(p.x, p.y, p.z));
}

void TPreviewWindow::zoom(float fraction) {
  Vec3 p = pivot();
  if (fView.perspective) {
    moveCamera(Mat4::translate(0, 0, -p.z * fraction));
  } else {
    float s = 1 / (1 - std::clamp(fraction, -0.9f, 0.9f));
    moveCamera(Mat4::translate(-p.x, -p.y, 0) * Mat4::scale(s, s, 1) *
               Mat4::translate(p.x, p.y, 0));
  }
}

void TPreviewWindow::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor(64, 64, 64));
  fView.width = std::max(width(), 1);
  fView.height = std::max(height(), 1);
  const Image& image = fRenderer.draw(fScene.mesh, fScene.lighting, fView);
  painter.drawImage(0, 0,
                    QImage(image.rgba.data(), image.width, image.height, QImage::Format_RGBA8888));
}

void TPreviewWindow::resizeEvent(QResizeEvent* event) {
  // The screen window keeps its height and takes the window's shape.
  View shaped = fitted(fScene.camera, width(), height());
  float hh = (fView.screen[3] - fView.screen[2]) / 2, cy = (fView.screen[2] + fView.screen[3]) / 2;
  float cx = (fView.screen[0] + fView.screen[1]) / 2,
        aspect = float(shaped.width) / float(shaped.height);
  if (fView.width > 0) fView.screen = {cx - hh * aspect, cx + hh * aspect, cy - hh, cy + hh};
  QWidget::resizeEvent(event);
}

void TPreviewWindow::mousePressEvent(QMouseEvent* event) {
  fLast = event->position().toPoint();
}

void TPreviewWindow::mouseMoveEvent(QMouseEvent* event) {
  QPoint now = event->position().toPoint();
  QPoint d = now - fLast;
  fLast = now;
  orbit(d.x() * kDegreesPerPixel, d.y() * kDegreesPerPixel);
}

void TPreviewWindow::wheelEvent(QWheelEvent* event) {
  zoom(event->angleDelta().y() / 120.0f * kZoomPerNotch);
}

void TPreviewWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F) {
    frameAll();
  } else if (event->key() == Qt::Key_Home) {
    home();
  } else {
    QWidget::keyPressEvent(event);
  }
}
