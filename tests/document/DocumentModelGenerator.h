#pragma once

#include <random>

#include "DocumentModel.h"

/**
 * Makes models of managers, the same ones for the same seed on every machine. Each draws its names
 * from a few, so that references meet, and names stand twice or are empty.
 */
class DocumentModelGenerator {
 public:
  explicit DocumentModelGenerator(unsigned seed);

  DocumentModel make();

 private:
  int upTo(int most) { return int(_random() % unsigned(most + 1)); }
  bool coin() { return upTo(1) == 1; }

  template <class Values>
  const auto& oneOf(const Values& values) {
    return values[std::size_t(upTo(int(values.size()) - 1))];
  }
  template <class Make>
  auto several(int most, Make make) {
    std::vector<decltype(make())> made;
    for (int left = upTo(most); left > 0; --left)
      made.push_back(make());
    return made;
  }

  QString text();
  /** One of the model's few names. */
  QString name() { return oneOf(_names); }
  DocumentModel::Names names();
  DocumentModel::States states();
  DocumentModel::Map pairs();
  QByteArray preview();
  float number();
  int wholeNumber();
  DocumentModel::Clipping clipping();
  DocumentModel::Option option();
  DocumentModel::Variant variant();
  void fillLists(DocumentModel::Set& set);
  DocumentModel::Set set();
  void addGroups(DocumentModel& model);

  std::mt19937 _random;
  DocumentModel::Names _names;
  int _lastId = 0;
};
