// nvpictures: paints the eight background pictures nv1.jpg to nv8.jpg.
//
// Usage: nvpictures OUTPUT_DIRECTORY
//
// The screens show these behind their controls, so each picture is calm and
// low in contrast: a soft gradient, a glow or two, and faint motifs of the
// music the program teaches: harmonium keys, tanpura strings, sound waves,
// ripples. Everything is drawn from fixed numbers and fixed random seeds, so
// every build writes the same pictures. The tool keeps no state between
// pictures.
#include <QCoreApplication>
#include <QDir>
#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <random>
#include <vector>

namespace {

constexpr int kWidth = 1600;
constexpr int kHeight = 1000;
constexpr int kJpegQuality = 90;
constexpr double kPi = 3.14159265358979323846;

QColor withAlpha(QColor colour, double alpha) {
  colour.setAlphaF(static_cast<float>(alpha));
  return colour;
}

// A top-to-bottom gradient over the whole picture through the given colours.
void fillGradient(QPainter& painter, const std::vector<QColor>& colours) {
  QLinearGradient gradient(0, 0, 0, kHeight);
  for (std::size_t i = 0; i < colours.size(); ++i)
    gradient.setColorAt(static_cast<double>(i) / static_cast<double>(colours.size() - 1), colours[i]);
  painter.fillRect(0, 0, kWidth, kHeight, gradient);
}

// A round glow fading from alpha at the centre to nothing at radius.
void glow(QPainter& painter, QPointF centre, double radius, QColor colour, double alpha) {
  QRadialGradient gradient(centre, radius);
  gradient.setColorAt(0, withAlpha(colour, alpha));
  gradient.setColorAt(0.5, withAlpha(colour, alpha * 0.35));
  gradient.setColorAt(1, withAlpha(colour, 0));
  painter.setPen(Qt::NoPen);
  painter.setBrush(gradient);
  painter.drawEllipse(centre, radius, radius);
}

// One wave line across the picture: a sum of two sines around baselineY.
QPainterPath waveLine(double baselineY, double amplitude, double wavelength, double phase) {
  QPainterPath path;
  for (int x = -10; x <= kWidth + 10; x += 8) {
    const double y = baselineY + amplitude * std::sin(2 * kPi * x / wavelength + phase) +
                     amplitude * 0.35 * std::sin(2 * kPi * x / (wavelength * 0.43) + phase * 1.7);
    if (x == -10)
      path.moveTo(x, y);
    else
      path.lineTo(x, y);
  }
  return path;
}

// A family of wave lines stacked downwards, each a little out of phase.
void waves(QPainter& painter, double topY, double spacing, int count, double amplitude,
           double wavelength, QColor colour, double alpha) {
  painter.setBrush(Qt::NoBrush);
  for (int i = 0; i < count; ++i) {
    const double fade = 1.0 - 0.6 * i / std::max(1, count - 1);
    painter.setPen(QPen(withAlpha(colour, alpha * fade), 2.0));
    painter.drawPath(waveLine(topY + i * spacing, amplitude * (1 + 0.15 * i), wavelength, i * 0.55));
  }
}

// A band of wave filled down to the bottom edge, for hills of sound.
void waveBand(QPainter& painter, double baselineY, double amplitude, double wavelength,
              double phase, QColor colour, double alpha) {
  QPainterPath path = waveLine(baselineY, amplitude, wavelength, phase);
  path.lineTo(kWidth + 10, kHeight + 10);
  path.lineTo(-10, kHeight + 10);
  path.closeSubpath();
  painter.setPen(Qt::NoPen);
  painter.setBrush(withAlpha(colour, alpha));
  painter.drawPath(path);
}

// A harmonium keyboard in outline: the white keys as slightly lighter slabs
// with soft gaps, the black keys as slightly darker ones, octave after octave.
void harmoniumKeys(QPainter& painter, QRectF area, QColor light, QColor dark, double alpha) {
  const int whiteKeys = 36;
  const double keyWidth = area.width() / whiteKeys;
  painter.setPen(Qt::NoPen);
  for (int k = 0; k < whiteKeys; ++k) {
    painter.setBrush(withAlpha(light, alpha));
    painter.drawRoundedRect(QRectF(area.left() + k * keyWidth + 1.5, area.top(), keyWidth - 3,
                                   area.height()),
                            4, 4);
  }
  // Black keys sit after white keys 0, 1, 3, 4, 5 of each octave of seven.
  const int blackAfter[] = {0, 1, 3, 4, 5};
  for (int octave = 0; octave * 7 < whiteKeys; ++octave) {
    for (int after : blackAfter) {
      const int k = octave * 7 + after;
      if (k + 1 >= whiteKeys) continue;
      painter.setBrush(withAlpha(dark, alpha * 1.2));
      painter.drawRoundedRect(QRectF(area.left() + (k + 1) * keyWidth - keyWidth * 0.3, area.top(),
                                     keyWidth * 0.6, area.height() * 0.62),
                              3, 3);
    }
  }
}

// Tanpura strings: four long lines from a bridge low on the picture up to
// the pegs, drawn with a wide faint halo and a fine core, the way a string
// shimmers while it sounds.
void tanpuraStrings(QPainter& painter, double centreX, double bridgeY, double topY, double spread,
                    QColor colour, double alpha) {
  for (int s = 0; s < 4; ++s) {
    const double offset = (s - 1.5) * spread;
    QPainterPath string;
    string.moveTo(centreX + offset, bridgeY);
    string.cubicTo(centreX + offset * 0.95, bridgeY - (bridgeY - topY) * 0.4,
                   centreX + offset * 0.75, topY + (bridgeY - topY) * 0.2, centreX + offset * 0.6, topY);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(withAlpha(colour, alpha * 0.25), 9, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(string);
    painter.setPen(QPen(withAlpha(colour, alpha), 1.6, Qt::SolidLine, Qt::RoundCap));
    painter.drawPath(string);
  }
}

// Rings spreading from a point, as from a plucked note.
void ripples(QPainter& painter, QPointF centre, double firstRadius, double step, int count,
             QColor colour, double alpha) {
  painter.setBrush(Qt::NoBrush);
  for (int i = 0; i < count; ++i) {
    const double fade = 1.0 - static_cast<double>(i) / count;
    painter.setPen(QPen(withAlpha(colour, alpha * fade), 1.8));
    const double r = firstRadius + i * step;
    painter.drawEllipse(centre, r, r * 0.42);
  }
}

// Small soft motes scattered by a fixed seed, like dust in lamplight.
void motes(QPainter& painter, unsigned seed, int count, QColor colour, double alpha) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> x(0, kWidth), y(0, kHeight), size(3, 14), shade(0.3, 1.0);
  for (int i = 0; i < count; ++i) {
    const QPointF at(x(random), y(random));
    const double radius = size(random);
    glow(painter, at, radius, colour, alpha * shade(random));
  }
}

// Adds a faint fixed noise of about one level, so that the smooth gradients
// do not show steps once compressed.
void dither(QImage& image, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> noise(-1, 1);
  for (int row = 0; row < image.height(); ++row) {
    auto* pixel = reinterpret_cast<QRgb*>(image.scanLine(row));
    for (int col = 0; col < image.width(); ++col) {
      const int n = noise(random);
      const QRgb c = pixel[col];
      pixel[col] = qRgb(std::clamp(qRed(c) + n, 0, 255), std::clamp(qGreen(c) + n, 0, 255),
                        std::clamp(qBlue(c) + n, 0, 255));
    }
  }
}

// 1. Morning raga: saffron dawn over a harmonium keyboard.
void paintDawnKeys(QPainter& p) {
  fillGradient(p, {QColor(252, 236, 206), QColor(246, 214, 170), QColor(236, 196, 150)});
  glow(p, QPointF(1180, 260), 520, QColor(255, 246, 220), 0.75);
  waves(p, 430, 26, 5, 14, 900, QColor(190, 120, 70), 0.16);
  harmoniumKeys(p, QRectF(-20, 760, kWidth + 40, 240), QColor(255, 250, 238), QColor(160, 100, 60), 0.16);
}

// 2. Tanpura at night: deep teal, four shimmering strings and a gourd glow.
void paintTanpuraNight(QPainter& p) {
  fillGradient(p, {QColor(22, 52, 66), QColor(30, 70, 84), QColor(40, 82, 92)});
  glow(p, QPointF(800, 1000), 620, QColor(120, 190, 190), 0.28);
  tanpuraStrings(p, 800, 1040, -40, 46, QColor(210, 235, 230), 0.30);
  ripples(p, QPointF(800, 900), 140, 70, 6, QColor(180, 225, 220), 0.12);
}

// 3. Evening waves: dusk violet to rose, layered waves.
void paintDuskWaves(QPainter& p) {
  fillGradient(p, {QColor(92, 78, 126), QColor(150, 108, 146), QColor(208, 150, 156)});
  glow(p, QPointF(400, 650), 480, QColor(255, 200, 190), 0.30);
  waveBand(p, 700, 26, 1100, 0.0, QColor(70, 52, 98), 0.22);
  waveBand(p, 790, 20, 760, 1.3, QColor(60, 44, 88), 0.22);
  waveBand(p, 880, 16, 540, 2.1, QColor(50, 36, 76), 0.22);
  waves(p, 300, 24, 4, 12, 980, QColor(255, 236, 236), 0.14);
}

// 4. Lamp and ripples: warm cream with rings spreading from a note.
void paintRipples(QPainter& p) {
  fillGradient(p, {QColor(246, 238, 222), QColor(238, 226, 204), QColor(226, 210, 186)});
  glow(p, QPointF(520, 420), 560, QColor(255, 250, 236), 0.70);
  ripples(p, QPointF(520, 640), 60, 64, 9, QColor(150, 110, 70), 0.20);
  ripples(p, QPointF(1240, 300), 40, 48, 6, QColor(150, 110, 70), 0.12);
  motes(p, 4, 40, QColor(255, 220, 160), 0.35);
}

// 5. Monsoon: grey-green sky, slanting rain and rolling waves.
void paintMonsoon(QPainter& p) {
  fillGradient(p, {QColor(96, 120, 118), QColor(124, 150, 140), QColor(150, 172, 156)});
  glow(p, QPointF(1200, 180), 500, QColor(220, 236, 226), 0.35);
  std::mt19937 random(5);
  std::uniform_real_distribution<double> x(-200, kWidth), y(-100, kHeight), length(40, 120);
  p.setPen(QPen(withAlpha(QColor(230, 240, 236), 0.12), 1.2));
  for (int i = 0; i < 260; ++i) {
    const QPointF from(x(random), y(random));
    const double l = length(random);
    p.drawLine(from, from + QPointF(l * 0.25, l));
  }
  waveBand(p, 780, 24, 1300, 0.7, QColor(60, 90, 84), 0.25);
  waveBand(p, 870, 18, 820, 2.4, QColor(50, 80, 74), 0.25);
}

// 6. The main window: indigo with the tanpura and the sound it spreads.
void paintMainWindow(QPainter& p) {
  fillGradient(p, {QColor(38, 44, 86), QColor(56, 62, 112), QColor(86, 86, 136)});
  glow(p, QPointF(1180, 520), 600, QColor(236, 200, 150), 0.22);
  glow(p, QPointF(300, 200), 380, QColor(170, 180, 240), 0.18);
  tanpuraStrings(p, 1180, 1060, -60, 40, QColor(250, 226, 190), 0.24);
  waves(p, 610, 30, 6, 18, 1040, QColor(220, 214, 255), 0.10);
  harmoniumKeys(p, QRectF(-20, 860, kWidth + 40, 140), QColor(200, 200, 240), QColor(20, 24, 60), 0.10);
}

// 7. Earth and drone: sand and terracotta with a low hum of waves.
void paintEarthDrone(QPainter& p) {
  fillGradient(p, {QColor(236, 220, 196), QColor(222, 194, 162), QColor(198, 160, 126)});
  glow(p, QPointF(800, 500), 700, QColor(250, 238, 218), 0.45);
  waves(p, 360, 18, 12, 9, 700, QColor(140, 80, 50), 0.10);
  ripples(p, QPointF(800, 820), 80, 90, 6, QColor(130, 76, 46), 0.12);
}

// 8. Night sky: deep blue fading to plum, motes like stars, one soft wave.
void paintNightSky(QPainter& p) {
  fillGradient(p, {QColor(18, 24, 52), QColor(40, 36, 76), QColor(78, 52, 94)});
  motes(p, 8, 120, QColor(230, 230, 255), 0.45);
  glow(p, QPointF(260, 180), 260, QColor(240, 236, 220), 0.25);
  waveBand(p, 860, 30, 1500, 0.4, QColor(12, 14, 36), 0.35);
  waves(p, 760, 22, 3, 16, 1200, QColor(200, 190, 255), 0.12);
}

bool writePicture(const QString& directory, int number, const std::function<void(QPainter&)>& paint) {
  QImage image(kWidth, kHeight, QImage::Format_RGB32);
  {
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    paint(painter);
  }
  dither(image, static_cast<unsigned>(number));
  const QString path = QDir(directory).filePath(QStringLiteral("nv%1.jpg").arg(number));
  if (!image.save(path, "JPEG", kJpegQuality)) {
    std::fprintf(stderr, "nvpictures: cannot write %s\n", qPrintable(path));
    return false;
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  QCoreApplication app(argc, argv);  // for the JPEG image plug-in
  if (argc != 2) {
    std::fprintf(stderr, "usage: nvpictures OUTPUT_DIRECTORY\n");
    return 2;
  }
  const QString directory = QString::fromLocal8Bit(argv[1]);
  if (!QDir().mkpath(directory)) {
    std::fprintf(stderr, "nvpictures: cannot create %s\n", argv[1]);
    return 1;
  }
  const std::function<void(QPainter&)> pictures[] = {
      paintDawnKeys, paintTanpuraNight, paintDuskWaves, paintRipples,
      paintMonsoon,  paintMainWindow,   paintEarthDrone, paintNightSky,
  };
  int number = 0;
  for (const auto& paint : pictures)
    if (!writePicture(directory, ++number, paint)) return 1;
  return 0;
}
