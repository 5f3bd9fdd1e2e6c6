#pragma once

#include <boost/any.hpp>
#include <cstdint>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

#include "host/kuHostExport.h"

/**
 * A record that goes to the host's receivers with a message: attributes by name, each a value of
 * any type. Attribute names are ASCII, text is UTF-8. It is built just before a call and
 * destroyed after it; receivers keep copies of what they need.
 */
class KUHOST_EXPORT kuMessage {
 public:
  using Attribute = std::pair<std::string, boost::any>;

  kuMessage();
  /** A numbered message for kuModuleBase::sendMessage. */
  explicit kuMessage(std::int64_t number);
  ~kuMessage();
  kuMessage(const kuMessage&) = default;
  kuMessage(kuMessage&&) noexcept = default;
  kuMessage& operator=(const kuMessage&) = default;
  kuMessage& operator=(kuMessage&&) noexcept = default;

  /**
   * Stores an attribute. With @p overwrite a value that is there already is replaced, and keeps
   * its place; without, it stays.
   */
  void set(const std::string& name, const boost::any& value, bool overwrite);
  void set(const std::string& name, boost::any&& value, bool overwrite);

  /**
   * Reads an attribute as exactly the type T. An absent one gives false, and so does one of
   * another type, which also prints both types and a back-trace to the error stream. @p out is
   * left alone wherever the answer is false.
   */
  template <class T>
  bool get(const std::string& name, T& out) const {
    const boost::any* value = find(name);
    if (!value) return false;
    const T* typed = boost::any_cast<T>(value);
    if (!typed) {
      reportWrongType(name, value->type(), typeid(T));
      return false;
    }
    out = *typed;
    return true;
  }

  /** The attributes in the order in which they were first set. */
  const std::vector<Attribute>& attributes() const { return _attributes; }

  /** The number of a numbered message, otherwise 0. */
  std::int64_t number() const { return _number; }

  /** Prints a back-trace of the present stack to the error stream. */
  static void printBT();

 private:
  const boost::any* find(const std::string& name) const;
  static void reportWrongType(const std::string& name, const std::type_info& is,
                              const std::type_info& required);

  std::vector<Attribute> _attributes;
  std::int64_t _number = 0;
};
