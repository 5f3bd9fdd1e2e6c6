#pragma once

#include <QDomDocument>
#include <QString>

#include "host/kuHostExport.h"

/** Turns an XML document into text that is well-formed whatever names it holds. */
class KUHOST_EXPORT QKuDomDocumentWriter {
 public:
  QKuDomDocumentWriter() = delete;

  /**
   * The instruction "xml", the document type and the tree of elements, with attributes and text
   * escaped so that they read back the same, and CDATA sections kept as such. The same content
   * gives the same text on every run. A character that XML cannot hold becomes U+FFFD, and a
   * warning in the log names the object and the field.
   */
  static QString toString(const QDomDocument& document);
};
