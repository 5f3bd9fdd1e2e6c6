// What it costs to write a document of 1000 sets with 100 references each and 10,000 variants with
// 10 states each, beside the bare building of the same QDomDocument and its toByteArray().

#include <benchmark/benchmark.h>

#include <QDomDocument>
#include <cstdlib>
#include <iostream>
#include <vector>

#include "benchMain.h"
#include "document/kuVariantWriter.h"
#include "host/utils/QKuDomDocumentWriter.h"
#include "manager/kuVariants.h"
#include "model/kuVariantSet.h"
#include "scene/kuNodeVariant.h"

namespace {

constexpr int setCount = 1000;
constexpr int referencesOfASet = 100;
constexpr int variantCount = 10000;
constexpr int statesOfAVariant = 10;

struct Reference {
  QString variant, state;
};

struct Set {
  QString name;
  std::vector<Reference> references;
};

/** The content as plain texts, so that the bare building spends nothing on making them. */
struct Content {
  std::vector<Set> sets;
  std::vector<QString> variants;
  std::vector<QString> states;
};

const Content& content() {
  static const Content all = [] {
    Content made;
    for (int i = 0; i < variantCount; ++i)
      made.variants.push_back("Variant " + QString::number(i));
    for (int i = 0; i < statesOfAVariant; ++i)
      made.states.push_back("State " + QString::number(i));
    for (int i = 0; i < setCount; ++i) {
      made.sets.push_back({"Set " + QString::number(i), {}});
      for (int j = 0; j < referencesOfASet; ++j) {
        const auto variant = std::size_t((i * referencesOfASet + j * 7) % variantCount);
        const auto state = std::size_t(j % statesOfAVariant);
        made.sets.back().references.push_back({made.variants[variant], made.states[state]});
      }
    }
    return made;
  }();
  return all;
}

void fillManager() {
  for (const Set& set : content().sets) {
    kuVariantSet* made = kuVariants::createVariantSet(set.name, false, nullptr);
    for (const Reference& reference : set.references)
      made->addNodeVariant(reference.variant, reference.state);
  }
  for (const QString& name : content().variants) {
    kuNodeVariant* made = kuVariants::createNodeVariant(name, false);
    made->setNode(name);
    for (const QString& state : content().states)
      made->add(state, QString());
  }
}

QDomElement child(QDomDocument& document, QDomElement& parent, const QString& tag) {
  QDomElement made = document.createElement(tag);
  parent.appendChild(made);
  return made;
}

void buildText(QDomDocument& document, QDomElement& parent, const QString& tag,
               const QString& text) {
  child(document, parent, tag).appendChild(document.createTextNode(text));
}

void buildNumbers(QDomElement element, std::initializer_list<std::pair<QString, int>> numbers) {
  for (const auto& number : numbers)
    element.setAttribute(number.first, number.second);
}

void buildFloats(QDomElement element, std::initializer_list<std::pair<QString, float>> floats) {
  for (const auto& value : floats)
    element.setAttribute(value.first, QString::number(double(value.second), 'g', 6));
}

/** The clipping settings of a new set. */
void buildAnalyzer(QDomElement element) {
#define KU_NAME(name) QStringLiteral(name)
  buildNumbers(element, {{KU_NAME("clipState"), 0},
                         {KU_NAME("clipPlaneInvert"), 0},
                         {KU_NAME("clipPlaneHideScene"), 0},
                         {KU_NAME("clipPlaneShow"), 1},
                         {KU_NAME("clipGridShow"), 1},
                         {KU_NAME("clipContourShow"), 1},
                         {KU_NAME("clipContourWidth"), 1}});
  buildFloats(element, {{KU_NAME("clipPlanePositionX"), 0.F},
                        {KU_NAME("clipPlanePositionY"), 0.F},
                        {KU_NAME("clipPlanePositionZ"), 0.F},
                        {KU_NAME("clipPlaneNormalX"), 0.F},
                        {KU_NAME("clipPlaneNormalY"), 1.F},
                        {KU_NAME("clipPlaneNormalZ"), 0.F},
                        {KU_NAME("clipPlaneColorR"), 0.2F},
                        {KU_NAME("clipPlaneColorG"), 0.3F},
                        {KU_NAME("clipPlaneColorB"), 0.4F},
                        {KU_NAME("clipGridColorR"), 0.63F},
                        {KU_NAME("clipGridColorG"), 0.82F},
                        {KU_NAME("clipGridColorB"), 0.89F},
                        {KU_NAME("clipContourColorR"), 1.F},
                        {KU_NAME("clipContourColorG"), 0.7F},
                        {KU_NAME("clipContourColorB"), 0.F}});
}

void buildSet(QDomDocument& document, QDomElement& root, const Set& set) {
  QDomElement element = child(document, root, QStringLiteral("VariantSet"));
  element.setAttribute(QStringLiteral("name"), set.name);
  element.setAttribute(QStringLiteral("comment"), QString());
  element.setAttribute(QStringLiteral("showinvrmenu"), QStringLiteral("true"));
  element.setAttribute(QStringLiteral("synccollaboration"), QStringLiteral("true"));
  element.setAttribute(QStringLiteral("default-viewpoint"), QString());
  buildText(document, element, QStringLiteral("Hotkey"), QString());
  buildText(document, element, QStringLiteral("SequentialAnimation"), QStringLiteral("false"));
  buildText(document, element, QStringLiteral("Script"), QString());
  for (const Reference& reference : set.references) {
    QDomElement made = child(document, element, QStringLiteral("NodeVariantRef"));
    made.setAttribute(QStringLiteral("ref"), reference.variant);
    made.setAttribute(QStringLiteral("state"), reference.state);
  }
  buildNumbers(child(document, element, QStringLiteral("InclInfo")),
               {{KU_NAME("inclNodes"), 0},
                {KU_NAME("inclMats"), 0},
                {KU_NAME("inclLights"), 0},
                {KU_NAME("inclEnv"), 0},
                {KU_NAME("inclView"), 0},
                {KU_NAME("inclSceneplates"), 0}});
  buildAnalyzer(child(document, element, QStringLiteral("Analyzer")));
}
#undef KU_NAME

void buildVariant(QDomDocument& document, QDomElement& root, const QString& name) {
  QDomElement element = child(document, root, QStringLiteral("NodeVariant"));
  element.setAttribute(QStringLiteral("name"), name);
  element.setAttribute(QStringLiteral("base"), name);
  child(document, element, QStringLiteral("Default"))
      .setAttribute(QStringLiteral("ref"), QString());
  for (const QString& state : content().states) {
    QDomElement made = child(document, element, QStringLiteral("State"));
    made.setAttribute(QStringLiteral("name"), state);
    buildText(document, made, QStringLiteral("Hotkey"), QString());
  }
}

QDomDocument buildBare() {
  QDomDocument document(QStringLiteral("variants"));
  document.appendChild(document.createProcessingInstruction(
      QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"utf-8\"")));
  QDomElement root = document.createElement(QStringLiteral("Variants"));
  document.appendChild(root);
  for (const Set& set : content().sets)
    buildSet(document, root, set);
  for (const QString& variant : content().variants)
    buildVariant(document, root, variant);
  return document;
}

