#pragma once

#include <QDir>
#include <QFile>

#include "CliTest.h"

/** Runs scripts on the small scene and its document. */
class RunTest : public CliTest {
 protected:
  /** Writes "script.py" and runs it with arguments; options stand before the command. */
  CliResult runScript(const QByteArray& script, const QStringList& arguments = {},
                      const QStringList& options = {}) {
    write("script.py", script);
    return run(options + QStringList{"run", "car.gltf", "car.xml", "script.py"} + arguments);
  }

  /** What a script prints that must end well and say nothing on standard error. */
  std::string printed(const QByteArray& script, const QStringList& arguments = {}) {
    const CliResult result = runScript(script, arguments);
    EXPECT_EQ(result.code, 0);
    EXPECT_EQ(result.err, "");
    return result.out;
  }

  /** "NameError: text" of the exception that an expression raises. */
  std::string raised(const QByteArray& expression) {
    return printed("try:\n    " + expression +
                   "\nexcept Exception as error:\n"
                   "    print(type(error).__name__ + ':', error)\n");
  }
};
