#include "PictureComparison.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace {

std::array<int, 3> stepsBetween(QRgb a, QRgb b) {
  return {std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)),
          std::abs(qBlue(a) - qBlue(b))};
}

}  // namespace

std::string PictureDifference::text() const {
  if (!sameSize) return "another size";
  char line[64];
  std::snprintf(line, sizeof line, "mean %.3f, visible %.2f %%", mean, visibleShare * 100);
  return line;
}

PictureDifference compare(const QImage& actual, const QImage& reference) {
  PictureDifference difference;
  difference.sameSize = actual.size() == reference.size() && !actual.isNull();
  if (!difference.sameSize) return difference;
  long sum = 0, visible = 0;
  for (int y = 0; y < actual.height(); ++y) {
    for (int x = 0; x < actual.width(); ++x) {
      const std::array<int, 3> steps = stepsBetween(actual.pixel(x, y), reference.pixel(x, y));
      sum += steps[0] + steps[1] + steps[2];
      visible += *std::max_element(steps.begin(), steps.end()) > PictureDifference::visibleStep;
    }
  }
  const double pixels = double(actual.width()) * actual.height();
  difference.mean = double(sum) / (pixels * 3);
  difference.visibleShare = double(visible) / pixels;
  return difference;
}

QImage differencePicture(const QImage& actual, const QImage& reference) {
  QImage picture(actual.size().boundedTo(reference.size()), QImage::Format_RGB32);
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      std::array<int, 3> steps = stepsBetween(actual.pixel(x, y), reference.pixel(x, y));
      for (int& step : steps)
        step = std::min(4 * step, 255);
      picture.setPixel(x, y, qRgb(steps[0], steps[1], steps[2]));
    }
  }
  return picture;
}
