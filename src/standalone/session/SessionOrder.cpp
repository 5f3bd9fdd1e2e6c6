#include "standalone/session/SessionOrder.h"

#include <algorithm>

namespace kuStandalone {

namespace {

constexpr std::size_t kMostSeen = 100'000;
constexpr std::size_t kMostKept = 10'000;
constexpr qint64 kMostKeptBytes = 64 << 20;

}  // namespace

bool SessionOrder::isFirst(const QUuid& id) {
  if (!_seen.insert(id).second) return false;
  _seenInTurn.push_back(id);
  if (_seenInTurn.size() > kMostSeen) {
    _seen.erase(_seenInTurn.front());
    _seenInTurn.pop_front();
  }
  return true;
}

bool SessionOrder::keep(const QUuid& id, const QByteArray& subject, const QByteArray& bytes,
                        bool isSent) {
  if (_kept.size() >= kMostKept || _keptBytes + bytes.size() > kMostKeptBytes) return false;
  _kept.push_back({id, subject, bytes, isSent, _partnersRan});
  _keptBytes += bytes.size();
  return true;
}

KeptFrame* SessionOrder::firstUnsent() {
  const auto isUnsent = [](const KeptFrame& frame) { return !frame.isSent; };
  const auto found = std::find_if(_kept.begin(), _kept.end(), isUnsent);
  return found == _kept.end() ? nullptr : &*found;
}

std::size_t SessionOrder::unsent() const {
  const auto isUnsent = [](const KeptFrame& frame) { return !frame.isSent; };
  return std::size_t(std::count_if(_kept.begin(), _kept.end(), isUnsent));
}

std::optional<KeptFrame> SessionOrder::take(const QUuid& id) {
  const auto isIt = [&](const KeptFrame& frame) { return frame.id == id; };
  const auto found = std::find_if(_kept.begin(), _kept.end(), isIt);
  if (found == _kept.end()) return std::nullopt;
  KeptFrame taken = std::move(*found);
  _keptBytes -= taken.bytes.size();
  _kept.erase(found);
  return taken;
}

void SessionOrder::drop(const QUuid& id) { take(id); }

std::optional<bool> SessionOrder::runsAgain(const QUuid& id) {
  const std::optional<KeptFrame> frame = take(id);
  if (!frame) return std::nullopt;
  const bool again = frame->partnersBefore != _partnersRan;
  // What ran alone behind it has its place behind it, and so has to run again as well.
  if (again) ++_partnersRan;
  return again;
}

}  // namespace kuStandalone
