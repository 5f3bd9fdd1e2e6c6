#pragma once

#include <QString>

#include "standalone/session/Session.h"

/** An event on one line: "ran Note of Ben", "came Ben", "lost". */
inline QString eventText(const kuStandalone::SessionEvent& event) {
  using Kind = kuStandalone::SessionEvent::Kind;
  switch (event.kind) {
    case Kind::Joined:
      return "joined";
    case Kind::PartnerCame:
      return "came " + event.partner;
    case Kind::PartnerLeft:
      return "left " + event.partner;
    case Kind::CommandRan: {
      const QString who = event.own ? QString("own") : "of " + event.partner;
      const QString alone = event.sequence == 0 ? " alone" : "";
      return "ran " + event.command + " " + who + alone;
    }
    case Kind::BrokerLost:
      return "lost";
    case Kind::BrokerBack:
      return "back";
    case Kind::Refused:
      return "refused " + event.partner;
  }
  return {};
}

/** Options with the short times of tests. */
inline kuStandalone::SessionOptions testOptions(const QString& url, const QString& session,
                                                const QString& partner) {
  kuStandalone::SessionOptions options;
  options.url = url;
  options.session = session;
  options.partner = partner;
  options.heartbeat = std::chrono::milliseconds(200);
  options.acknowledgeTimeout = std::chrono::milliseconds(1000);
  return options;
}
