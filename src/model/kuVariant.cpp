#include "model/kuVariant.h"

#include <algorithm>

#include "host/session/kuSession.h"
#include "model/kuLivingVariant.h"
#include "session/kuSessionVariantCommand.h"

namespace {

template <class Options>
auto findOption(Options& options, const QString& name) {
  return std::find_if(options.begin(), options.end(),
                      [&](const kuVariantOption& option) { return option.getName() == name; });
}

}  // namespace

kuVariant::~kuVariant() { kuLivingVariant::forget(this); }

void kuVariant::add(const QString& option, const QString& hotkey) { add(false, option, hotkey); }

void kuVariant::add(bool action, const QString& option, const QString& hotkey) {
  if (findOption(options, option) == options.end()) append(action, option, hotkey);
}

void kuVariant::append(bool action, const QString& option, const QString& hotkey) {
  if (hotkey.isEmpty()) {
    options.emplace_back(action, option);
  } else {
    options.emplace_back(action, option, hotkey);
  }
}

void kuVariant::remove(const QString& option) {
  const auto found = findOption(options, option);
  if (found != options.end()) options.erase(found);
}

kuVariantOption* kuVariant::find(const QString& option) {
  if (option.isEmpty()) return nullptr;
  const auto found = findOption(options, option);
  return found == options.end() ? nullptr : &*found;
}

bool kuVariant::isAction(const QString& option) {
  const kuVariantOption* found = find(option);
  return found && found->getAction();
}

void kuVariant::clear() { options.clear(); }

void kuVariant::select() { select(defaultState); }

void kuVariant::select(const kuVariantOption& option) { select(option.getName()); }

void kuVariant::select(const QString& state) {
  // A receiver may delete this variant, and its texts with it: the state goes on as a copy.
  const QString kept = state;
  kuSession& session = kuSession::the();
  if (session.isReadyToUse()) {
    session.pushCommand(kuSessionVariantCommand(this, kept));
  } else {
    onSelect(kept);
  }
}

void kuVariant::onSelect(const QString&) {}

QString kuVariant::onCurrent() const { return QString(); }
