#include <QTextCodec>
#include <optional>

#include "Failure.h"
#include "Text.h"
#include "VariantOption.h"
#include "joining/Participation.h"
#include "manager/kuVariants.h"

namespace {

constexpr double longestWait = 86400;

/** The text of a line; none where it is not UTF-8, or has what nobody types. */
std::optional<QString> textOf(const QByteArray& bytes) {
  QTextCodec::ConverterState state;
  const QString text =
      QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
  const bool isText = state.invalidChars == 0 && state.remainingChars == 0 && !bytes.contains('\0');
  return isText ? std::make_optional(text) : std::nullopt;
}

}  // namespace

/** A word that a line may begin with. */
struct Participation::Verb {
  const char* name;
  /** What comes behind it; empty for nothing. */
  const char* argument;
  const char* does;
  void (Participation::*act)(const QString& rest);
};

const std::vector<Participation::Verb>& Participation::verbs() {
  static const std::vector<Verb> all = {
      {"select", "NAME", "selects a set", &Participation::select},
      {"variant", "KIND:NAME=STATE", "puts one variant into a state",
       &Participation::selectVariant},
      {"state", "", "prints the present states", &Participation::tellState},
      {"partners", "", "prints who is there", &Participation::tellPartners},
      {"wait", "SECONDS", "lets others go on, then reads on", &Participation::wait},
      {"help", "", "prints this", &Participation::help},
      {"quit", "", "leaves the session", &Participation::quit}};
  return all;
}

void Participation::obey(const QByteArray& bytes) {
  _printer.lineWasTyped();
  const std::optional<QString> text = textOf(bytes);
  if (text) {
    obeyText(text->trimmed());
  } else {
    fault({}, QStringLiteral("the line is not text"));
  }
  if (_end == End::None) _printer.prompt();
}

void Participation::obeyText(const QString& text) {
  const QString word = text.section(' ', 0, 0), rest = text.section(' ', 1).trimmed();
  if (word.isEmpty()) return;
  for (const Verb& verb : verbs()) {
    if (word == verb.name) return obeyVerb(verb, text, rest);
  }
  QStringList known;
  for (const Verb& verb : verbs())
    known += verb.name;
  const QStringList near = nearestNames(word, known);
  const QString hint = near.isEmpty() ? QString() : "; did you mean " + near.join(" or ") + '?';
  fault(text, "there is no \"" + QString::fromStdString(onOneLine(word.toStdString())) + '"' +
                  hint + " (help tells what there is)");
}

void Participation::obeyVerb(const Verb& verb, const QString& text, const QString& rest) {
  const bool wantsArgument = *verb.argument != '\0';
  if (wantsArgument == rest.isEmpty()) {
    return fault(text, QString("type: %1 %2").arg(verb.name, verb.argument).trimmed());
  }
  try {
    (this->*verb.act)(rest);
  } catch (const Failure& failure) {
    fault(text, QString::fromStdString(lineOf(failure)));
  }
}

void Participation::fault(const QString& line, const QString& reason) {
  Happening happening{Happening::What::Fault};
  happening.line = line;
  happening.reason = reason;
  tell(happening);
}

void Participation::select(const QString& name) {
  existingSet(name);
  kuVariants::selectVariantSet(name.toUtf8().constData(), false);
  tellWhatIsNotShared();
}

void Participation::selectVariant(const QString& text) {
  std::string wrong;
  const StateRequest request = parseStateRequest(text, wrong);
  if (!wrong.empty()) return fault("variant " + text, QString::fromStdString(wrong));
  selectOne(request);
  tellWhatIsNotShared();
}

void Participation::tellState(const QString&) {
  Happening state{Happening::What::State};
  state.report = _changes.take();
  tell(state);
}

void Participation::tellPartners(const QString&) {
  Happening partners{Happening::What::Partners, {}, {}, _options.partner};
  partners.partners = _session->partners();
  tell(partners);
}

void Participation::wait(const QString& seconds) {
  bool isNumber = false;
  const double time = seconds.toDouble(&isNumber);
  if (!isNumber || !(time >= 0 && time <= longestWait)) {
    return fault("wait " + seconds, QStringLiteral("SECONDS is a number from 0 to 86400"));
  }
  _input.pause();
  _waiting.start(static_cast<int>(time * 1000));
}

void Participation::quit(const QString&) { end(End::Quit); }

void Participation::help(const QString&) {
  Happening happening{Happening::What::Help};
  for (const Verb& verb : verbs()) {
    const QString usage = QString("%1 %2").arg(verb.name, verb.argument);
    happening.reason += QString("  %1  %2\n").arg(usage, -24).arg(QLatin1String(verb.does));
  }
  tell(happening);
}
