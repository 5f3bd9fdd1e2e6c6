// Script texts for partners.

#include <QThread>

#include "SessionTest.h"
#include "host/kernel/kuController.h"
#include "host/script/kuScript.h"
#include "manager/kuVariants.h"
#include "script/HostileTexts.h"
#include "standalone/kernel/HostState.h"
#include "standalone/script/ClippingSettings.h"
#include "standalone/script/PartnerCommands.h"
#include "standalone/script/ScriptPolicy.h"
#include "standalone/session/SessionSubject.h"
#include "support/BrokerAdministrator.h"

using namespace kuStandalone;

namespace {

class PartnerScriptTest : public SessionTest {
 protected:
  PartnerScriptTest() { ClippingSettings::the() = {}; }
  ~PartnerScriptTest() override {
    ClippingSettings::the() = {};
    ScriptPolicy::allow(false);
  }
};

}  // namespace

TEST_F(PartnerScriptTest, CommandsOfAPartnerRun) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.tell("script enableClippingPlane(True)");
  waitFor("ran Script of Ben");
  EXPECT_TRUE(ClippingSettings::the().enabled);
}

TEST_F(PartnerScriptTest, ASynchronousCommandRunsHereAndGoesToThePartners) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  EXPECT_TRUE(kuScript::executeNUS("enableClippingPlane(True)", true));
  EXPECT_TRUE(ClippingSettings::the().enabled);
  ben.waitFor("ran Script of Ada");
  let(100);
  EXPECT_EQ(events.filter("Script"), QStringList());
}

// The broker has Ben's first; here it came while nobody looked.
TEST_F(PartnerScriptTest, ASynchronousCommandRunsAgainBehindAPartnersThatHasItsPlaceInFront) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.send("script setClippingHideScene(True)");
  ben.waitAlone("done script");
  QThread::msleep(300);
  kuScript::executeNUS("setClippingHideScene(False)", true);
  waitFor("ran Script of Ben");
  waitUntil([] { return !ClippingSettings::the().hideScene; });
}

TEST_F(PartnerScriptTest, ASelectionByASynchronousCommandGoesToThePartnersOnce) {
  join();
  kuVariants::createVariantSet("Look", false, nullptr);
  BrokerAdministrator administrator(broker.url());
  kuScript::executeNUS("selectVariantSet('Look')", true);
  let(300);
  EXPECT_EQ(administrator.messages(SessionSubject("review").stream()), 1);
  EXPECT_EQ(events.filter("ran"), QStringList{"ran SelectVariantSet own"});
  kuController::call("clearAllVariants", 1);
}

TEST_F(PartnerScriptTest, OneThatIsNotSynchronousStaysHere) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  EXPECT_TRUE(kuScript::executeNUS("enableClippingPlane(True)", false));
  push("A", "1");
  ben.notes(1);
  EXPECT_EQ(ben.printed().filter("Script"), QStringList());
}

TEST_F(PartnerScriptTest, WhatIsNoCommandIsRefusedAlsoWhereScriptsMayRun) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ScriptPolicy::allow(true);
  ben.tell("script import os; enableClippingPlane(True)");
  ben.tell("script x = enableClippingPlane(True)");
  ben.tell("push A 1");
  notes(1);
  EXPECT_FALSE(ClippingSettings::the().enabled);
  EXPECT_EQ(events.filter("Script"), QStringList());
  ASSERT_EQ(log.size(), 1);
  EXPECT_TRUE(log[0].startsWith("Session: a message of Ben was dropped: ")) << log[0].toStdString();
}

TEST_F(PartnerScriptTest, ALateJoinerDoesNotRunOldScripts) {
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  ben.tell("script enableClippingPlane(True)");
  ben.tell("push A 1");
  join();
  EXPECT_EQ(notes(1), QStringList{"A=1 (joining)"});
  EXPECT_FALSE(ClippingSettings::the().enabled);
  ben.tell("script setClippingHideScene(True)");
  waitFor("ran Script of Ben");
  EXPECT_TRUE(ClippingSettings::the().hideScene);
}

