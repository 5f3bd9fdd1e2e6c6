#include <boost/python.hpp>
#include <string>
#include <vector>

#include "ScriptTest.h"
#include "host/script/kuScript.h"
#include "standalone/script/ScriptInterpreter.h"
#include "standalone/script/ScriptPolicy.h"

namespace bp = boost::python;
using namespace kuStandalone;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

namespace {

using Texts = std::vector<std::string>;

Texts taken;

void take(const Texts& texts) { taken = texts; }

/** With "ran", a function that takes texts. */
class Converters : public ScriptTest {
 protected:
  Converters() {
    ScriptPolicy::allow(true);
    ScriptInterpreter::globals()["ran"] = bp::make_function(take);
    taken = {"before"};
  }

  static std::string listOf(const Texts& texts) {
    return ScriptInterpreter::textOf(bp::object(texts));
  }
};

TEST_F(Converters, TextsAreAListInTheirOrder) {
  EXPECT_EQ(listOf({"b", "a", "T\xC3\xBCr", ""}), "['b', 'a', 'T\xC3\xBCr', '']");
  EXPECT_EQ(listOf({}), "[]");
}

TEST_F(Converters, BytesThatAreNoUtf8AreTold) {
  EXPECT_EQ(listOf({"a\xFF", std::string("b\0c", 3)}), "['a\\\\xff', 'b\\x00c']");
}

TEST_F(Converters, ListsAndTuplesOfTextsAreTaken) {
  EXPECT_TRUE(kuScript::run("ran(['b', 'a', 'T\xC3\xBCr', ''])"));
  EXPECT_THAT(taken, ElementsAre("b", "a", "T\xC3\xBCr", ""));
  EXPECT_TRUE(kuScript::run("ran(('one',))"));
  EXPECT_THAT(taken, ElementsAre("one"));
  EXPECT_TRUE(kuScript::run("ran([])"));
  EXPECT_THAT(taken, ElementsAre());
}

TEST_F(Converters, WhatIsNoListOfTextsIsAnError) {
  for (const char* value :
       {"'text'", "None", "['a', 1]", "[b'a']", "{'a'}", "{'a': 1}", "1", "iter(['a'])"}) {
    log.clear();
    EXPECT_FALSE(kuScript::run(("ran(" + std::string(value) + ")").c_str())) << value;
    EXPECT_THAT(log, ElementsAre(HasSubstr("line 1: ArgumentError: "))) << value;
  }
  EXPECT_THAT(taken, ElementsAre("before"));
}

TEST_F(Converters, TextThatHasNoUtf8IsAnError) {
  EXPECT_FALSE(kuScript::run("ran(['a', '\\ud800'])"));
  EXPECT_THAT(log, ElementsAre(HasSubstr("line 1: UnicodeEncodeError: ")));
  EXPECT_THAT(taken, ElementsAre("before"));
}

}  // namespace
