// How long the palette takes from a key press to its list filtered and painted, for every letter and for
// words as they are typed, and from its making to its first picture. Prints one JSON object.
#include <QApplication>
#include <QElapsedTimer>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListView>
#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

#include "shell/string_table.h"
#include "ui/palette/palette_entries.h"  // of the tests
#include "ui/palette/win_palette.h"

namespace {

constexpr int kRounds = 15;

/// Notes when the result of a key has been painted: the list, or the field when nothing was found (what says
/// so does not change then).
class PaintWatch final : public QObject {
 public:
  PaintWatch(QListView& list, QLineEdit& field) : m_list(list) {
    list.viewport()->installEventFilter(this);
    field.installEventFilter(this);
  }
  bool isPainted = false;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool counts = watched == m_list.viewport() || !m_list.isVisible();
    isPainted = isPainted || (counts && event->type() == QEvent::Paint);
    return false;
  }

 private:
  QListView& m_list;
};

/// Milliseconds of `work` and all that it sets going, until its result has been painted.
template <class Work>
double Measure(PaintWatch& watch, Work work) {
  QApplication::processEvents();
  watch.isPainted = false;
  QElapsedTimer timer;
  timer.start();
  work();
  while (!watch.isPainted && timer.elapsed() < 5000) QApplication::processEvents();
  return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

double Median(std::vector<double> values) {
  std::nth_element(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2),
                   values.end());
  return values[values.size() / 2];
}

void Press(QWidget& widget, QChar letter) {
  QKeyEvent press(QEvent::KeyPress, letter.toUpper().unicode(), Qt::NoModifier, QString(letter));
  QApplication::sendEvent(&widget, &press);
}

}  // namespace

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication app(argc, argv);
  const quill::shell::StringTable strings;
  auto entries = quill::ui::EntriesOfTable(strings);

  QElapsedTimer making;
  making.start();
  quill::ui::WinPalette palette(
      strings, std::move(entries), [] { return std::string(); }, [](auto&&...) {});
  auto* field = palette.findChild<QLineEdit*>();
  auto* list = palette.findChild<QListView*>();
  PaintWatch watch(*list, *field);
  const double made = static_cast<double>(making.nsecsElapsed()) / 1e6;
  const double first = made + Measure(watch, [&] { palette.Open(); });

  // Each key by what is in the field before it: the median of many rounds, so that a neighbour on the machine
  // does not count.
  std::map<QString, std::vector<double>> times;
  std::vector<QString> words = {QStringLiteral("upper case"), QStringLiteral("table"),
                                QStringLiteral("export tags"), QStringLiteral("capitals"),
                                QStringLiteral("xyzzy")};
  for (char letter = 'a'; letter <= 'z'; ++letter) words.push_back(QString(QLatin1Char(letter)));
  std::vector<double> reopened;
  for (int round = 0; round < kRounds; ++round) {
    for (const QString& word : words) {
      palette.close();
      reopened.push_back(Measure(watch, [&] { palette.Open(); }));
      for (qsizetype typed = 0; typed < word.size(); ++typed) {
        times[word.left(typed + 1)].push_back(Measure(watch, [&] { Press(*field, word[typed]); }));
      }
    }
  }
  std::vector<double> medians;
  for (const auto& [query, values] : times) medians.push_back(Median(values));
  std::printf(
      "{\"worst_ms\": %.3f, \"median_ms\": %.3f, \"first_open_ms\": %.3f, \"reopen_ms\": %.3f, \"keys\": "
      "%zu}\n",
      *std::max_element(medians.begin(), medians.end()), Median(medians), first, Median(reopened),
      medians.size());
}
