#include "host/widgets/QKuDockWidget.h"

QKuDockWidget::~QKuDockWidget() = default;
