#pragma once

#include <QImage>
#include <string>

/** How far two pictures lie apart, in the steps of a channel from 0 to 255. */
struct PictureDifference {
  /** A channel that differs by more than this is seen by whoever looks twice. */
  static constexpr int visibleStep = 24;
  /**
   * What still counts as alike: room for another processor's last digits, which move an edge or the
   * noise of a few pixels, and for nothing that is done to the scene or the light.
   */
  static constexpr double maximalMean = 0.15, maximalVisibleShare = 0.0015;

  bool sameSize = true;
  /** Over all pixels and the three colour channels. */
  double mean = 0;
  /** The share of pixels, from 0 to 1, of which a channel differs by more than visibleStep. */
  double visibleShare = 0;

  bool isAlike() const {
    return sameSize && mean < maximalMean && visibleShare < maximalVisibleShare;
  }
  /** "mean 0.031, visible 0.12 %", or "another size". */
  std::string text() const;
};

PictureDifference compare(const QImage& actual, const QImage& reference);

/** Where they differ: black where they are the same, four times the difference elsewhere. */
QImage differencePicture(const QImage& actual, const QImage& reference);
