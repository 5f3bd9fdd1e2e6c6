#pragma once

#include <QString>

#include "host/kuHostExport.h"

class QKuDockWidget;

/** The dock widgets of the application. */
class KUHOST_EXPORT QKuDockWindowManager {
 public:
  QKuDockWindowManager(const QKuDockWindowManager&) = delete;
  QKuDockWindowManager& operator=(const QKuDockWindowManager&) = delete;

  /** The dock widget of that title, as the user reads it; null if there is none. */
  QKuDockWidget* getDockWidget(const QString& title) const;

 private:
  friend class kuController;
  QKuDockWindowManager() = default;
};
