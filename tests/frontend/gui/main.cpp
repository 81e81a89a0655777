// Runs the desktop program's test suites in one TRendApp with its main window
// shown. An argument names the one suite to run; arguments after it go to
// Qt Test.
#include <QtTest>
#include <cstring>
#include <memory>

#include "frontend/gui/rendapp.h"
#include "frontend/gui/rendframe.h"
#include "tests/frontend/gui/suites.h"

namespace {

struct suite {
  const char* name;
  QObject* (*make)();
};

const suite kSuites[] = {
    {"mainwindow", makeMainWindowTest},
    {"convert", makeConvertTest},
    {"msgwindow", makeMsgWindowTest},
    {"previewwindow", makePreviewWindowTest},
};

}  // namespace

int main(int argc, char** argv) {
  TRendApp app(argc, argv);
  // Tests close windows and go on.
  app.setQuitOnLastWindowClosed(false);
  app.InitMainWindow();
  app.fFrame->show();

  const char* only = argc > 1 ? argv[1] : nullptr;
  // SIGTERM, SIGHUP and SIGINT are the program's own requests to quit, which
  // the tests send; Qt Test's crash handler would take them first.
  QStringList qtArgs{argv[0], "-nocrashhandler"};
  for (int i = 2; i < argc; ++i) qtArgs << argv[i];
  int failed = 0;
  bool ran = false;
  for (const suite& s : kSuites) {
    if (only && std::strcmp(only, s.name) != 0) continue;
    ran = true;
    std::unique_ptr<QObject> test(s.make());
    failed += QTest::qExec(test.get(), qtArgs);
  }
  if (!ran) {
    qWarning("no test suite named %s", only);
    return 2;
  }
  return failed == 0 ? 0 : 1;
}
