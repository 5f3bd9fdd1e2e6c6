#include "joining/Participation.h"

#include <unistd.h>

#include <utility>

#include "Diagnostics.h"
#include "Failure.h"
#include "Text.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"

using namespace kuStandalone;

namespace {

/** Captured sets remember materials; their nodes have them before anything is selected. */
void restoreMaterials() {
  std::vector<QString> remembering;
  for (const kuVariantSet* set : kuVariants::getVariantSets()) {
    if (!set->getMaterialSnapshots().empty()) remembering.push_back(set->getName());
  }
  if (remembering.empty()) return;
  warnWhereNotRestored(remembering);
  if (!kuVariants::findVariantSet(temporarySetName())) kuVariants::activateCapturedVariantSet("");
}

}  // namespace

Participation::Participation(const SessionOptions& options, const Invocation& invocation)
    : _options(options),
      _printer(*invocation.output, invocation.common.json, [this] { end(End::Output); }),
      _signalled(_signals.descriptor(), QSocketNotifier::Read),
      _input(STDIN_FILENO, {[this](const QByteArray& line) { obey(line); },
                            [this] { fault({}, QStringLiteral("the line is too long")); },
                            [this] { end(End::Input); }}) {
  QObject::connect(&_signalled, &QSocketNotifier::activated, &_loop, [this] { end(End::Signal); });
  _waiting.setSingleShot(true);
  QObject::connect(&_waiting, &QTimer::timeout, &_loop, [this] { _input.goOn(); });
}

Outcome Participation::run() {
  restoreMaterials();
  _changes.take();
  join();
  for (const SessionEvent& event : std::exchange(_early, {}))
    tellEvent(event);
  if (_end == End::None) _loop.exec();
  return leave();
}

void Participation::join() {
  Session::Joining joining =
      Session::join(_options, [this](const SessionEvent& event) { onEvent(event); });
  _session = std::move(joining.session);
  if (_session) return;
  throw Failure{ExitCode::SessionNotReached, "cannot join session",
                _options.session.toStdString() + " at " + _options.address().toStdString(),
                joining.error.toStdString()};
}

void Participation::onEvent(const SessionEvent& event) {
  if (_session) {
    tellEvent(event);
  } else {
    _early.push_back(event);
  }
}

void Participation::tellEvent(const SessionEvent& event) {
  using What = Happening::What;
  switch (event.kind) {
    case SessionEvent::Kind::Joined: {
      Happening joined{What::Joined, _options.session, _options.address(), _options.partner};
      joined.report = _changes.take();
      tell(joined);
      return takeInput();
    }
    case SessionEvent::Kind::PartnerCame:
      return tell({What::PartnerIsHere, {}, {}, event.partner});
    case SessionEvent::Kind::PartnerLeft:
      return tell({What::PartnerHasLeft, {}, {}, event.partner});
    case SessionEvent::Kind::CommandRan:
      return tellSelected(event);
    case SessionEvent::Kind::BrokerLost: {
      Happening lost{What::BrokerLost};
      lost.reason = event.reason;
      tell(lost);
      return takeInput();
    }
    case SessionEvent::Kind::BrokerBack:
      return tell({What::BrokerBack});
    case SessionEvent::Kind::Refused: {
      Happening refused{What::Refused, {}, {}, event.partner};
      refused.reason = event.reason;
      return tell(refused);
    }
  }
}

void Participation::tellSelected(const SessionEvent& event) {
  // What is caught up with is told when it is done, all at once.
  if (_session->status() == Session::Status::Joining) return;
  Happening selected{Happening::What::Selected, {}, {}, event.partner};
  selected.isOwn = event.own;
  selected.isSent = event.sequence > 0;
  selected.sequence = event.sequence;
  selected.id = event.id.toString(QUuid::WithoutBraces);
  selected.report = _changes.take();
  tell(selected);
}

void Participation::tellWhatIsNotShared() {
  Happening selected{Happening::What::Selected, {}, {}, _options.partner};
  selected.isOwn = true;
  selected.isShared = false;
  selected.report = _changes.take();
  if (tellsAnything(selected.report)) tell(selected);
}

void Participation::tell(Happening happening) {
  _printer.tell(happening);
  const std::string held = heldBackText(happening.report.scriptsHeldBack);
  if (!held.empty()) printDiagnostic(held);
}

/** Lines that stand ready from the beginning wait until this one has caught up. */
void Participation::takeInput() {
  if (std::exchange(_isInputTaken, true)) return;
  _printer.prompt();
  _input.goOn();
}

void Participation::end(End how) {
  if (_end == End::None) _end = how;
  _signalled.setEnabled(false);
  _input.pause();
  _loop.quit();
}

Outcome Participation::leave() {
  const std::size_t unsent = _session->unsent();
  _session.reset();
  if (_end != End::Output) {
    Happening left{Happening::What::Left, _options.session};
    left.reason = reasonOfEnd();
    tell(left);
  }
  if (_printer.failure()) throw *_printer.failure();
  Outcome outcome;
  if (_end == End::Signal) {
    outcome.code = static_cast<ExitCode>(Interrupt::exitCode(Interrupt::Told::signal()));
  } else if (unsent > 0) {
    throw Failure{ExitCode::SessionNotReached, "left with the broker away",
                  _options.address().toStdString(),
                  std::to_string(unsent) + " not sent to the partners"};
  }
  return outcome;
}

QString Participation::reasonOfEnd() const {
  switch (_end) {
    case End::Quit:
      return QStringLiteral("quit");
    case End::Input:
      return QStringLiteral("end of input");
    case End::Signal:
      return QStringLiteral("interrupted");
    case End::Output:
    case End::None:
      break;
  }
  return {};
}
