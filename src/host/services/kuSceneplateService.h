#pragma once

#include <QList>
#include <QString>

#include "host/services/kuBaseService.h"
#include "host/services/kudNode.h"

/** The sceneplates as decoupled nodes. */
class KUHOST_EXPORT kuSceneplateService : public kuBaseService {
 public:
  /** All sceneplate nodes of that name, in the order of kuSceneplateUtils::findNodes. */
  virtual QList<kudNode> findNodes(const QString& name) = 0;
};
