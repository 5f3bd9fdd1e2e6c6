#include "LiveTest.h"

#include <QFile>
#include <QJsonDocument>
#include <algorithm>

namespace {

std::string text(const QJsonObject& object) {
  return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

}  // namespace

LiveTest::LiveTest()
    : scene(KUVARIANTS_SAMPLES "/car/car.gltf"),
      document(KUVARIANTS_SAMPLES "/car/car.variants.xml") {}

void LiveTest::TearDown() {
  for (const auto& partner : _partners)
    partner->type(QString("quit"));
  for (const auto& partner : _partners) {
    EXPECT_EQ(partner->waitForEnd(), 0)
        << partner->name().toStdString() << ": " << partner->diagnostics().toStdString();
  }
}

LivePartner& LiveTest::start(const QString& name, const QStringList& more) {
  const QStringList arguments{scene, document, "--session", url(), "--name", name, "--json"};
  _partners.push_back(std::make_unique<LivePartner>(name, arguments + more));
  return *_partners.back();
}

LivePartner& LiveTest::join(const QString& name, const QStringList& more) {
  LivePartner& partner = start(name, more);
  partner.waitFor("joined");
  return partner;
}

void LiveTest::forget(const LivePartner& partner) {
  const auto isIt = [&](const auto& one) { return one.get() == &partner; };
  _partners.erase(std::remove_if(_partners.begin(), _partners.end(), isIt), _partners.end());
}

QString LiveTest::write(const QString& name, const QByteArray& text) {
  QFile file(_folder.filePath(name));
  EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  EXPECT_EQ(file.write(text), text.size());
  return file.fileName();
}

QByteArray LiveTest::sample(const QString& name) {
  QFile file(KUVARIANTS_SAMPLES "/car/" + name);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly));
  return file.readAll();
}

void LiveTest::settle(const Partners& partners) {
  QSet<QString> ids;
  for (LivePartner* partner : partners)
    partner->type(QString("variant node:Jack=!Enable"));
  for (LivePartner* partner : partners) {
    // Lines are obeyed one after the other, so this is the answer to the last one.
    partner->state();
    QString last;
    for (const ToldCommand& command : partner->commands()) {
      if (command.isOwn) last = command.id;
    }
    ids += last;
  }
  for (LivePartner* partner : partners)
    partner->waitForCommands(ids);
}

void LiveTest::expectSameStates(const Partners& partners) {
  const QJsonObject first = partners.front()->state();
  EXPECT_FALSE(first["states"].toObject().isEmpty());
  for (LivePartner* partner : partners) {
    EXPECT_EQ(text(partner->state()), text(first)) << "of " << partner->name().toStdString();
  }
}

void LiveTest::expectSameOrder(const Partners& partners, int count) {
  for (LivePartner* partner : partners)
    partner->waitForCommands(count);
  const QStringList order = orderOf(partners.front()->commands());
  EXPECT_EQ(order.size(), count);
  EXPECT_EQ(QStringList(order).removeDuplicates(), 0);
  for (const LivePartner* partner : partners) {
    EXPECT_EQ(orderOf(partner->commands()), order) << "of " << partner->name().toStdString();
  }
}

QStringList storm(int person, int count) {
  const QStringList lines{"select Sport",
                          "variant material:Paint=!Next (Loop)",
                          "select Winter Trip",
                          "variant node:Roof=!Next (Loop)",
                          "variant transform:Left Door=!Previous (Loop)",
                          "select Jack",
                          "variant overlay:Season=!Next (Loop)",
                          "variant light:Sun=!Toggle",
                          "select Family",
                          "variant node:Rack=!Previous",
                          "variant material:Paint=Silver",
                          "select Night Drive",
                          "variant node:Roof=Softtop",
                          "variant node:Jack=!Toggle",
                          "select Summer Trip",
                          "variant material:Glass=!Next (Loop)",
                          "select Base Model"};
  QStringList typed;
  for (int i = 0; i < count; ++i)
    typed += lines[(i * (3 + 2 * person) + 5 * person) % lines.size()];
  return typed;
}

QString stateOf(const QJsonObject& state, const QString& kind, const QString& variant) {
  return state["states"].toObject()[kind].toObject()[variant].toString("none");
}
