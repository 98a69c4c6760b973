// The background pictures painted at build time: all eight are there, at the
// size the screens expect, calm enough to read text over (most of each
// picture lies within a narrow band of brightness), and all different.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QImage>
#include <algorithm>
#include <set>
#include <vector>

namespace {

TEST(BackgroundPictures, AllEightAreJpegsOfTheScreenSizeLowInContrastAndDifferent) {
  std::set<int> fingerprints;
  for (int number = 1; number <= 8; ++number) {
    SCOPED_TRACE("nv" + std::to_string(number) + ".jpg");
    const QImage image(QStringLiteral(NADAVIK_DATA_DIR "/nv%1.jpg").arg(number));
    ASSERT_FALSE(image.isNull()) << "missing or unreadable";
    EXPECT_EQ(image.size(), QSize(1600, 1000));
    std::vector<int> luma;
    for (int y = 0; y < image.height(); y += 7)
      for (int x = 0; x < image.width(); x += 7) luma.push_back(qGray(image.pixel(x, y)));
    std::sort(luma.begin(), luma.end());
    const int low = luma[luma.size() * 5 / 100], high = luma[luma.size() * 95 / 100];
    EXPECT_LE(high - low, 80) << "spans " << low << " to " << high;
    const QImage small = image.scaled(16, 10);
    fingerprints.insert(qGray(small.pixel(8, 5)) * 1000 + qRed(small.pixel(2, 2)));
  }
  EXPECT_EQ(fingerprints.size(), 8u);
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);  // for the JPEG image plug-in
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
