// Writes pictures of every practice page in both colour schemes:  practice_demo FOLDER
#include <QApplication>
#include <QFile>
#include <QPalette>
#include <QStyleFactory>

#include "practice/practice_world.h"

namespace {

QPalette DarkPalette() {
  QPalette palette(QColor(0x2b, 0x2b, 0x2b));
  palette.setColor(QPalette::Base, QColor(0x1f, 0x1f, 0x1f));
  palette.setColor(QPalette::Text, QColor(0xe6, 0xe4, 0xe2));
  return palette;
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  if (argc != 2) return 2;
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  quill::test::PracticeWorld world;
  const QPalette light = QApplication::palette();
  for (const char* title :
       {"Welcome", "Headings", "Table", "Lists", "Picture", "Asian text", "Source code"}) {
    for (const bool dark : {false, true}) {
      QApplication::setPalette(dark ? DarkPalette() : light);
      if (!world.OpenPage(title)) return 1;
      // The picture is of what has been painted: wait until the page's text has been answered after that.
      for (int i = 0; i < 3; ++i) world.VisibleText();
      bool painted = false;
      quill::test::WaitUntil([&] { return painted; }, std::chrono::milliseconds(400));
      QFile file(QString("%1/%2-%3.png").arg(argv[1], title, dark ? "dark" : "light").replace(' ', '_'));
      if (!file.open(QFile::WriteOnly)) return 1;
      file.write(world.notebook().Controller().Picture());
    }
  }
  return 0;
}
