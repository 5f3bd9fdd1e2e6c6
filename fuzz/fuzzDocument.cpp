// Any bytes as a variants document: read, and read again over what came of it. What then is held is
// written: that must be read without an error, and come out in the same bytes from then on. What
// passes the look at the bytes must hold no entities and no deep nesting once it is parsed.

#include <QDomDocument>
#include <QGuiApplication>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "document/kuDocumentFault.h"
#include "document/kuVariantReader.h"
#include "document/kuVariantWriter.h"
#include "host/kernel/kuController.h"
#include "standalone/StandaloneHost.h"
#include "standalone/kernel/LogSink.h"

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // These last until the process ends, as the fuzzer calls no exit of ours.
  static const auto* application = new QGuiApplication(*argc, *argv);
  static const auto* host = new kuStandalone::StandaloneHost;
  return application && host ? 0 : 1;
}

namespace {

int depthOf(const QDomElement& element) {
  int deepest = 0;
  QDomElement child = element.firstChildElement();
  for (; !child.isNull(); child = child.nextSiblingElement())
    deepest = std::max(deepest, depthOf(child));
  return deepest + 1;
}

void check(bool held) {
  if (!held) std::abort();
}

void clear() { kuController::call("clearAllVariants", 1); }

/** Reads what was written into an empty manager and writes it again. */
QByteArray reload(const QByteArray& written) {
  using namespace kuStandalone;
  const LogSink sink([](LogLevel level, const std::string&) { check(level != LogLevel::Error); });
  clear();
  kuVariantReader().read(written.constData());
  return kuVariantWriter().write();
}

/** What XML cannot hold is replaced by the first writing, and names may be equal then. */
void checkWriting() {
  const QByteArray second = reload(kuVariantWriter().write());
  check(reload(second) == second);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = std::string(reinterpret_cast<const char*>(data), size).c_str();
  kuVariantReader reader;
  reader.read(text.c_str());
  reader.read(text.c_str());
  checkWriting();
  clear();
  QDomDocument parsed;
  if (kuFindDocumentFault(text) || !parsed.setContent(QByteArray(text.c_str()), false)) return 0;
  check(parsed.doctype().entities().isEmpty());
  check(depthOf(parsed.documentElement()) <= 500);
  return 0;
}
