#pragma once

#include <QByteArray>
#include <string>
#include <vector>

/**
 * What the schema of variants documents says of each document: empty for one that is valid,
 * otherwise the first fault. One call of xmllint for all; where that program is missing or goes
 * wrong each document is answered with that.
 */
std::vector<std::string> schemaFaults(const std::vector<QByteArray>& documents);

inline std::string schemaFault(const QByteArray& document) {
  return schemaFaults({document}).front();
}
