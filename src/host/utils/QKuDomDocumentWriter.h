#pragma once

#include <QDomDocument>
#include <QString>

#include "host/kuHostExport.h"

/** Turns an XML document into text that is well-formed whatever names it holds. */
class KUHOST_EXPORT QKuDomDocumentWriter {
 public:
  QKuDomDocumentWriter() = delete;

  /**
   * The instruction "xml", the name of the document type and the tree of elements without its
   * comments, with attributes and text escaped so that they read back the same, and CDATA sections
   * kept as such. The same content gives the same text on every run, with one element per line.
   * A character that XML cannot hold becomes U+FFFD, and a warning in the log names the object and
   * the field, once for each field.
   */
  static QString toString(const QDomDocument& document);
};