void bareWrite(benchmark::State& state) {
  for (auto _ : state) {
    QDomDocument document = buildBare();
    const QByteArray text = document.toByteArray();
    state.PauseTiming();  // the end of the tree does not count, here and below
    state.counters["text_MB"] = static_cast<double>(text.size()) / 1024 / 1024;
    document = QDomDocument();
    state.ResumeTiming();
  }
}

void write(benchmark::State& state) {
  kuVariantWriter writer;
  for (auto _ : state) {
    const QByteArray text = writer.write();
    state.PauseTiming();
    state.counters["text_MB"] = static_cast<double>(text.size()) / 1024 / 1024;
    writer = kuVariantWriter();
    state.ResumeTiming();
  }
}

/** Both build the same document: otherwise the figures would say nothing. */
bool isSame() {
  return kuVariantWriter().write() == QKuDomDocumentWriter::toString(buildBare()).toUtf8();
}

bool prepare() {
  fillManager();
  if (!isSame()) {
    std::cerr << "The bare building does not make the document that is written.\n";
    return false;
  }
  // Alternating passes: each name stands once per repetition, one behind the other.
  for (int pass = 0; pass < 5; ++pass) {
    benchmark::RegisterBenchmark("toByteArray", bareWrite)->Iterations(2);
    benchmark::RegisterBenchmark("write", write)->Iterations(2);
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) { return benchMain(argc, argv, prepare); }
