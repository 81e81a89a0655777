// Writes the pictures of the desktop program's windows: the main window with
// the log of a faulty file, the status dialog at its end, and the RIB
// Messages window. Run it on the offscreen platform from the repository:
//   QT_QPA_PLATFORM=offscreen rz_gui_screenshots docs
#include <QDir>
#include <QFile>
#include <QPixmap>
#include <QTemporaryDir>
#include <cstdio>

#include "frontend/gui/msgwindow.h"
#include "frontend/gui/progressdialog.h"
#include "frontend/gui/rendapp.h"
#include "frontend/gui/rendedit.h"
#include "frontend/gui/rendframe.h"
#include "tools/gui/guidriver.h"

namespace {

// A small scene with the kinds of mistakes a hand-edited file has: a missing
// number, unknown handles, short arrays, and values the Ri layer refuses.
const char* const kScene = R"(##RenderMan RIB
version 3.03
Format 640 480 1
Projection "perspective" "fov" [40]
Hider "scanline"
WorldBegin
  LightSource "distantlight" 1 "intensity" [0.8]
  AttributeBegin
    Color [1 0.4 0.1]
    Surface "plastic" "roughness" [0.2]
    Translate 0 0 5
    Sphere 1 -1 1
    Sphree 1 -1 1 360
  AttributeEnd
  AttributeBegin
    Orientation "sideways"
    Surface "plastic" "glossiness" [0.5]
    Cylinder 0.5 -1 1 360
    Illuminate 7 1
  AttributeEnd
  Polygon "P" [0 0 0 1 0 0 1 1]
  Bound 1 2 3
  ObjectInstance 3
WorldEnd
)";

bool save(QWidget* widget, const QDir& dir, const char* name) {
  QString path = dir.filePath(name);
  bool ok = widget->grab().save(path);
  std::printf("%s %s\n", ok ? "wrote" : "could not write", qPrintable(path));
  return ok;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: rz_gui_screenshots FOLDER\n");
    return 2;
  }
  TRendApp app(argc, argv);
  QDir dir(QString::fromLocal8Bit(argv[1]));
  app.InitMainWindow();
  app.fFrame->show();
  QTemporaryDir files;
  QFile scene(files.filePath("scene.rib"));
  if (!files.isValid() || !scene.open(QIODevice::WriteOnly) || scene.write(kScene) < 0) {
    std::fprintf(stderr, "could not write the scene in a temporary folder\n");
    return 1;
  }
  scene.close();
  bool ok = true;
  convert(scene.fileName(), files.filePath("scene.zel"), {},
          [&](TProgressDialog& dialog) { ok = save(&dialog, dir, "gui-dialog.png") && ok; });
  ok = save(app.fFrame, dir, "gui-main.png") && ok;
  if (gMsgWindow) {
    ok = save(gMsgWindow->window(), dir, "gui-messages.png") && ok;
  } else {
    std::fprintf(stderr, "the scene gave no Ri message\n");
    ok = false;
  }
  return ok ? 0 : 1;
}
