#include "standalone/session/SessionOrder.h"

#include <algorithm>
#include <utility>
#include <vector>

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

bool SessionOrder::keep(KeptFrame frame) {
  const int bytes = frame.bytes.size();
  if (_kept.size() >= kMostKept || _keptBytes + bytes > kMostKeptBytes) return false;
  frame.placesBefore = _placesRun;
  _kept.push_back(std::move(frame));
  _keptBytes += bytes;
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

void SessionOrder::forgetSent() {
  std::vector<QUuid> sent;
  for (const KeptFrame& frame : _kept) {
    if (frame.isSent) sent.push_back(frame.id);
  }
  for (const QUuid& id : sent)
    take(id);
}

void SessionOrder::drop(const QUuid& id) { take(id); }

std::optional<SessionOrder::Own> SessionOrder::takeOwn(const QUuid& id) {
  const bool isNext = !_kept.empty() && _kept.front().id == id;
  std::optional<KeptFrame> frame = take(id);
  if (!frame) return std::nullopt;
  const bool again = frame->placesBefore != _placesRun;
  // What else is kept has its place behind it: if this runs again, or what stands in front here
  // ran before it, so has that to run again.
  if (again || !isNext) ++_placesRun;
  return Own{again, std::move(frame->command)};
}

}  // namespace kuStandalone
