#include "PictureComparison.h"

#include <gtest/gtest.h>

namespace {

/** 100 by 100 pixels, of which the first so many are brighter by that step. */
QImage grey(int brighter = 0, int step = 0) {
  QImage picture(100, 100, QImage::Format_RGB32);
  picture.fill(qRgb(100, 100, 100));
  for (int at = 0; at < brighter; ++at)
    picture.setPixel(at % 100, at / 100, qRgb(100 + step, 100 + step, 100 + step));
  return picture;
}

}  // namespace

TEST(PictureComparison, ThePictureItselfIsAlike) {
  const PictureDifference difference = compare(grey(), grey());
  EXPECT_TRUE(difference.isAlike());
  EXPECT_EQ(difference.text(), "mean 0.000, visible 0.00 %");
}

TEST(PictureComparison, ManySmallStepsAreOnlyInTheMean) {
  const PictureDifference difference = compare(grey(5000, 24), grey());
  EXPECT_EQ(difference.text(), "mean 12.000, visible 0.00 %");
  EXPECT_FALSE(difference.isAlike());
}

TEST(PictureComparison, AFewLargeStepsAreVisible) {
  const PictureDifference difference = compare(grey(20, 25), grey());
  EXPECT_EQ(difference.text(), "mean 0.050, visible 0.20 %");
  EXPECT_FALSE(difference.isAlike());
}

TEST(PictureComparison, WhatStaysBelowBothLimitsIsAlike) {
  const PictureDifference difference = compare(grey(14, 100), grey());
  EXPECT_EQ(difference.text(), "mean 0.140, visible 0.14 %");
  EXPECT_TRUE(difference.isAlike());
}

TEST(PictureComparison, EachLimitItselfIsTooMuch) {
  EXPECT_FALSE(compare(grey(15, 25), grey()).isAlike());
  EXPECT_FALSE(compare(grey(1500, 1), grey()).isAlike());
  EXPECT_TRUE(compare(grey(1499, 1), grey()).isAlike());
}

TEST(PictureComparison, OneChannelIsEnoughToBeVisible) {
  QImage picture = grey();
  for (int x = 0; x < 100; ++x)
    picture.setPixel(x, 0, qRgb(100, 100, 70));
  EXPECT_EQ(compare(picture, grey()).text(), "mean 0.100, visible 1.00 %");
}

TEST(PictureComparison, AnotherSizeOrNoPictureIsNotAlike) {
  const QImage small(99, 100, QImage::Format_RGB32);
  EXPECT_EQ(compare(small, grey()).text(), "another size");
  EXPECT_FALSE(compare(small, grey()).isAlike());
  EXPECT_FALSE(compare(QImage(), grey()).isAlike());
  EXPECT_FALSE(compare(grey(), QImage()).isAlike());
  EXPECT_FALSE(compare(QImage(), QImage()).isAlike());
}

TEST(PictureComparison, TheDifferencePictureShowsFourTimesTheStep) {
  const QImage picture = differencePicture(grey(2, 10), grey(1, 110));
  EXPECT_EQ(picture.size(), QSize(100, 100));
  EXPECT_EQ(picture.pixel(0, 0), qRgb(255, 255, 255));
  EXPECT_EQ(picture.pixel(1, 0), qRgb(40, 40, 40));
  EXPECT_EQ(picture.pixel(2, 0), qRgb(0, 0, 0));
}
