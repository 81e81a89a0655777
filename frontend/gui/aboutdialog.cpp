#include "frontend/gui/aboutdialog.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "frontend/gui/rendapp.h"

namespace {

constexpr int kIconSize = 48;

QLabel* centred(const QString& text, const char* name) {
  auto* label = new QLabel(text);
  label->setObjectName(name);
  label->setAlignment(Qt::AlignCenter);
  return label;
}

}  // namespace

std::unique_ptr<QDialog> makeAboutDialog(QWidget* parent) {
  auto dialog = std::make_unique<QDialog>(parent);
  dialog->setWindowTitle("About RIB to Zelvane");
  auto* icon = centred(QString(), "icon");
  icon->setPixmap(TRendApp::programIcon().pixmap(kIconSize, kIconSize));
  auto* ok = new QPushButton("OK");
  ok->setObjectName("ok");
  ok->setDefault(true);
  QObject::connect(ok, &QPushButton::clicked, dialog.get(), &QDialog::accept);

  auto* layout = new QVBoxLayout(dialog.get());
  layout->addWidget(icon);
  layout->addWidget(centred("RIB to Zelvane Version 1.01", "version"));
  layout->addWidget(centred("Copyright (C) the RIB to ZEL developers.", "notice1"));
  layout->addWidget(centred("All rights reserved.", "notice2"));
  layout->addWidget(ok, 0, Qt::AlignHCenter);
  layout->setSizeConstraint(QLayout::SetFixedSize);
  return dialog;
}
