#include "JsonWriter.h"
#include "joining/Happening.h"

namespace {

using What = Happening::What;

const char* nameOf(What what) {
  switch (what) {
    case What::Joined:
      return "joined";
    case What::PartnerIsHere:
      return "partner-here";
    case What::PartnerHasLeft:
      return "partner-left";
    case What::Selected:
      return "selected";
    case What::BrokerLost:
      return "broker-lost";
    case What::BrokerBack:
      return "broker-back";
    case What::Refused:
      return "refused";
    case What::State:
      return "state";
    case What::Partners:
      return "partners";
    case What::Help:
      return "help";
    case What::Fault:
      return "fault";
    case What::Left:
      return "left";
  }
  return "";
}

void writeChange(JsonWriter& json, const VariantChange& one) {
  json.object([&] {
    json.entry("kind", one.kind->name);
    json.entry("name", one.variant);
    json.entry("before", one.before);
    json.entry("after", one.after);
  });
}

void writeChanges(JsonWriter& json, const SelectionReport& report) {
  std::vector<VariantChange> changed;
  for (const VariantChange& one : report.variants) {
    if (one.before != one.after) changed.push_back(one);
  }
  json.key("sets");
  json.list(report.sets);
  json.key("changed");
  json.array(changed, [&](const VariantChange& one) { writeChange(json, one); });
  json.entry("viewpoint", report.viewpoint);
  json.key("animations");
  json.list(report.animations);
}

void writeJoined(JsonWriter& json, const Happening& it) {
  json.entry("session", it.session);
  json.entry("broker", it.broker);
  json.entry("name", it.who);
  writeChanges(json, it.report);
}

void writeSelected(JsonWriter& json, const Happening& it) {
  json.entry("by", it.who);
  json.entry("own", it.isOwn);
  json.entry("shared", it.isShared);
  json.entry("sent", it.isShared && it.isSent);
  if (it.isShared) {
    json.entry("sequence", it.sequence);
    json.entry("id", it.id);
  }
  writeChanges(json, it.report);
}

void writePartners(JsonWriter& json, const Happening& it) {
  json.entry("name", it.who);
  json.key("partners");
  json.array(it.partners, [&](const kuStandalone::SessionPartner& partner) {
    json.object([&] {
      json.entry("name", partner.name);
      json.entry("joining", partner.isJoining);
    });
  });
}

void writeState(JsonWriter& json, const Happening& it) {
  json.key("states");
  json.object([&] { writeStates(json, it.report); });
  json.entry("viewpoint", it.report.viewpoint);
}

void writeMembers(JsonWriter& json, const Happening& it) {
  json.entry("event", nameOf(it.what));
  switch (it.what) {
    case What::Joined:
      return writeJoined(json, it);
    case What::PartnerIsHere:
    case What::PartnerHasLeft:
      return json.entry("name", it.who);
    case What::Selected:
      return writeSelected(json, it);
    case What::BrokerBack:
      return;
    case What::State:
      return writeState(json, it);
    case What::Partners:
      return writePartners(json, it);
    case What::Fault:
      json.entry("line", it.line);
      return json.entry("reason", it.reason);
    case What::Refused:
      json.entry("name", it.who);
      return json.entry("reason", it.reason);
    case What::BrokerLost:
    case What::Left:
      return json.entry("reason", it.reason);
    case What::Help:
      return json.entry("text", it.reason);
  }
}

}  // namespace

std::string happeningJson(const Happening& it) {
  JsonWriter json;
  json.object([&] { writeMembers(json, it); }, JsonWriter::Layout::OneLine);
  return json.text() + '\n';
}
