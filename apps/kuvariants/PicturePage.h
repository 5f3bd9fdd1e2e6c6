#pragma once

#include <QString>
#include <vector>

#include "standalone/rendering/Renderer.h"

/** A set with its picture. */
struct SetPicture {
  QString set;
  QString comment;
  QString hotkey;
  /** Empty for a set in no group. */
  QString group;
  QString groupComment;
  /** In the folder of the pictures. */
  QString file;
  qint64 milliseconds = 0;
};

/** What the page says beside the pictures. */
struct PageSettings {
  QString scene;
  QString document;
  kuStandalone::PictureSettings picture;
  bool cumulative = false;
};

/**
 * A page for a browser that shows the pictures by group, in the order in which groups come first.
 * It is whole in itself but for the pictures, which stand in the same folder.
 */
QString picturePage(const std::vector<SetPicture>& pictures, const PageSettings& settings);
