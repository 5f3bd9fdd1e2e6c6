#pragma once

#include <string>

#include "DocumentModel.h"
#include "document/kuVariantReader.h"
#include "document/kuVariantWriter.h"
#include "host/kernel/kuController.h"
#include "support/ManagerDump.h"
#include "support/VariantsTest.h"

/** Fixture of the tests that write the manager and read the document again. */
class RoundTripTest : public VariantsTest {
 protected:
  static QByteArray written() { return kuVariantWriter().write(); }
  static void clear() { kuController::call("clearAllVariants", 1); }
  static void read(const QByteArray& text) { kuVariantReader().read(text.constData()); }

  /** Writes the manager, clears it and reads the document; answers the document. */
  static QByteArray reload() {
    const QByteArray text = written();
    clear();
    read(text);
    return text;
  }

  /** The manager after a reload. */
  static std::string afterReload() {
    reload();
    return managerDump();
  }
};
