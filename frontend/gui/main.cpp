// rib2zel-gui: the desktop converter. It takes no arguments of its own.
#include <csignal>

#include "frontend/gui/rendapp.h"

int main(int argc, char** argv) {
  // A write beyond the file-size limit then fails like any other, and the
  // scene file is cut back to its last whole record.
  std::signal(SIGXFSZ, SIG_IGN);
  TRendApp app(argc, argv);
  return app.Run();
}
