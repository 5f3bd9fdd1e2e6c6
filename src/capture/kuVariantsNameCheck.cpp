#include <QGuiApplication>
#include <QMainWindow>
#include <QMessageBox>
#include <QPushButton>

#include "capture/kuVariantCaptureChecker.h"
#include "host/kernel/kuController.h"
#include "manager/kuVariants.h"

// Whether the names of the scene allow a capture.

namespace {

/** The arrow in the place of the busy cursor, for as long as this lives. */
class ArrowCursor {
 public:
  ArrowCursor() { QGuiApplication::setOverrideCursor(Qt::ArrowCursor); }
  ~ArrowCursor() { QGuiApplication::restoreOverrideCursor(); }
  ArrowCursor(const ArrowCursor&) = delete;
  ArrowCursor& operator=(const ArrowCursor&) = delete;
};

}  // namespace

bool kuVariants::verifyNodeNames() {
  kuVariantCaptureChecker checker;
  if (!checker.hasAmbiguousNodes()) return true;
  if (!showAmbiguousNodesDialog(checker.containsAmbiguousVariantSets())) return false;
  checker.fixAmbiguousNodes();
  return true;
}

bool kuVariants::showAmbiguousNodesDialog(bool warnAboutVariantSets) {
  const ArrowCursor cursor;
  QString text =
      tr("Some nodes have the same name and/or node path. In order to continue, the names of those "
         "nodes will be changed.\n ");
  if (warnAboutVariantSets) {
    text += tr("\nWarning: Renaming might break existing variant sets!\n");
  }
  QMessageBox dialog(QMessageBox::Question, tr("Ambiguous node names detected"), text,
                     QMessageBox::Yes | QMessageBox::No, kuController::getMainWindow(),
                     Qt::Dialog | Qt::MSWindowsFixedSizeDialogHint);
  dialog.button(QMessageBox::Yes)->setText(tr("Rename"));
  dialog.button(QMessageBox::No)->setText(tr("Cancel"));
  return dialog.exec() == QMessageBox::Yes;
}
