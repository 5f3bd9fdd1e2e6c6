#pragma once

#include <QDockWidget>

#include "host/kuHostExport.h"

/** A panel of the main window that can be docked. */
class KUHOST_EXPORT QKuDockWidget : public QDockWidget {
  Q_OBJECT

 public:
  using QDockWidget::QDockWidget;
  ~QKuDockWidget() override;
};
