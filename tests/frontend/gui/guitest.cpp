#include "tests/frontend/gui/guitest.h"

#include <QApplication>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QTimer>

#include "frontend/gui/rendedit.h"

namespace {

constexpr int kPollMs = 2;

}  // namespace

bool answerModal(const std::function<void()>& action,
                 const std::function<void(QWidget& modal)>& answer) {
  bool seen = false;
  QTimer poll;
  poll.setInterval(kPollMs);
  QObject::connect(&poll, &QTimer::timeout, [&] {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal || seen) return;
    seen = true;
    answer(*modal);
    modal->close();
  });
  poll.start();
  action();
  return seen;
}

QByteArray spheres(int n) {
  QByteArray rib = "WorldBegin\n";
  for (int i = 0; i < n; ++i) rib += "Sphere 1 -1 1 360\n";
  return rib + "WorldEnd\n";
}

filledtext fill(TRendEdit& edit, int count, int columns) {
  edit.clear();
  QByteArray line(columns, 'M');
  for (int i = 0; i < count; ++i) edit.print(line.constData());
  edit.verticalScrollBar()->setValue(0);
  edit.grab();  // lays out what is visible, as painting does
  filledtext result;
  result.oneLineEach = true;
  QRect page = edit.viewport()->rect();
  for (QTextBlock b = edit.document()->firstBlock(); b.isValid(); b = b.next()) {
    QRect place = edit.cursorRect(QTextCursor(b));
    if (!page.contains(place)) break;
    ++result.linesShown;
    if (b.layout()->lineCount() != 1) result.oneLineEach = false;
  }
  edit.clear();
  return result;
}
