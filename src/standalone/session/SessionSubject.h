#pragma once

#include <QByteArray>
#include <QString>

#include "host/kuHostExport.h"

namespace kuStandalone {

/** Anything as one word of a subject: letters, digits and - _ ~ =; a long one by its hash.
 * Different texts give different words. */
KUHOST_EXPORT QByteArray subjectWord(const QByteArray& text);

/** The names under which a session is known to the broker. */
class KUHOST_EXPORT SessionSubject {
 public:
  explicit SessionSubject(const QString& session);

  /** Of the stream that holds the session. */
  QByteArray stream() const;
  /** All that the stream holds, as a pattern. */
  QByteArray all() const;
  /** Of the commands of a class for one target; the last of them decides how the target stands. */
  QByteArray command(const QString& type, const QByteArray& key) const;
  QByteArray script() const;
  /** Of signs of life, which the stream does not hold. */
  QByteArray presence() const;

 private:
  QByteArray _word;
};

}  // namespace kuStandalone
