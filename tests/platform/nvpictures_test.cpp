// The background pictures painted at build time: all eight are there, at the
// size the screens expect, distinct, and calm enough to read text over.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <algorithm>
#include <cmath>
#include <vector>

namespace {

QImage picture(int number) {
  return QImage(QStringLiteral(NADAVIK_DATA_DIR "/nv%1.jpg").arg(number));
}

std::vector<int> sampledLuma(const QImage& image) {
  std::vector<int> luma;
  for (int y = 0; y < image.height(); y += 7)
    for (int x = 0; x < image.width(); x += 7) luma.push_back(qGray(image.pixel(x, y)));
  std::sort(luma.begin(), luma.end());
  return luma;
}

TEST(BackgroundPictures, AllEightAreJpegsOfTheScreenSize) {
  for (int number = 1; number <= 8; ++number) {
    const QImage image = picture(number);
    ASSERT_FALSE(image.isNull()) << "nv" << number << ".jpg is missing or unreadable";
    EXPECT_EQ(image.size(), QSize(1600, 1000)) << "nv" << number;
  }
}

// Text and controls must stay readable: most of each picture lies within a
// narrow band of brightness.
TEST(BackgroundPictures, AreLowInContrast) {
  for (int number = 1; number <= 8; ++number) {
    const std::vector<int> luma = sampledLuma(picture(number));
    ASSERT_FALSE(luma.empty());
    const int low = luma[luma.size() * 5 / 100];
    const int high = luma[luma.size() * 95 / 100];
    EXPECT_LE(high - low, 80) << "nv" << number << " spans " << low << " to " << high;
  }
}

TEST(BackgroundPictures, AreAllDifferent) {
  std::vector<int> medians;
  for (int number = 1; number <= 8; ++number) {
    const QImage small = picture(number).scaled(16, 10);
    medians.push_back(qGray(small.pixel(8, 5)) * 1000 + qRed(small.pixel(2, 2)));
  }
  std::sort(medians.begin(), medians.end());
  EXPECT_EQ(std::adjacent_find(medians.begin(), medians.end()), medians.end());
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);  // for the JPEG image plug-in
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
