#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>

#include "SceneCaptureTest.h"
#include "host/widgets/QKuDockWidget.h"
#include "standalone/kernel/HostState.h"

using kuStandalone::HostState;

// The dialogue that a capture shows.

namespace {

class KuVariantsProgressDialogTest : public SceneCaptureTest {
 protected:
  KuVariantsProgressDialogTest() {
    dock = new QKuDockWidget("Variant Sets", &window);
    dock->setWidget(new QWidget);
    window.addDockWidget(Qt::LeftDockWidgetArea, dock);
    HostState::the().mainWindow = &window;
  }
  ~KuVariantsProgressDialogTest() override { HostState::the().mainWindow = nullptr; }

  static QWidget* parentGiven() {
    QProgressDialog dialog;
    kuVariants::initVSetProgressDialog(&dialog);
    return dialog.parentWidget();
  }

  QMainWindow window;
  QKuDockWidget* dock;
};

}  // namespace

TEST_F(KuVariantsProgressDialogTest, NullDoesNothing) {
  kuVariants::initVSetProgressDialog(nullptr);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(KuVariantsProgressDialogTest, ShowsABusyIndicatorWithoutButtons) {
  QProgressDialog dialog;
  kuVariants::initVSetProgressDialog(&dialog);
  EXPECT_EQ(dialog.minimum(), 0);
  EXPECT_EQ(dialog.maximum(), 0);
  EXPECT_EQ(dialog.windowTitle(), "Variant Set: Capture Variant...");
  EXPECT_EQ(int(dialog.windowFlags()), 0x2001001);
  EXPECT_EQ(dialog.findChild<QPushButton*>(), nullptr);
  EXPECT_TRUE(dialog.isModal());
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(QApplication::activeModalWidget(), &dialog);
}

TEST_F(KuVariantsProgressDialogTest, LabelIsOfAFixedWidth) {
  QProgressDialog dialog;
  kuVariants::initVSetProgressDialog(&dialog);
  const QList<QLabel*> labels = dialog.findChildren<QLabel*>();
  ASSERT_EQ(labels.size(), 1);
  const QLabel& label = *labels.front();
  EXPECT_EQ(label.text(), "Capturing Variant Set ...");
  EXPECT_EQ(dialog.labelText(), "Capturing Variant Set ...");
  EXPECT_EQ(label.sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
  EXPECT_EQ(label.sizePolicy().verticalPolicy(), QSizePolicy::Expanding);
  EXPECT_EQ(label.minimumSize(), QSize(256, 32));
  EXPECT_EQ(label.maximumWidth(), 256);
  EXPECT_TRUE(label.wordWrap());
  EXPECT_EQ(label.alignment(), Qt::AlignLeft | Qt::AlignVCenter);
}

TEST_F(KuVariantsProgressDialogTest, ParentIsTheWidgetOfAVisibleDock) {
  window.show();
  EXPECT_EQ(parentGiven(), dock->widget());
}

TEST_F(KuVariantsProgressDialogTest, ParentIsTheMainWindowWhereTheDockIsHidden) {
  window.show();
  dock->hide();
  EXPECT_EQ(parentGiven(), &window);
}

TEST_F(KuVariantsProgressDialogTest, ParentIsTheMainWindowWhereNoDockHasTheTitle) {
  window.show();
  dock->setWindowTitle("Variant sets");
  EXPECT_EQ(parentGiven(), &window);
}

TEST_F(KuVariantsProgressDialogTest, ThereIsNoParentWithoutAMainWindow) {
  HostState::the().mainWindow = nullptr;
  EXPECT_EQ(parentGiven(), nullptr);
}

TEST_F(KuVariantsProgressDialogTest, CaptureLeavesNoDialogueBehind) {
  window.show();
  capture(everything());
  EXPECT_EQ(window.findChild<QProgressDialog*>(), nullptr);
  EXPECT_EQ(window.cursor().shape(), Qt::ArrowCursor);
}
