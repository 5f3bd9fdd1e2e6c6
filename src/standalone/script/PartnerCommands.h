#pragma once

#include <QByteArray>
#include <string>

#include "host/kuHostExport.h"

namespace kuStandalone {

/**
 * Runs the script text of a partner: only what is made wholly of commands, also where the scripts
 * of documents may run. Answers why it did not run, or how it failed; empty if it ran.
 */
KUHOST_EXPORT std::string runPartnerCommands(const QByteArray& text);

}  // namespace kuStandalone
