#include "standalone/session/SessionPartners.h"

#include <algorithm>

#include "standalone/session/SessionStream.h"

namespace kuStandalone {

namespace {

constexpr std::size_t kMostPartners = 5000;
/** So many signs may be lost before somebody counts as gone. */
constexpr int kSignsMissed = 5;
constexpr quint32 kShortestInterval = 50, kLongestInterval = 60'000;
constexpr std::size_t kPartnersPerInterval = 50;

}  // namespace

QByteArray writeNote(const PresenceNote& note) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  prepareSessionStream(stream);
  stream << quint8(note.kind) << quint8(note.isJoining) << quint32(note.interval);
  return bytes;
}

bool readNote(const QByteArray& bytes, PresenceNote& note) {
  QDataStream stream(bytes);
  prepareSessionStream(stream);
  quint8 kind = 0, isJoining = 0;
  quint32 interval = 0;
  stream >> kind >> isJoining >> interval;
  const bool isWhole = stream.status() == QDataStream::Ok && stream.atEnd();
  if (!isWhole || kind < 1 || kind > 3 || isJoining > 1) return false;
  note.kind = PresenceNote::Kind(kind);
  note.isJoining = isJoining == 1;
  note.interval = std::clamp(interval, kShortestInterval, kLongestInterval);
  return true;
}

SessionPartners::SessionPartners(Told told) : _told(std::move(told)) {}

void SessionPartners::heard(const SessionPartner& partner, const PresenceNote& note,
                            Clock::time_point now) {
  const auto found = _known.find(partner.id);
  if (note.kind == PresenceNote::Kind::Leaves) {
    if (found == _known.end()) return;
    _known.erase(found);
    _told(SessionEvent::Kind::PartnerLeft, partner);
    return;
  }
  if (found == _known.end() && _known.size() >= kMostPartners) return;
  const bool isNew = found == _known.end();
  _known[partner.id] = {partner, now + kSignsMissed * std::chrono::milliseconds(note.interval)};
  if (isNew) _told(SessionEvent::Kind::PartnerCame, partner);
}

void SessionPartners::forgetSilent(Clock::time_point now) {
  std::vector<SessionPartner> gone;
  for (const auto& [id, known] : _known)
    if (known.missedAt < now) gone.push_back(known.partner);
  for (const SessionPartner& partner : gone) {
    _known.erase(partner.id);
    _told(SessionEvent::Kind::PartnerLeft, partner);
  }
}

std::vector<SessionPartner> SessionPartners::list() const {
  std::vector<SessionPartner> partners;
  for (const auto& [id, known] : _known)
    partners.push_back(known.partner);
  const auto byName = [](const SessionPartner& one, const SessionPartner& other) {
    return one.name < other.name;
  };
  std::stable_sort(partners.begin(), partners.end(), byName);
  return partners;
}

std::chrono::milliseconds signInterval(std::chrono::milliseconds shortest, std::size_t partners) {
  const auto many = std::chrono::milliseconds::rep(partners / kPartnersPerInterval);
  const auto interval = shortest * std::max<std::chrono::milliseconds::rep>(1, many);
  return std::min(interval, std::chrono::milliseconds(kLongestInterval));
}

}  // namespace kuStandalone
