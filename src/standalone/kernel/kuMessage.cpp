#include "host/kernel/kuMessage.h"

#include <execinfo.h>
#include <unistd.h>

#include <array>
#include <boost/core/demangle.hpp>
#include <cstdio>
#include <utility>

namespace {

/** No message of the system has more attributes. */
constexpr std::size_t usualAttributes = 8;

}  // namespace

kuMessage::kuMessage() = default;

kuMessage::kuMessage(std::int64_t number) : _number(number) {}

kuMessage::~kuMessage() = default;

void kuMessage::set(const std::string& name, const boost::any& value, bool overwrite) {
  set(name, boost::any(value), overwrite);
}

void kuMessage::set(const std::string& name, boost::any&& value, bool overwrite) {
  for (Attribute& attribute : _attributes) {
    if (attribute.first != name) continue;
    if (overwrite) attribute.second = std::move(value);
    return;
  }
  if (_attributes.empty()) _attributes.reserve(usualAttributes);
  _attributes.emplace_back(name, std::move(value));
}

const boost::any* kuMessage::find(const std::string& name) const {
  for (const Attribute& attribute : _attributes) {
    if (attribute.first == name) return &attribute.second;
  }
  return nullptr;
}

void kuMessage::reportWrongType(const std::string& name, const std::type_info& is,
                                const std::type_info& required) {
  std::fprintf(stderr, "kuMessage::get : Attribute '%s' has wrong type (is:'%s' != req:'%s')!\n",
               name.c_str(), boost::core::demangle(is.name()).c_str(),
               boost::core::demangle(required.name()).c_str());
  printBT();
}

void kuMessage::printBT() {
  std::array<void*, 64> frames;
  const int count = backtrace(frames.data(), static_cast<int>(frames.size()));
  std::fflush(stderr);
  backtrace_symbols_fd(frames.data(), count, STDERR_FILENO);
}
