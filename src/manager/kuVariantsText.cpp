#include <QCoreApplication>

#include "manager/kuVariants.h"

QString kuVariants::tr(const char* sourceText, const char* comment, int n) {
  return QCoreApplication::translate("kuVariants", sourceText, comment, n);
}

QString kuVariants::trUtf8(const char* sourceText, const char* comment, int n) {
  return tr(sourceText, comment, n);
}
