#pragma once

#include <QString>
#include <QStringList>

struct kuVariantFinding;

/** What a person is told about the errors of one message. */
struct VerifyAdvice {
  /** The message; a literal of the library. */
  const char* message;
  /** The kind of variant that it is about, by its name in kinds(). */
  const char* kind;
  /** What is wrong; the objects concerned follow. */
  const char* sentence;
  /** What to do about it. */
  const char* hint;
  /** The word of the finding that could be misspelt; empty for none. */
  QString (*word)(const kuVariantFinding& finding);
  /** The words that could be meant instead. */
  QStringList (*candidates)(const kuVariantFinding& finding);
};

/** The advice for an error, or null for a message that the application does not know. */
const VerifyAdvice* adviceFor(const kuVariantFinding& finding);

/** The state that the finding is about; empty where it is about none. */
QString stateInQuestion(const kuVariantFinding& finding);

/** Whether the scene obeys the state at fault, which the check counts as an error nonetheless. */
bool isObeyed(const kuVariantFinding& finding);
