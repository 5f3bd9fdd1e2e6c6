#pragma once

#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

#include "Capture.h"

/** What of some captures the document does not hold, where the scene is not written with it. */
struct DocumentAlone {
  /** Switch materials that are made anew when the document is read. */
  QStringList madeAnew;
  /** Those of environments, which are made anew as plain ones. */
  QStringList madeAnewAsPlain;
  /** What a switch material of the scene's file took in: the switch and the material. Lost. */
  std::vector<std::pair<QString, QString>> grown;
  /** Lost, as all that follows. */
  QStringList viewpoints;
  /** The number of new names; what the sets hold for them then finds nothing. */
  std::size_t names = 0;
  /** The sets whose states in the render layers are lost. */
  QStringList renderLayers;
};

DocumentAlone documentAlone(const std::vector<CaptureReport>& reports);
