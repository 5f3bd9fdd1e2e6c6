#pragma once

#include <memory>
#include <string>

class QSaveFile;

/**
 * A file that is written whole or not at all: prepare() does everything that can fail for want of
 * space or right, put() sets the file in place. A pipe or a device is written to directly, since
 * one must not be replaced by a file.
 */
class OutputFile {
 public:
  explicit OutputFile(std::string path);
  ~OutputFile();

  /** Throws a Failure where the file cannot be written; nothing has changed then. */
  void prepare(const std::string& content);
  void put();

  /** Throws a Failure where it is plain before the work that nothing can be written there. */
  static void check(const std::string& path);

  /** Whether something stands there that is neither a file nor a directory. */
  static bool isSpecial(const std::string& path);

  /** Whether that names standard output, which may lead to a file that is not ours to replace. */
  static bool isStandardOutput(const std::string& path);

 private:
  void writeToStandardOutput(const std::string& content) const;
  /** @param systemError the number of the system's error, 0 for another reason. */
  [[noreturn]] void fail(const std::string& reason, int systemError = 0) const;
  /** With what the file has just told of. */
  [[noreturn]] void failAsFile() const;

  std::string _path;
  std::unique_ptr<QSaveFile> _file;
};
