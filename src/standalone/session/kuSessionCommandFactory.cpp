#include "host/session/kuSessionCommandFactory.h"

#include <algorithm>
#include <utility>

unsigned kuSessionCommand::getType() const {
  return kuSessionCommandFactory::the().typeOf(typeid(*this));
}

kuSessionCommandFactory& kuSessionCommandFactory::the() {
  static kuSessionCommandFactory factory;
  return factory;
}

kuSessionCommandFactory::Entry* kuSessionCommandFactory::find(std::type_index type) {
  const auto isIt = [&](const Entry& entry) { return entry.className == type.name(); };
  const auto found = std::find_if(_entries.begin(), _entries.end(), isIt);
  return found == _entries.end() ? nullptr : &*found;
}

void kuSessionCommandFactory::registerCommand(std::type_index type, const char* name,
                                              Creator creator) {
  if (!find(type)) _entries.push_back({type.name(), {}, {}, nullptr, nullptr});
  Entry& entry = *find(type);
  entry.name = name;
  entry.creator = std::move(creator);
}

void kuSessionCommandFactory::setLife(std::type_index type, Copier copier, Deleter deleter) {
  Entry* entry = find(type);
  if (!entry) return;
  entry->copier = copier;
  entry->deleter = deleter;
}

void kuSessionCommandFactory::forgetCreator(std::type_index type) {
  Entry* entry = find(type);
  if (!entry) return;
  entry->creator = nullptr;
  entry->copier = nullptr;
  entry->deleter = nullptr;
}

kuSessionCommandFactory::Command kuSessionCommandFactory::create(const std::string& name) const {
  const auto makesIt = [&](const Entry& entry) { return entry.name == name && entry.deleter; };
  const auto found = std::find_if(_entries.begin(), _entries.end(), makesIt);
  if (found == _entries.end()) return Command(nullptr, [](kuSessionCommand*) {});
  return Command(found->creator(), found->deleter);
}

std::shared_ptr<kuSessionCommand> kuSessionCommandFactory::copyOf(
    const kuSessionCommand& command) const {
  const unsigned type = command.getType();
  const Copier copier = type == 0 ? nullptr : _entries[type - 1].copier;
  if (!copier) return nullptr;
  return {copier(command), [type](kuSessionCommand* copy) {
            // Without its library nobody can take it apart; then it stays.
            if (const Deleter deleter = the()._entries[type - 1].deleter) deleter(copy);
          }};
}

std::string kuSessionCommandFactory::nameOf(unsigned type) const {
  return type == 0 || type > _entries.size() ? std::string() : _entries[type - 1].name;
}

unsigned kuSessionCommandFactory::typeOf(std::type_index type) const {
  const auto isIt = [&](const Entry& entry) { return entry.className == type.name(); };
  const auto found = std::find_if(_entries.begin(), _entries.end(), isIt);
  return found == _entries.end() ? 0 : static_cast<unsigned>(found - _entries.begin()) + 1;
}
