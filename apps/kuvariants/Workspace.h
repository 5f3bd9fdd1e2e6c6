#pragma once

#include <QApplication>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "standalone/StandaloneHost.h"
#include "standalone/kernel/LogSink.h"

class MessageTrace;

/**
 * The running application around one command: Qt without a window, the host, the log on standard
 * error, the trace. One per process; at its end the manager is emptied.
 */
class Workspace {
 public:
  explicit Workspace(const CommonOptions& options);
  ~Workspace();
  Workspace(const Workspace&) = delete;
  Workspace& operator=(const Workspace&) = delete;

  /** The one that lives. */
  static Workspace& present();

  /** Loads a scene in the place of the present one, or throws a Failure. */
  void loadScene(const std::string& path);

  /** Reads a variants document into the manager, or throws a Failure. */
  void loadDocument(const std::string& path);
  /** The same for a document's text. @param path where it came from, for the Failure. */
  void readDocument(const QByteArray& text, const std::string& path);

  /** Throws a Failure where a document is too large to be read. */
  static void checkDocumentSize(qint64 bytes, const std::string& path);

  // A file each, written whole or not at all; a Failure where that cannot be done.
  void writeDocument(const std::string& path);
  void writeScene(const std::string& path);
  /** Of the present scene. */
  void writePicture(const std::string& path, const kuStandalone::PictureSettings& settings);

  /**
   * Writes the trace, and the present scene, a picture of it, the variants document and the report
   * of the outcome where files for them are named, or throws a Failure; a file that could not be
   * written is as it was.
   */
  void save(const Invocation& invocation, const Outcome& outcome);

 private:
  void log(kuStandalone::LogLevel level, const std::string& text);

  QApplication _application;
  kuStandalone::StandaloneHost _host;
  kuStandalone::LogSink _log;
  std::optional<std::string> _tracePath;
  std::unique_ptr<MessageTrace> _trace;
  /** What the reader of documents told as its error; empty if there was none. */
  std::string _readError;
};
