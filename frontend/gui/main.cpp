// rib2zel-gui: the desktop converter. It takes no arguments of its own.
#include "frontend/gui/rendapp.h"

int main(int argc, char** argv) {
  TRendApp app(argc, argv);
  return app.Run();
}
