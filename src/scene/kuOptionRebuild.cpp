#include "scene/kuOptionRebuild.h"

#include "model/kuKeyword.h"

void kuAddStepKeywords(kuVariant& variant) {
  for (const kuKeyword step : kuStepKeywords)
    variant.add(true, kuKeywordText(step), QString());
}

kuOptionRebuild::kuOptionRebuild(kuVariant& variant)
    : _variant(variant), _formerDefault(variant.getDefault()) {
  for (const kuVariantOption& option : variant.getOptions()) {
    _formerOptions.emplace(option.getName(), option);
  }
  variant.clear();
}

void kuOptionRebuild::addState(const QString& name) {
  const auto former = _formerOptions.find(name);
  if (former == _formerOptions.end()) return _variant.add(name, QString());
  _variant.add(former->second.getAction(), name, former->second.getHotkey());
}

void kuOptionRebuild::addAction(const QString& name) {
  const auto former = _formerOptions.find(name);
  if (former == _formerOptions.end()) return _variant.add(name, QString());
  _variant.add(true, name, former->second.getHotkey());
}

void kuOptionRebuild::addSteps() {
  for (const kuKeyword step : kuStepKeywords)
    addAction(kuKeywordText(step));
}

bool kuOptionRebuild::restoreDefault() {
  // The list may have an option without a name, but an empty default never names it.
  if (_formerDefault.isEmpty()) return false;
  const kuVariantOption* option = _variant.find(_formerDefault);
  if (!option || option->getAction()) return false;
  _variant.setDefault(_formerDefault);
  return true;
}
