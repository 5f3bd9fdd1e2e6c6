#include "Text.h"
#include "joining/Happening.h"

namespace {

std::string whoChanged(const Happening& it) {
  return it.isOwn ? std::string("You") : escaped(it.who);
}

/** What the partners see of it. */
std::string reachOf(const Happening& it) {
  if (!it.isShared) return ", here alone";
  return it.isSent ? "" : ", not sent yet";
}

std::string selectedText(const Happening& it) {
  const std::string what =
      it.report.sets.isEmpty() ? " changed variants" : " selected " + escapedList(it.report.sets);
  const std::string changes = changedText(it.report);
  return whoChanged(it) + what + reachOf(it) + '\n' +
         (changes.empty() ? "  nothing changed\n" : changes);
}

std::string partnersText(const Happening& it) {
  std::string text = "  " + escaped(it.who) + " (you)\n";
  for (const kuStandalone::SessionPartner& partner : it.partners)
    text += "  " + escaped(partner.name) + (partner.isJoining ? " (joining)\n" : "\n");
  return text;
}

}  // namespace

std::string happeningText(const Happening& it) {
  using What = Happening::What;
  switch (it.what) {
    case What::Joined:
      return "Joined " + escaped(it.session) + " at " + escaped(it.broker) + " as " +
             escaped(it.who) + '\n' + changedText(it.report);
    case What::PartnerIsHere:
      return escaped(it.who) + " is here\n";
    case What::PartnerHasLeft:
      return escaped(it.who) + " has left\n";
    case What::Selected:
      return selectedText(it);
    case What::BrokerLost:
      return "The broker is away: " + escaped(it.reason) + "; you go on alone\n";
    case What::BrokerBack:
      return "The broker is back\n";
    case What::Refused:
      return "Refused: " + escaped(it.reason) + '\n';
    case What::State:
      return statesText(it.report);
    case What::Partners:
      return partnersText(it);
    case What::Help:
      return it.reason.toStdString();
    case What::Fault:
      return it.reason.toStdString() + '\n';
    case What::Left:
      return "Left " + escaped(it.session) + '\n';
  }
  return {};
}
