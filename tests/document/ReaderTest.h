#pragma once

#include <string>
#include <vector>

#include "document/kuVariantReader.h"
#include "support/ManagerDump.h"
#include "support/VariantsTest.h"

/** Fixture of the tests that read a document. */
class ReaderTest : public VariantsTest {
 protected:
  /** Reads a root element with this content. */
  void read(const std::string& content) { readText("<Variants>" + content + "</Variants>"); }
  void readText(const std::string& text) { reader.read(text.c_str()); }

  /** The manager's content after reading that. */
  std::string after(const std::string& content) {
    read(content);
    return managerDump();
  }

  kuVariantReader reader;
};

/** What ends every read. */
inline const std::vector<std::string>& changedMessages() {
  static const std::vector<std::string> lines{
      "lightVariantChanged/1 bare",     "nodeVariantChanged/1 bare",
      "materialVariantChanged/1 bare",  "overlayVariantChanged/1 bare",
      "transformVariantChanged/1 bare", "variantSetChanged/1 bare",
      "variantGroupChanged/1 bare"};
  return lines;
}

/** An element as the static readers take it, with the document that keeps it. */
struct ParsedElement {
  explicit ParsedElement(const std::string& text) {
    document.setContent(QByteArray(text.c_str()), false);
    element = document.documentElement();
  }
  QDomDocument document;
  QDomElement element;
};
