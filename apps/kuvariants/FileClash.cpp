#include "FileClash.h"

#include <filesystem>
#include <string>
#include <vector>

#include "CommandLine.h"
#include "Failure.h"
#include "OutputFile.h"
#include "standalone/scene/Scene.h"

namespace fs = std::filesystem;

namespace {

struct NamedFile {
  const char* role;
  std::string path;
  bool written;
  /** What may stand in the place of what. */
  enum class Content { Scene, Document, Script, Report, Trace, Picture, Sheet } content;
};

using Content = NamedFile::Content;

std::vector<NamedFile> filesOf(const Invocation& invocation) {
  std::vector<NamedFile> files{{"SCENE", invocation.scene, false, Content::Scene}};
  const auto add = [&](const char* role, const std::optional<std::string>& path, bool written,
                       Content content) {
    if (path) files.push_back({role, *path, written, content});
  };
  add("DOCUMENT", invocation.document, false, Content::Document);
  add("SCRIPT", invocation.script, false, Content::Script);
  add("--save-scene", invocation.saveScene, true, Content::Scene);
  add(invocation.documentOption, invocation.saveDocument, true, Content::Document);
  add("-o", invocation.saveReport, true, Content::Report);
  add("--picture", invocation.savePicture, true, Content::Picture);
  add("--sheet", invocation.saveSheet, true, Content::Sheet);
  add("--trace", invocation.common.trace, true, Content::Trace);
  return files;
}

/** The path without links and dots, as far as it exists. */
fs::path resolved(const std::string& path) {
  std::error_code error;
  const fs::path absolute = fs::absolute(path, error);
  const fs::path canonical = fs::weakly_canonical(absolute, error);
  return error ? absolute : canonical;
}

bool isSame(const std::string& a, const std::string& b) {
  std::error_code error;
  return fs::equivalent(a, b, error) || resolved(a) == resolved(b);
}

bool clash(const NamedFile& a, const NamedFile& b) {
  if (!a.written && !b.written) return false;
  // Nothing is destroyed by writing to a pipe or a device twice.
  return a.content != b.content && isSame(a.path, b.path) && !OutputFile::isSpecial(b.path);
}

[[noreturn]] void refuse(const std::string& path, const std::string& reason) {
  throw Failure{ExitCode::CommandLineWrong, "wrong command line", path, reason};
}

/** Nothing for a scene that was read from no file. */
std::vector<std::string> filesOfScene() {
  const auto& source = kuStandalone::Scene::the().source;
  return source ? source->files : std::vector<std::string>();
}

}  // namespace

void refuseClashes(const Invocation& invocation) {
  const std::vector<NamedFile> files = filesOf(invocation);
  for (auto second = files.begin(); second != files.end(); ++second) {
    for (auto first = files.begin(); first != second; ++first) {
      if (!clash(*first, *second)) continue;
      refuse(second->path,
             std::string("is named for both ") + first->role + " and " + second->role);
    }
  }
}

void refuseClash(const Invocation& invocation, const std::string& path) {
  for (const NamedFile& file : filesOf(invocation)) {
    if (isSame(file.path, path)) {
      refuse(path, std::string("is named for ") + file.role + ", and would be replaced");
    }
  }
  for (const std::string& file : filesOfScene()) {
    if (isSame(file, path)) refuse(path, "belongs to the scene, and would be replaced");
  }
}
