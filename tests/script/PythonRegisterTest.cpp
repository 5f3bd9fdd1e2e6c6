#include "host/script/kuPythonRegister.h"

#include <boost/python.hpp>
#include <memory>

#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptCommands.h"
#include "standalone/script/ScriptPolicy.h"

namespace bp = boost::python;
using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Level = kuPythonRegisterFactory::Level;

namespace {

/** A level that no library knows. */
constexpr Level otherLevel = Level(7);

std::vector<std::string> calls;
std::unique_ptr<kuPythonRegister> extra;

void first(Level level) {
  if (level == otherLevel) calls.emplace_back("first");
}
void second(Level level) {
  if (level == otherLevel) calls.emplace_back("second");
}
void thatRegistersSecond(Level level) {
  if (level == otherLevel) extra = std::make_unique<kuPythonRegister>(second);
}
void thatUnregistersSecond(Level level) {
  if (level == otherLevel) extra.reset();
}

class PythonRegister : public ScriptTest {
 protected:
  PythonRegister() { calls.clear(); }
  ~PythonRegister() override { extra.reset(); }

  static void call() { kuPythonRegisterFactory::the().call(otherLevel); }
};

TEST_F(PythonRegister, CallsInTheOrderOfRegistration) {
  const kuPythonRegister b(second);
  const kuPythonRegister a(first);
  call();
  EXPECT_THAT(calls, ElementsAre("second", "first"));
}

TEST_F(PythonRegister, FunctionRegisteredTwiceIsCalledOnce) {
  const kuPythonRegister a(first);
  const kuPythonRegister b(first);
  call();
  EXPECT_THAT(calls, ElementsAre("first"));
}

TEST_F(PythonRegister, FunctionRegisteredTwiceIsCalledUntilBothAreGone) {
  auto a = std::make_unique<kuPythonRegister>(first);
  auto b = std::make_unique<kuPythonRegister>(first);
  a.reset();
  call();
  EXPECT_THAT(calls, ElementsAre("first"));
  b.reset();
  call();
  EXPECT_THAT(calls, ElementsAre("first"));
}

TEST_F(PythonRegister, FunctionThatIsGoneIsNotCalled) {
  { const kuPythonRegister a(first); }
  call();
  EXPECT_THAT(calls, IsEmpty());
}

TEST_F(PythonRegister, FunctionThatRegistersDuringTheCallIsCalledToo) {
  const kuPythonRegister a(thatRegistersSecond);
  call();
  EXPECT_THAT(calls, ElementsAre("second"));
}

TEST_F(PythonRegister, FunctionThatIsUnregisteredDuringTheCallIsNotCalled) {
  const kuPythonRegister a(thatUnregistersSecond);
  extra = std::make_unique<kuPythonRegister>(second);
  call();
  EXPECT_THAT(calls, IsEmpty());
}

}  // namespace
