#include "PictureOptions.h"

#include <CLI/CLI.hpp>
#include <QBuffer>
#include <QRegularExpression>
#include <cerrno>

#include "Commands.h"
#include "Failure.h"
#include "Text.h"

using kuStandalone::PictureSettings;

namespace {

constexpr int jpegQuality = 90;

/** A number of digits alone, from 1 to @p most, or 0. */
int readNumber(const QString& text, int most) {
  static const QRegularExpression digits(QStringLiteral("\\A[0-9]{1,9}\\z"));
  const int number = digits.match(text).hasMatch() ? text.toInt() : 0;
  return number <= most ? number : 0;
}

void readSize(const std::string& argument, PictureSettings& settings) {
  const QString text = QString::fromStdString(unmarked(argument));
  const int x = text.indexOf(QLatin1Char('x'));
  settings.width = x < 0 ? 0 : readNumber(text.left(x), mostPixels);
  settings.height = x < 0 ? 0 : readNumber(text.mid(x + 1), mostPixels);
  if (settings.width && settings.height) return;
  throw CLI::ValidationError("--size",
                             "not of the form WxH, from 1x1 to 16384x16384: " + escaped(text));
}

void readSamples(const std::string& argument, PictureSettings& settings) {
  const QString text = QString::fromStdString(unmarked(argument));
  settings.samples = readNumber(text, mostSamples);
  if (settings.samples) return;
  throw CLI::ValidationError("--samples", "not a number from 1 to 65536: " + escaped(text));
}

bool endsAsJpeg(const std::string& path) {
  const QString name = QString::fromStdString(path).toLower();
  return name.endsWith(QLatin1String(".jpg")) || name.endsWith(QLatin1String(".jpeg"));
}

}  // namespace

CLI::Option& addSizeOption(CLI::App& command, PictureSettings& settings) {
  return *command
              .add_option_function<std::string>(
                  "--size", [&](const std::string& text) { readSize(text, settings); },
                  "Size of a picture in pixels [800x600]")
              ->type_name("WxH");
}

CLI::Option& addSamplesOption(CLI::App& command, PictureSettings& settings) {
  return *command
              .add_option_function<std::string>(
                  "--samples", [&](const std::string& text) { readSamples(text, settings); },
                  "Rays through each pixel, 1 to 65536 [32]:\nmore look better and take longer")
              ->type_name("N");
}

QByteArray pictureFile(const QImage& picture, const std::string& path) {
  QByteArray file;
  QBuffer buffer(&file);
  buffer.open(QIODevice::WriteOnly);
  const bool jpeg = endsAsJpeg(path);
  if (!picture.isNull() && picture.save(&buffer, jpeg ? "JPG" : "PNG", jpeg ? jpegQuality : -1)) {
    return file;
  }
  throw Failure{ExitCode::OutputNotWritten, "cannot make picture", path, "out of memory", ENOMEM};
}
