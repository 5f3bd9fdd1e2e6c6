#pragma once

#include <QImage>
#include <QString>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "PicturePage.h"
#include "standalone/rendering/Renderer.h"

/** What is to be rendered, and where to. */
struct RenderOptions {
  /** Folder of the pictures and of the page. */
  std::string folder;
  /** Empty for all. */
  std::vector<QString> sets;
  /** Each set on top of the one before, not from the start. */
  bool cumulative = false;
  /** Put the materials that captured sets remember back to their nodes first. */
  bool restoreMaterials = true;
  /** Put pictures into the sets' previews as well. */
  bool previews = false;
};

/** What came of it. */
struct RenderReport {
  std::vector<SetPicture> pictures;
  std::uint64_t scriptsHeldBack = 0;
};

/**
 * Renders the sets into the folder, and writes the page, and the sheet where a file for it is
 * named. Throws a Failure for a set that does not exist, before anything is written, and for a file
 * that cannot be written.
 */
RenderReport renderSets(const RenderOptions& options, const struct Invocation& invocation);

/** Renders the present scene, with progress on a terminal. */
QImage takePicture(const kuStandalone::PictureSettings& settings);

/** The name of a file in the folder, as the user would write it. */
std::string inFolder(const std::string& folder, const QString& file);
/** The name of the page in its folder. */
constexpr const char* pageFile = "index.html";
