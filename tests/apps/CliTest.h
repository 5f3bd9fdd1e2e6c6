#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QByteArray>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <string>
#include <vector>

/** What the executable answered. */
struct CliResult {
  int code = -1;
  std::string out;
  std::string err;
};

/**
 * Runs the real executable in a folder of its own, which holds a small scene, "car.gltf", and its
 * document, "car.xml". They are written by each test.
 */
class CliTest : public ::testing::Test {
 protected:
  CliTest();

  /** Writes a file into the folder. */
  void write(const QString& name, const QByteArray& content);
  /** A file of the folder; fails the test if it is not there. */
  std::string read(const QString& name);
  bool exists(const QString& name) const;
  /** The names of all files in the folder, sorted. */
  QStringList files() const;

  /**
   * Makes a device of the folder on which nothing fits. It must not be the system's that a failure
   * of a test replaces: so it is a node of our own, or where that needs rights that we have not,
   * and so have none over the system's either, a link to that.
   */
  void makeFullDevice(const QString& name);
  /** Whether a device stands there, be it behind a link. */
  bool isDevice(const QString& name) const;

  CliResult run(const QStringList& arguments);
  /**
   * The same from a shell: @p setUp is a command before it ("ulimit -f 0"), @p redirection comes
   * behind it (">/dev/full").
   */
  CliResult runInShell(const QString& setUp, const QStringList& arguments,
                       const QString& redirection);
  /** Starts it and does not wait. */
  void start(QProcess& process, const QStringList& arguments);
  static CliResult finish(QProcess& process);

  /** The current states of all variants, as "select --json" tells them, without the rest. */
  std::string statesOf(const CliResult& result);

  QTemporaryDir folder;
};

/** JSON without blanks and with sorted keys, so that two texts compare; "no JSON" if it is none. */
std::string normalised(const std::string& json);

/** The lines of a text. */
std::vector<std::string> linesOf(const std::string& text);
