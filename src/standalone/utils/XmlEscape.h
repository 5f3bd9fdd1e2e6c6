#pragma once

#include <QString>

namespace kuStandalone {

/**
 * Text made safe for one place of an XML document. What XML cannot hold becomes U+FFFD; all else
 * reads back the same.
 *
 * With one exception that only Qt's DOM parser spares: in a CDATA section, so also in a text of
 * white space alone, every other parser takes a carriage return for a line feed. Nothing can be
 * written by number there, and outside of a section Qt's parser would drop the text.
 */
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
