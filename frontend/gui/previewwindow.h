// The Preview window: a scene file's first frame drawn by the preview
// renderer, from the scene's camera at first. Dragging with the mouse orbits
// the camera about the middle of the scene, the wheel moves it nearer or
// farther, F frames the whole scene and Home goes back to the scene's camera.
// The scene is tessellated once, when the window opens; each picture after
// that only draws.
#pragma once

#include <QPoint>
#include <QString>
#include <QWidget>

#include "preview/raster.h"
#include "preview/scene.h"

class TPreviewWindow : public QWidget {
  Q_OBJECT

 public:
  // Reads the scene file; returns null and sets error when it cannot be drawn.
  static TPreviewWindow* open(const QString& scenePath, QWidget* parent, QString& error);

  const View& view() const { return fView; }
  // The camera to the scene's own, fitted to the window's shape.
  void home();
  // The camera turned as it is, moved so that the whole scene is in sight.
  void frameAll();
  // Turns the camera about the middle of the scene, by degrees across and up.
  void orbit(float across, float up);
  // Moves the camera towards the middle of the scene by the fraction given (away when negative).
  void zoom(float fraction);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  TPreviewWindow(Scene scene, QWidget* parent);
  // The middle of the scene in camera space.
  Vec3 pivot() const;
  void moveCamera(const Mat4& inCameraSpace);

  Scene fScene;
  Vec3 fCentre;  // of the scene's bounding box, in world space
  float fRadius = 1;
  View fView;
  Renderer fRenderer;
  QPoint fLast;
};
