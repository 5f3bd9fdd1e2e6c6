#pragma once

#include <QString>
#include <string>
#include <vector>

#include "Selection.h"
#include "standalone/session/Session.h"

/** Something that whoever takes part in a session is told. */
struct Happening {
  enum class What {
    Joined,
    PartnerIsHere,
    PartnerHasLeft,
    /** The scene was changed, from here or by a partner. */
    Selected,
    BrokerLost,
    BrokerBack,
    /** Something of a partner was not taken. */
    Refused,
    /** What was asked for: present states, who is there, what can be typed. */
    State,
    Partners,
    Help,
    /** A typed line that could not be obeyed. */
    Fault,
    Left
  };

  What what;
  /** Joined and Left: the session's name and its broker. */
  QString session{}, broker{};
  /** Whom it is about; of Joined and Partners this one's own name. */
  QString who{};
  /** Of Selected: whether it was made here, whether it goes to the partners, and whether it has
   * gone out. */
  bool isOwn = false, isShared = true, isSent = true;
  /** Of Selected: what everyone knows the command by, and its place in the order of all, 0 where it
   * ran here alone. */
  QString id{};
  std::uint64_t sequence = 0;
  /** Of Joined, Selected and State. */
  SelectionReport report{};
  /** Of Partners. */
  std::vector<kuStandalone::SessionPartner> partners{};
  /** Of Fault: the line. */
  QString line{};
  /** Of a loss, a refusal or a fault; of Left what ended it; of Help the text. */
  QString reason{};
};

/** For people; whole lines. */
std::string happeningText(const Happening& happening);

/** One object on one line. */
std::string happeningJson(const Happening& happening);
