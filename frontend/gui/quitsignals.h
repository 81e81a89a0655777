// SIGTERM, SIGHUP and SIGINT (a job system, a closing terminal, Ctrl-C in the
// terminal that started the program) as a request to quit, delivered in the
// event loop, so that a running conversion is cancelled between two
// statements and its scene file keeps whole records. A handler may do next
// to nothing, so it writes the signal's number to a pipe that a socket
// notifier watches. A second signal of the same kind finds the default action
// back in place and ends the program at once.
#pragma once

#include <QObject>

class QSocketNotifier;

class TQuitSignals : public QObject {
  Q_OBJECT

 public:
  explicit TQuitSignals(QObject* parent);
  ~TQuitSignals() override;

  // Whether a quit signal has come and not yet been handled in the event
  // loop: a conversion's stop check, which ends the input at once, for the
  // loop does not run while one endless token is read.
  static bool asked();

 signals:
  void quitRequested();

 private:
  void readPipe();

  int fRead = -1;
  QSocketNotifier* fNotifier = nullptr;
};
