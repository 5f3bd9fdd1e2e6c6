#include "DocumentAlone.h"

namespace {

void add(DocumentAlone& all, const SwitchChange& change) {
  if (change.isOfFile) {
    for (const QString& material : change.added)
      all.grown.emplace_back(change.name, material);
  } else if (!change.added.isEmpty()) {
    (change.isOfEnvironments ? all.madeAnewAsPlain : all.madeAnew) += change.name;
  }
}

}  // namespace

DocumentAlone documentAlone(const std::vector<CaptureReport>& reports) {
  DocumentAlone all;
  for (const CaptureReport& report : reports) {
    for (const SwitchChange& change : report.switches)
      add(all, change);
    if (!report.content.defaultViewpoint.isEmpty()) {
      all.viewpoints += report.content.defaultViewpoint;
    }
    all.names += report.renamings.size();
    if (report.hasRenderLayers) all.renderLayers += report.set;
  }
  all.madeAnew.removeDuplicates();
  all.madeAnewAsPlain.removeDuplicates();
  return all;
}
