#include "frontend/gui/quitsignals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <cerrno>
#include <csignal>

namespace {

int gWrite = -1;
volatile std::sig_atomic_t gAsked = 0;

void onQuitSignal(int signal) {
  const int saved = errno;
  gAsked = 1;
  const unsigned char byte = static_cast<unsigned char>(signal);
  // A full pipe already holds a request; losing this one changes nothing.
  [[maybe_unused]] ssize_t n = write(gWrite, &byte, 1);
  errno = saved;
}

}  // namespace

TQuitSignals::TQuitSignals(QObject* parent) : QObject(parent) {
  int fds[2];
  if (pipe2(fds, O_CLOEXEC | O_NONBLOCK) != 0) return;
  fRead = fds[0];
  gWrite = fds[1];
  fNotifier = new QSocketNotifier(fRead, QSocketNotifier::Read, this);
  connect(fNotifier, &QSocketNotifier::activated, this, &TQuitSignals::readPipe);
  struct sigaction sa {};
  sa.sa_handler = onQuitSignal;
  sigemptyset(&sa.sa_mask);
  // The event loop's own system calls go on; the notifier sees the byte.
  sa.sa_flags = SA_RESTART | SA_RESETHAND;
  for (int signal : {SIGTERM, SIGHUP, SIGINT}) sigaction(signal, &sa, nullptr);
}

TQuitSignals::~TQuitSignals() {
  if (fRead < 0) return;
  for (int signal : {SIGTERM, SIGHUP, SIGINT}) std::signal(signal, SIG_DFL);
  close(fRead);
  close(gWrite);
  gWrite = -1;
}

void TQuitSignals::readPipe() {
  unsigned char bytes[16];
  while (read(fRead, bytes, sizeof bytes) > 0) {
  }
  emit quitRequested();
  gAsked = 0;
}

bool TQuitSignals::asked() {
  return gAsked != 0;
}
