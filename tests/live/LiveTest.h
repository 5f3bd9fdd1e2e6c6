#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <memory>

#include "LivePartner.h"
#include "support/NatsBroker.h"

/** How texts show where a comparison fails. */
inline void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }

/** Fixture of the tests with real processes and a real broker. Who is there at the end of a test
 * leaves, and has to end well. */
class LiveTest : public ::testing::Test {
 protected:
  using Partners = std::vector<LivePartner*>;

  LiveTest();
  void TearDown() override;

  /** Starts somebody with the present scene and document, and waits until it has joined. */
  LivePartner& join(const QString& name, const QStringList& more = {});
  /** The same without waiting. */
  LivePartner& start(const QString& name, const QStringList& more = {});
  /** Somebody who will not be asked to leave any more. */
  void forget(const LivePartner& partner);

  /** "nats://127.0.0.1:port/review" */
  virtual QString url() const { return broker->url() + "/review"; }
  /** Writes a file of the test's own, and answers its name. */
  QString write(const QString& name, const QByteArray& text);
  static QByteArray sample(const QString& name);

  /**
   * Waits until all have run everything that these have typed, also what they sent when the broker
   * was back: each selects once more, and all wait for that.
   */
  static void settle(const Partners& partners);
  /** All show the same, as a whole. */
  static void expectSameStates(const Partners& partners);
  /** All have run the same commands in the same order, each once. */
  static void expectSameOrder(const Partners& partners, int count);

  std::unique_ptr<NatsBroker> broker = std::make_unique<NatsBroker>();
  /** Of those who join from now on. */
  QString scene, document;

 private:
  QTemporaryDir _folder;
  std::vector<std::unique_ptr<LivePartner>> _partners;
};

/** Selections of sets and of single variants, absolute ones and steps; other ones for each person.
 * Each is one command. */
QStringList storm(int person, int count);

/** The state of one variant out of what somebody shows. */
QString stateOf(const QJsonObject& state, const QString& kind, const QString& variant);
