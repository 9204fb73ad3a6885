// Draws the icons' SVG files into PNG files of every size that menu bars, trays and bundles ask for, and
// writes the resource list that names them. Runs at build time, so that the program itself needs no SVG
// renderer.
//   render_icons FOLDER FILE.svg… [--lists FILE.svg…]
// What follows --lists stands in front of the rows of lists and is not drawn any larger than that.
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>
#include <algorithm>

namespace {

// 16, 22 and 24 are the trays' and menu bars' own sizes, each at 1×, 2× and 3×; the rest is for window icons.
constexpr int kSizes[] = {16, 22, 24, 32, 44, 48, 64, 66, 72, 128, 256, 512};
constexpr int kListSizes[] = {16, 24, 32, 48, 64};

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

/// Draws one file in these sizes and names the pictures in the list. False when it cannot be drawn.
template <std::size_t count>
bool RenderAll(const QString& svg, const int (&sizes)[count], const QString& folder, QTextStream& list) {
  return std::all_of(std::begin(sizes), std::end(sizes), [&](int size) {
    const QString name = QStringLiteral("%1%2.png").arg(QFileInfo(svg).completeBaseName()).arg(size);
    list << "<file>" << name << "</file>\n";
    return Render(svg, size, folder + "/" + name);
  });
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
  bool forLists = false;
  for (const QString& svg : words.mid(2)) {
    if (svg == "--lists") {
      forLists = true;
    } else if (!(forLists ? RenderAll(svg, kListSizes, words[1], out)
                          : RenderAll(svg, kSizes, words[1], out))) {
      qCritical("%s: cannot be rendered", qPrintable(svg));
      return 1;
    }
  }
  out << "</qresource></RCC>\n";
  return 0;
}
