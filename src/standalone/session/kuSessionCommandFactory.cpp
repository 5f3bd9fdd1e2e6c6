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
  if (!find(type)) _entries.push_back({type.name(), {}, {}, nullptr});
  Entry& entry = *find(type);
  entry.name = name;
  entry.creator = std::move(creator);
}

void kuSessionCommandFactory::setDeleter(std::type_index type, Deleter deleter) {
  if (Entry* entry = find(type)) entry->deleter = deleter;
}

void kuSessionCommandFactory::forgetCreator(std::type_index type) {
  Entry* entry = find(type);
  if (!entry) return;
  entry->creator = nullptr;
  entry->deleter = nullptr;
}

kuSessionCommandFactory::Command kuSessionCommandFactory::create(const std::string& name) const {
  const auto makesIt = [&](const Entry& entry) { return entry.name == name && entry.deleter; };
  const auto found = std::find_if(_entries.begin(), _entries.end(), makesIt);
  if (found == _entries.end()) return Command(nullptr, [](kuSessionCommand*) {});
  return Command(found->creator(), found->deleter);
}

std::string kuSessionCommandFactory::nameOf(unsigned type) const {
  return type == 0 || type > _entries.size() ? std::string() : _entries[type - 1].name;
}

unsigned kuSessionCommandFactory::typeOf(std::type_index type) const {
  const auto isIt = [&](const Entry& entry) { return entry.className == type.name(); };
  const auto found = std::find_if(_entries.begin(), _entries.end(), isIt);
  return found == _entries.end() ? 0 : static_cast<unsigned>(found - _entries.begin()) + 1;
}
