#include <QCoreApplication>
#include <QLabel>
#include <QMainWindow>
#include <QProgressDialog>

#include "host/kernel/kuController.h"
#include "host/widgets/QKuDockWidget.h"
#include "host/widgets/QKuDockWindowManager.h"
#include "manager/kuVariants.h"

// The dialogue that a capture shows.

namespace {

QWidget* parentOfDialog() {
  const QKuDockWidget* dock =
      kuController::getDockWindowManager()->getDockWidget(kuVariants::tr("Variant Sets"));
  return dock && dock->isVisible() ? dock->widget() : kuController::getMainWindow();
}

QLabel* captureLabel() {
  auto* label = new QLabel(kuVariants::tr("Capturing Variant Set ..."));
  label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  label->setFixedWidth(256);
  label->setMinimumHeight(32);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  return label;
}

}  // namespace

void kuVariants::initVSetProgressDialog(QProgressDialog* dialog) {
  if (!dialog) return;
  // Without a close button.
  dialog->setParent(parentOfDialog(), Qt::Window | Qt::WindowTitleHint | Qt::CustomizeWindowHint);
  dialog->setRange(0, 0);
  dialog->setWindowTitle(tr("Variant Set: Capture Variant..."));
  dialog->setCancelButton(nullptr);
  dialog->setLabel(captureLabel());
  dialog->setModal(true);
  dialog->show();
  dialog->raise();
  dialog->activateWindow();
  QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}
