#pragma once

#include <QStringList>
#include <vector>

#include "Selection.h"
#include "standalone/kernel/MessageWatch.h"

/** What happens to the scene while this lives, be it from here or from a partner. */
class SceneChanges {
 public:
  SceneChanges();

  /** The sets that were selected since the last call, and what has changed since. */
  SelectionReport take();

 private:
  QStringList _selected;
  std::vector<VariantChange> _before;
  QString _viewpoint;
  kuStandalone::MessageWatch _watch;
};

/** Whether anything was selected or has changed. */
bool tellsAnything(const SelectionReport& report);
