#pragma once

#include <QString>
#include <string>
#include <vector>

#include "host/utils/kuNodeUtils.h"

/** @p base itself if no entry of the list bears it, otherwise a free name by the rule for nodes. */
template <class Entry>
QString kuUniqueName(const QString& base, const std::vector<Entry*>& entries) {
  std::vector<std::string> names;
  for (const Entry* entry : entries)
    names.push_back(entry->getName().toStdString());
  return QString::fromStdString(kuNodeUtils::getUniqueName(base.toStdString(), names));
}
