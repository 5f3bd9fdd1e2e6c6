#pragma once

#include <QString>

namespace kuStandalone {

/** Text made safe for one place of an XML document. What XML cannot hold becomes U+FFFD. */
class XmlEscape {
 public:
  // Each appends a text in the form of its place.

  /** Between double quotes. White space but the blank is written by number, since a reader may
   * turn it into blanks. */
  void attribute(const QString& text, QString& to);
  /** Between tags; as a CDATA section where it is white space alone, which readers drop. */
  void content(const QString& text, QString& to);
  /** As a CDATA section, or as several where it holds "]]>". */
  void cdata(const QString& text, QString& to);

  /** Whether a character had to be replaced since this was last asked. */
  bool replaced();

 private:
  /** One character of the text, whole; U+FFFD for what XML cannot hold. Moves @p at behind it. */
  uint next(const QString& text, int& at);

  bool _replaced = false;
};

}  // namespace kuStandalone
