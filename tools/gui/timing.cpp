// Times one conversion in the desktop program, from Convert to the finished
// dialog, in elapsed and processor time, for comparison with the command
// line on the same file:
//   QT_QPA_PLATFORM=offscreen rz_gui_timing INPUT OUTPUT
#include <QElapsedTimer>
#include <cstdio>
#include <ctime>

#include "frontend/gui/rendapp.h"
#include "frontend/gui/rendframe.h"
#include "tools/gui/guidriver.h"

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: rz_gui_timing INPUT OUTPUT\n");
    return 2;
  }
  TRendApp app(argc, argv);
  app.InitMainWindow();
  app.fFrame->show();
  QElapsedTimer clock;
  clock.start();
  std::clock_t cpuStart = std::clock();
  convertresult r = convert(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
  double seconds = static_cast<double>(clock.nsecsElapsed()) / 1e9;
  double cpu = static_cast<double>(std::clock() - cpuStart) / CLOCKS_PER_SEC;
  std::printf("%.3f s wall  %.3f s cpu  %s\n", seconds, cpu, qPrintable(r.status));
  return r.dialogShown ? 0 : 1;
}
