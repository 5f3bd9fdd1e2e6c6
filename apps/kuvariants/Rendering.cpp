#include "Rendering.h"

#include <QFileInfo>
#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>

#include "CommandLine.h"
#include "ContactSheet.h"
#include "Failure.h"
#include "FileClash.h"
#include "Interrupt.h"
#include "OutputFile.h"
#include "PictureFileNames.h"
#include "ProgressBar.h"
#include "Selection.h"
#include "SequentialSets.h"
#include "manager/kuVariants.h"
#include "model/kuVariantGroup.h"
#include "model/kuVariantSet.h"
#include "standalone/scene/SceneSnapshot.h"
#include "standalone/script/ScriptPolicy.h"
#include "standalone/script/ScriptVariables.h"

using namespace kuStandalone;
namespace fs = std::filesystem;

namespace {

/** The sets of the groups, then those in no group. */
std::vector<QString> allSets() {
  std::vector<QString> names;
  for (const kuVariantGroup* group : kuVariants::getVariantGroups()) {
    for (const kuVariantSet* set : group->getVariantSets())
      names.push_back(set->getName());
  }
  for (const kuVariantSet* set : kuVariants::getVariantSets()) {
    if (!set->getGroup()) names.push_back(set->getName());
  }
  return names;
}

/** Those asked for, each once. */
std::vector<QString> wantedSets(const RenderOptions& options, const std::vector<QString>& all) {
  if (options.sets.empty()) return all;
  std::vector<QString> wanted;
  for (const QString& name : options.sets) {
    existingSet(name);
    if (std::find(wanted.begin(), wanted.end(), name) == wanted.end()) wanted.push_back(name);
  }
  return wanted;
}

void makeFolder(const std::string& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  if (!error && fs::is_directory(folder, error)) return;
  throw Failure{ExitCode::OutputNotWritten, "cannot write", folder,
                error ? error.message() : "not a folder", error.value()};
}

/** Whole, or not at all. */
void writeFile(const std::string& path, const QByteArray& content) {
  const Interrupt::Deferred untilInPlace;
  OutputFile file(path);
  file.prepare(content.toStdString());
  file.put();
}

QString shortName(const std::string& path) {
  return QFileInfo(QString::fromStdString(path)).fileName();
}

/** What each set starts from. */
class Start {
 public:
  Start() {
    if (ScriptPolicy::allowed()) _variables.emplace();
  }

  void restore() const {
    _scene.restore(Scene::the());
    _sets.restore();
    if (_variables) _variables->restore();
  }

 private:
  SceneSnapshot _scene{Scene::the()};
  SequentialSets _sets;
  /** None where no script may run: nothing changes them then. */
  std::optional<ScriptVariables> _variables;
};

/** One run through the sets. */
class Rendering {
 public:
  Rendering(const RenderOptions& options, const Invocation& invocation)
      : _options(options),
        _invocation(invocation),
        _all(allSets()),
        _wanted(wantedSets(options, _all)),
        _files(pictureFileNames(_all)),
        _bar(double(_wanted.size()) * workPerSet()) {}

  RenderReport run() {
    prepareOutputs();
    ScriptPolicy::clearRefusals();
    if (_options.restoreMaterials) warnWhereNotRestored(_wanted);
    for (const QString& set : _wanted) {
      if (!_options.cumulative) _start.restore();
      render(set);
    }
    writePage();
    if (_invocation.saveSheet) {
      writeFile(*_invocation.saveSheet, pictureFile(_sheet.paint(), *_invocation.saveSheet));
    }
    storePreviews();
    _report.scriptsHeldBack = ScriptPolicy::refusalCount();
    return _report;
  }

 private:
  static double workOf(const PictureSettings& settings) {
    return double(settings.width) * settings.height;
  }

  PictureSettings previewSettings() const {
    PictureSettings settings;
    settings.samples = _invocation.picture.samples;
    return settings;
  }

  double workPerSet() const {
    return workOf(_invocation.picture) + (_options.previews ? workOf(previewSettings()) : 0);
  }

  /** So that nobody waits for pictures that cannot be kept. */
  void prepareOutputs() const {
    const std::vector<std::string> files = filesInFolder();
    for (const std::string& file : files)
      refuseClash(_invocation, file);
    const Interrupt::Deferred untilCleanedUp;
    makeFolder(_options.folder);
    for (const std::string& file : files)
      OutputFile::check(file);
    for (const auto& file : {_invocation.saveSheet, _invocation.saveDocument}) {
      if (file) OutputFile::check(*file);
    }
  }

  std::vector<std::string> filesInFolder() const {
    std::vector<std::string> files{inFolder(_options.folder, pageFile)};
    for (const QString& set : _wanted)
      files.push_back(inFolder(_options.folder, _files.at(set)));
    return files;
  }

  void render(const QString& name) {
    QElapsedTimer time;
    time.start();
    activateSet(name, false, _options.restoreMaterials);
    SetPicture picture = describe(name);
    const std::string path = inFolder(_options.folder, picture.file);
    const QImage image = take(name, _invocation.picture);
    writeFile(path, pictureFile(image, path));
    picture.milliseconds = time.elapsed();
    _report.pictures.push_back(picture);
    if (_invocation.saveSheet) _sheet.add(name, picture.group, image);
    if (_options.previews) _previews[name] = pictureFile(take(name, previewSettings()), path);
  }

  /** A script may have removed the set by now. */
  SetPicture describe(const QString& name) const {
    SetPicture picture;
    picture.set = name;
    picture.file = _files.at(name);
    const kuVariantSet& set = existingSet(name);
    picture.comment = set.getComment();
    picture.hotkey = set.getHotkey();
    if (!set.getGroup()) return picture;
    picture.group = set.getGroup()->getName();
    picture.groupComment = set.getGroup()->getComment();
    return picture;
  }

  QImage take(const QString& label, const PictureSettings& settings) {
    _bar.begin(label, workOf(settings));
    const QImage image = _renderer.render(Scene::the(), settings, [this](double share) {
      _bar.show(share);
      return true;
    });
    _bar.end();
    return image;
  }

  void writePage() const {
    PageSettings settings;
    settings.scene = shortName(_invocation.scene);
    settings.document = shortName(*_invocation.document);
    settings.picture = _invocation.picture;
    settings.cumulative = _options.cumulative;
    writeFile(inFolder(_options.folder, pageFile),
              picturePage(_report.pictures, settings).toUtf8());
  }

  /** At the end, since a set that is put back to the start would lose it. */
  void storePreviews() const {
    for (const auto& preview : _previews) {
      if (kuVariantSet* set = kuVariants::findVariantSet(preview.first))
        set->setPreview(preview.second);
    }
  }

  const RenderOptions& _options;
  const Invocation& _invocation;
  const std::vector<QString> _all, _wanted;
  const std::map<QString, QString> _files;
  const Start _start;
  Renderer _renderer;
  ProgressBar _bar;
  ContactSheet _sheet;
  std::map<QString, QByteArray> _previews;
  RenderReport _report;
};

}  // namespace

RenderReport renderSets(const RenderOptions& options, const Invocation& invocation) {
  return Rendering(options, invocation).run();
}

QImage takePicture(const PictureSettings& settings) {
  ProgressBar bar(1);
  bar.begin(QString(), 1);
  return Renderer().render(Scene::the(), settings, [&](double share) {
    bar.show(share);
    return true;
  });
}

std::string inFolder(const std::string& folder, const QString& file) {
  return (fs::path(folder) / file.toStdString()).string();
}
