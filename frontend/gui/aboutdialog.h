// The About box: the program's icon, its name and version, and the
// ownership notice.
#pragma once

#include <QDialog>
#include <memory>

std::unique_ptr<QDialog> makeAboutDialog(QWidget* parent);
