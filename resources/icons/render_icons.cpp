// Draws the icons' SVG files into PNG files of every size that menu bars, trays and bundles ask for, and
// writes the resource list that names them. Runs at build time, so that the program itself needs no SVG
// renderer.
//   render_icons FOLDER FILE.svg…
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>

namespace {

// 16, 22 and 24 are the trays' and menu bars' own sizes, each at 1×, 2× and 3×; the rest is for window icons.
constexpr int kSizes[] = {16, 22, 24, 32, 44, 48, 64, 66, 72, 128, 256, 512};

bool Render(const QString& svg, int size, const QString& file) {
  QSvgRenderer renderer(svg);
  if (!renderer.isValid()) return false;
  QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  renderer.render(&painter, QRectF(0, 0, size, size));
  painter.end();
  return image.save(file);
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QGuiApplication app(argc, argv);
  const QStringList words = QGuiApplication::arguments();
  if (words.size() < 3) return 2;
  QFile list(words[1] + "/icons.qrc");
  if (!list.open(QIODevice::WriteOnly)) return 1;
  QTextStream out(&list);
  out << "<RCC><qresource prefix=\"/icons\">\n";
  for (const QString& svg : words.mid(2)) {
    for (const int size : kSizes) {
      const QString name = QStringLiteral("%1%2.png").arg(QFileInfo(svg).completeBaseName()).arg(size);
      if (!Render(svg, size, words[1] + "/" + name)) {
        qCritical("%s: cannot be rendered at %d", qPrintable(svg), size);
        return 1;
      }
      out << "<file>" << name << "</file>\n";
    }
  }
  out << "</qresource></RCC>\n";
  return 0;
}
