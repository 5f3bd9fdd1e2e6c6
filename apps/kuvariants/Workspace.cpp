#include "Workspace.h"

#include <QFile>
#include <algorithm>
#include <limits>
#include <string_view>

#include "Diagnostics.h"
#include "Failure.h"
#include "Interrupt.h"
#include "MessageTrace.h"
#include "OutputFile.h"
#include "Rendering.h"
#include "document/kuVariantReader.h"
#include "document/kuVariantWriter.h"
#include "host/kernel/kuController.h"
#include "standalone/gltf/SceneFile.h"
#include "standalone/scene/Scene.h"
#include "standalone/script/ScriptPolicy.h"

using namespace kuStandalone;

namespace {

/** Qt's own remarks ("XDG_RUNTIME_DIR not set") are of no use to the user of a command. */
void onQtMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
  if (type == QtCriticalMsg || type == QtFatalMsg) printDiagnostic(text.toStdString());
}

/** Qt keeps a reference to the count and to the arguments; ours are none of its business. */
struct QtArguments {
  int count = 1;
  char name[11] = "kuvariants";
  char* values[2] = {name, nullptr};
};

QtArguments& qtArguments() {
  // The commands need no window, and without a display Qt would not start on any other platform.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qInstallMessageHandler(onQtMessage);
  static QtArguments arguments;
  return arguments;
}

QByteArray readWhole(const std::string& path) {
  const auto fail = [&](const QString& reason) {
    throw Failure{ExitCode::InputNotValid, "cannot read document", path, reason.toStdString()};
  };
  QFile file(QFile::decodeName(path.c_str()));
  if (!file.open(QIODevice::ReadOnly)) fail(file.errorString());
  Workspace::checkDocumentSize(file.size(), path);
  const QByteArray text = file.readAll();
  if (file.error() != QFileDevice::NoError) fail(file.errorString());
  return text;
}

void savePresentScene(const std::string& path) {
  if (OutputFile::isSpecial(path) || OutputFile::isStandardOutput(path)) {
    throw Failure{ExitCode::OutputNotWritten, "cannot write", path, "not a regular file"};
  }
  const SceneSaveResult result = saveScene(Scene::the(), path);
  if (result.status == SceneSaveResult::Status::Saved) return;
  // The error begins with the file.
  const std::size_t reason = std::min(path.size() + 2, result.error.size());
  throw Failure{ExitCode::OutputNotWritten, "cannot write", path, result.error.substr(reason),
                result.systemError};
}

/** The picture of the present scene; made before signals are held back, since it takes a while. */
std::string presentPicture(const Invocation& invocation) {
  if (!invocation.savePicture) return {};
  OutputFile::check(*invocation.savePicture);
  const QImage picture = takePicture(invocation.picture);
  return pictureFile(picture, *invocation.savePicture).toStdString();
}

void writeWhole(const std::string& path, const std::string& content) {
  const Interrupt::Deferred untilInPlace;
  OutputFile file(path);
  file.prepare(content);
  file.put();
}

Workspace* living = nullptr;

std::string presentDocument() { return kuVariantWriter().write().toStdString(); }

}  // namespace

Workspace::Workspace(const CommonOptions& options)
    : _application(qtArguments().count, qtArguments().values),
      _log([this](LogLevel level, const std::string& text) { log(level, text); }),
      _tracePath(options.trace) {
  living = this;
  ScriptPolicy::allow(options.allowScripts);
  if (_tracePath) _trace = std::make_unique<MessageTrace>();
}

Workspace::~Workspace() {
  _trace.reset();
  kuController::call("clearAllVariants", 1);
  living = nullptr;
}

void Workspace::log(LogLevel level, const std::string& text) {
  // The reader answers nothing: that it failed shows in the log alone.
  constexpr std::string_view readError = "Error loading variants: ";
  if (level == LogLevel::Error && text.compare(0, readError.size(), readError) == 0) {
    _readError = text.substr(readError.size());
  } else {
    printDiagnostic(LogSink::lineOf(level, text));
  }
}

void Workspace::loadScene(const std::string& path) {
  SceneLoadResult result = kuStandalone::loadScene(path);
  for (const std::string& warning : result.warnings)
    printDiagnostic("warning: " + warning);
  if (result.status != SceneLoadResult::Status::Loaded) {
    throw Failure{ExitCode::InputNotValid, "cannot read scene", result.error, ""};
  }
  Scene::install(std::move(result.scene));
}

void Workspace::loadDocument(const std::string& path) { readDocument(readWhole(path), path); }

void Workspace::readDocument(const QByteArray& text, const std::string& path) {
  _readError.clear();
  kuVariantReader().read(text.constData());
  if (_readError.empty()) return;
  throw Failure{ExitCode::InputNotValid, "cannot read document", path, _readError};
}

void Workspace::checkDocumentSize(qint64 bytes, const std::string& path) {
  if (bytes <= std::numeric_limits<int>::max() / 2) return;
  throw Failure{ExitCode::InputNotValid, "cannot read document", path, "larger than 1 GiB"};
}

Workspace& Workspace::present() { return *living; }

void Workspace::writeDocument(const std::string& path) { writeWhole(path, presentDocument()); }

void Workspace::writeScene(const std::string& path) {
  const Interrupt::Deferred untilInPlace;
  savePresentScene(path);
}

void Workspace::writePicture(const std::string& path, const PictureSettings& settings) {
  OutputFile::check(path);
  writeWhole(path, pictureFile(takePicture(settings), path).toStdString());
}

void Workspace::save(const Invocation& invocation, const Outcome& outcome) {
  const std::string pictureContent = presentPicture(invocation);
  const Interrupt::Deferred untilInPlace;
  std::optional<OutputFile> trace, document, report, picture;
  if (_trace) trace.emplace(*_tracePath).prepare(_trace->lines());
  if (invocation.saveDocument)
    document.emplace(*invocation.saveDocument).prepare(presentDocument());
  if (invocation.saveReport) report.emplace(*invocation.saveReport).prepare(outcome.report);
  if (invocation.savePicture) picture.emplace(*invocation.savePicture).prepare(pictureContent);
  if (invocation.saveScene) savePresentScene(*invocation.saveScene);
  if (document) document->put();
  if (report) report->put();
  if (picture) picture->put();
  if (trace) trace->put();
}