TEST_F(PartnerScriptTest, AScriptThatWasSentAloneGoesOutWhenTheBrokerIsBack) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  broker.kill();
  waitFor("lost");
  kuScript::executeNUS("enableClippingPlane(True)", true);
  broker.restart();
  ben.waitFor("ran Script of Ada");
  waitFor("back");
  EXPECT_EQ(events.filter("Script"), QStringList());
}

TEST_F(PartnerScriptTest, AScriptOfAPartnerWaitsWhileTheApplicationIsBusy) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  ben.tell("script enableClippingPlane(True)");
  let(200);
  EXPECT_FALSE(ClippingSettings::the().enabled);
  HostState::the().busy = false;
  waitFor("ran Script of Ben");
  EXPECT_TRUE(ClippingSettings::the().enabled);
}

TEST_F(PartnerScriptTest, WhatWasPushedWhileBusyRunsAgainBehindAScriptOfAPartner) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  HostState::the().busy = true;
  push("A", "1");
  ben.tell("script enableClippingPlane(True)");
  let(200);
  HostState::the().busy = false;
  EXPECT_EQ(notes(2), (QStringList{"A=1", "A=1"}));
}

TEST_F(PartnerScriptTest, WhatWasPushedWhileBusyDoesNotRunAgainBehindAScriptOfOnesOwn) {
  join();
  HostState::the().busy = true;
  session->pushScript("enableClippingPlane(True)");
  push("A", "1");
  HostState::the().busy = false;
  waitUntil([this] { return session->unsent() == 0; });
  push("B", "1");
  EXPECT_EQ(sessionNotes(), (QStringList{"A=1", "B=1"}));
}

TEST_F(PartnerScriptTest, AScriptWhoseAcknowledgementIsLostRunsOnce) {
  join();
  PartnerProcess ben(broker.url(), "review", "Ben");
  ben.waitFor("joined");
  broker.pause();
  session->pushScript("enableClippingPlane(True)");
  EXPECT_EQ(session->unsent(), 1u);
  broker.resume();
  waitFor("back");
  ben.waitFor("ran Script of Ada");
  push("A", "1");
  ben.notes(1);
  EXPECT_EQ(ben.printed().filter("Script").size(), 1);
}

TEST_F(PartnerScriptTest, WhatHasGoneOutNeedsNoRoomAnyMore) {
  join();
  for (int round = 1; round <= 2; ++round) {
    HostState::the().busy = true;
    for (int count = 0; count < 35; ++count)
      session->pushScript(QByteArray(1'000'000, ' '));
    EXPECT_EQ(session->unsent(), 35u);
    HostState::the().busy = false;
    waitUntil([this] { return session->unsent() == 0; });
    push("A", QString::number(round));
  }
  EXPECT_EQ(log, QStringList());
}

TEST_F(PartnerScriptTest, AScriptThatIsTooLongIsNotSent) {
  join();
  session->pushScript(QByteArray(1 << 20, ' '));
  EXPECT_EQ(session->unsent(), 0u);
  EXPECT_EQ(session->status(), Session::Status::Joined);
  ASSERT_EQ(log.size(), 1);
  EXPECT_TRUE(log[0].contains("is too long for the partners")) << log[0].toStdString();
}

TEST(PartnerCommandsTest, HostileTextsDoNotRun) {
  ScriptPolicy::allow(true);
  for (const HostileText& hostile : hostileTexts()) {
    const QByteArray text(hostile.text.data(), int(hostile.text.size()));
    EXPECT_NE(runPartnerCommands(text), "") << hostile.name;
  }
  ScriptPolicy::allow(false);
}

TEST(PartnerCommandsTest, TellsWhyNothingRan) {
  ClippingSettings::the() = {};
  EXPECT_EQ(runPartnerCommands(QByteArray("enableClippingPlane(True)\0x", 27)),
            "its text has a NUL");
  EXPECT_EQ(runPartnerCommands("enableClippingPlane(").find("line 1: SyntaxError: "), 0u);
  EXPECT_EQ(runPartnerCommands("enableClippingPlane()").find("it failed: "), 0u);
  EXPECT_FALSE(ClippingSettings::the().enabled);
  EXPECT_EQ(runPartnerCommands("enableClippingPlane(True)"), "");
  EXPECT_TRUE(ClippingSettings::the().enabled);
  ClippingSettings::the() = {};
}
