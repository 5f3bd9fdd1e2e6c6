#pragma once

#include <functional>
#include <memory>
#include <string>
#include <typeindex>
#include <vector>

#include "host/kuHostExport.h"
#include "host/session/kuSessionCommand.h"

/** Knows the classes of session commands by the names under which they travel. Main thread only. */
class KUHOST_EXPORT kuSessionCommandFactory {
 public:
  using Creator = std::function<kuSessionCommand*()>;
  using Deleter = void (*)(kuSessionCommand*);
  using Copier = kuSessionCommand* (*)(const kuSessionCommand&);
  using Command = std::unique_ptr<kuSessionCommand, Deleter>;

  static kuSessionCommandFactory& the();

  /**
   * Gives a class its name and number. A class keeps its number for good, also when it is
   * registered again, as by a library that is loaded once more; its creator is then the new one.
   */
  void registerCommand(std::type_index type, const char* name, Creator creator);

  /** For the host: a command of that name, ready to read; null for an unknown name. */
  Command create(const std::string& name) const;

  /** For the host: another one like this, all that the class holds included; null for a class that
   * is not registered, or whose library has gone. It may outlive the library, but not be run then.
   */
  std::shared_ptr<kuSessionCommand> copyOf(const kuSessionCommand& command) const;

  /** For the host: the name of a class; empty for a number that no class has. */
  std::string nameOf(unsigned type) const;

  /** The number of a class; 0 for one that is not registered. */
  unsigned typeOf(std::type_index type) const;

  /**
   * Registers the class T for as long as it lives; made as a static object of a library, so while
   * the library loads. T has a static `create` that answers a new T as it has to be before it is
   * read, and can be copied. When the library goes, the class keeps its number, and no command of
   * it can be made.
   */
  template <class T>
  class Register {
   public:
    explicit Register(const char* name) {
      kuSessionCommandFactory& factory = kuSessionCommandFactory::the();
      factory.registerCommand(typeid(T), name, [] { return T::create(); });
      factory.setLife(typeid(T), copy<T>,
                      [](kuSessionCommand* one) { delete static_cast<T*>(one); });
    }
    ~Register() { kuSessionCommandFactory::the().forgetCreator(typeid(T)); }
    Register(const Register&) = delete;
    Register& operator=(const Register&) = delete;
  };

  kuSessionCommandFactory(const kuSessionCommandFactory&) = delete;
  kuSessionCommandFactory& operator=(const kuSessionCommandFactory&) = delete;

 private:
  struct Entry {
    /** Of the C++ class; a copy, since the library that has it may go. */
    std::string className;
    std::string name;
    Creator creator;
    Copier copier = nullptr;
    Deleter deleter = nullptr;
  };

  kuSessionCommandFactory() = default;
  template <class T>
  static kuSessionCommand* copy(const kuSessionCommand& command) {
    return new T(static_cast<const T&>(command));
  }
  void setLife(std::type_index type, Copier copier, Deleter deleter);
  void forgetCreator(std::type_index type);
  Entry* find(std::type_index type);

  /** The entry of the number n stands at n - 1. */
  std::vector<Entry> _entries;
};
