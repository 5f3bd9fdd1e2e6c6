#pragma once

#include <QByteArray>
#include <string>

#include "standalone/rendering/Renderer.h"

namespace CLI {
class App;
class Option;
}  // namespace CLI

/** The most that may be asked for: in each direction, and rays through each pixel. */
constexpr int mostPixels = 16384;
constexpr int mostSamples = 65536;

/** How pictures are unless the command line says otherwise. */
constexpr kuStandalone::PictureSettings usualPicture{800, 600, 32, 0};

/** The option --size WxH; the settings must live as long as the command line is read. */
CLI::Option& addSizeOption(CLI::App& command, kuStandalone::PictureSettings& settings);
/** The option --samples N. */
CLI::Option& addSamplesOption(CLI::App& command, kuStandalone::PictureSettings& settings);

/**
 * A picture as a file in memory: JPEG where the name of the file ends so, otherwise PNG. Throws a
 * Failure where there is none, which is for want of memory.
 */
QByteArray pictureFile(const QImage& picture, const std::string& path);
