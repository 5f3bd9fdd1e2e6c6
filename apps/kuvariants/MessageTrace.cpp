#include "MessageTrace.h"

#include <QString>
#include <algorithm>
#include <optional>
#include <vector>

#include "JsonWriter.h"
#include "Kinds.h"
#include "manager/kuVariants.h"
#include "model/kuVariant.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"

using kuStandalone::PassedMessage;

namespace {

/** The name of what the pointer points to if it is among the living. */
template <class List>
std::optional<QString> nameAmong(const List& living, const void* pointer) {
  const auto found =
      std::find_if(living.begin(), living.end(), [&](const auto* one) { return one == pointer; });
  if (found == living.end()) return std::nullopt;
  return (*found)->getName();
}

std::optional<QString> nameOfVariant(const void* pointer) {
  for (const Kind& kind : kinds()) {
    if (const std::optional<QString> name = nameAmong(kind.variants(), pointer)) return name;
  }
  return std::nullopt;
}

/**
 * The pointers are told apart by the message and by the attribute: "variant" is also the attribute
 * of the messages about sets and groups. The two removals go out when the object has left the
 * manager's list and is yet to be destroyed.
 */
std::optional<QString> nameOf(const std::string& message, const std::string& attribute,
                              const void* pointer) {
  if (message == "variantSetRemoved") return static_cast<const kuVariantSet*>(pointer)->getName();
  if (message == "variantGroupRemoved") {
    return static_cast<const kuVariantGroup*>(pointer)->getName();
  }
  if (message == "variantSetAdded" || attribute == "variantSet") {
    return nameAmong(kuVariants::getVariantSets(), pointer);
  }
  if (message == "variantGroupAdded") return nameAmong(kuVariants::getVariantGroups(), pointer);
  return nameOfVariant(pointer);
}

void writeAttribute(JsonWriter& json, const std::string& message,
                    const kuMessage::Attribute& attribute) {
  json.key(QString::fromStdString(attribute.first));
  const boost::any& value = attribute.second;
  if (const auto* text = boost::any_cast<std::string>(&value)) return json.value(*text);
  if (const auto* text = boost::any_cast<const char*>(&value)) return json.value(*text);
  if (const auto* flag = boost::any_cast<bool>(&value)) return json.value(*flag);
  if (const auto* list = boost::any_cast<std::vector<std::string>>(&value)) return json.list(*list);
  if (const auto* list = boost::any_cast<std::vector<QString>>(&value)) return json.list(*list);
  if (const auto* pointer = boost::any_cast<void*>(&value)) {
    const std::optional<QString> name = nameOf(message, attribute.first, *pointer);
    return name ? json.value(*name) : json.null();
  }
  json.null();
}

void writeNamed(JsonWriter& json, const PassedMessage& message) {
  json.entry("message", message.name);
  json.entry("mode", message.mode);
  json.key("attributes");
  json.object([&] {
    if (!message.hasRecord) return;
    for (const kuMessage::Attribute& attribute : message.record->attributes()) {
      writeAttribute(json, message.name, attribute);
    }
  });
}

std::string lineOf(const PassedMessage& message) {
  JsonWriter json;
  json.object(
      [&] {
        if (!message.name.empty()) return writeNamed(json, message);
        json.entry("number", message.record->number());
      },
      JsonWriter::Layout::OneLine);
  return json.text() + '\n';
}

}  // namespace

MessageTrace::MessageTrace()
    : _watch([this](const PassedMessage& message) { _lines += lineOf(message); }) {}
