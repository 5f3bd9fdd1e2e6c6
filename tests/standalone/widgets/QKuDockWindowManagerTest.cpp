#include "host/widgets/QKuDockWindowManager.h"

#include <QMainWindow>

#include "host/kernel/kuController.h"
#include "host/widgets/QKuDockWidget.h"
#include "standalone/kernel/HostState.h"
#include "support/SceneTest.h"

namespace {

class QKuDockWindowManagerTest : public SceneTest {
 protected:
  ~QKuDockWindowManagerTest() override { kuStandalone::HostState::the().mainWindow = nullptr; }

  void openWindow() { kuStandalone::HostState::the().mainWindow = &window; }

  QKuDockWidget* addDock(const char* title) {
    auto* dock = new QKuDockWidget(title, &window);
    window.addDockWidget(Qt::LeftDockWidgetArea, dock);
    return dock;
  }

  QMainWindow window;
  QKuDockWindowManager& manager = *kuController::getDockWindowManager();
};

}  // namespace

TEST_F(QKuDockWindowManagerTest, IsAlwaysTheSame) {
  EXPECT_EQ(kuController::getDockWindowManager(), &manager);
}

TEST_F(QKuDockWindowManagerTest, HasNothingWithoutAWindow) {
  addDock("Variant Sets");
  EXPECT_EQ(manager.getDockWidget("Variant Sets"), nullptr);
}

TEST_F(QKuDockWindowManagerTest, FindsADockByItsExactTitle) {
  openWindow();
  addDock("Variants");
  QKuDockWidget* sets = addDock("Variant Sets");
  EXPECT_EQ(manager.getDockWidget("Variant Sets"), sets);
  EXPECT_EQ(manager.getDockWidget("variant sets"), nullptr);
  EXPECT_EQ(manager.getDockWidget(""), nullptr);
}

TEST_F(QKuDockWindowManagerTest, FirstOfTwoDocksOfOneTitleWins) {
  openWindow();
  QKuDockWidget* first = addDock("Variant Sets");
  addDock("Variant Sets");
  EXPECT_EQ(manager.getDockWidget("Variant Sets"), first);
}

TEST_F(QKuDockWindowManagerTest, HiddenAndFloatingDocksAreFound) {
  openWindow();
  QKuDockWidget* dock = addDock("Variant Sets");
  dock->setFloating(true);
  dock->hide();
  EXPECT_EQ(manager.getDockWidget("Variant Sets"), dock);
}

TEST_F(QKuDockWindowManagerTest, DockOfAnotherClassIsNotFound) {
  openWindow();
  window.addDockWidget(Qt::LeftDockWidgetArea, new QDockWidget("Variant Sets", &window));
  EXPECT_EQ(manager.getDockWidget("Variant Sets"), nullptr);
}
