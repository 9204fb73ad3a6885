#include "ui/pictures/sample_data.h"

#include <QPainter>
#include <QPainterPath>
#include <array>
#include <chrono>

#include "base/version.h"
#include "shell/recent_actions.h"

namespace quill::ui {
namespace {

constexpr QSize kChartSize(900, 560);
constexpr QRect kChartArea(90, 90, 770, 390);
constexpr int kMostMillimetres = 120;
constexpr std::array kRain = {78, 62, 55, 41, 58, 74, 92, 86, 60, 68, 83, 97};
constexpr std::array kUsual = {70, 58, 56, 46, 60, 68, 76, 74, 62, 64, 70, 79};
constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                   "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

double HeightOf(int millimetres) {
  return double(kChartArea.height()) * millimetres / kMostMillimetres;
}

double MiddleOfMonth(std::size_t month) {
  return kChartArea.left() + (double(month) + 0.5) * kChartArea.width() / double(kRain.size());
}

void PaintScale(QPainter& painter) {
  for (int millimetres = 0; millimetres <= kMostMillimetres; millimetres += 20) {
    const double y = kChartArea.bottom() - HeightOf(millimetres);
    painter.setPen(QPen(millimetres == 0 ? QColor(0x60, 0x60, 0x66) : QColor(0xe2, 0xe2, 0xe8), 1.5));
    painter.drawLine(QPointF(kChartArea.left(), y), QPointF(kChartArea.right(), y));
    painter.setPen(QColor(0x55, 0x55, 0x5c));
    painter.drawText(QRectF(0, y - 14, kChartArea.left() - 12, 28), Qt::AlignRight | Qt::AlignVCenter,
                     QString::number(millimetres));
  }
}

void PaintMonths(QPainter& painter) {
  const double width = kChartArea.width() / double(kRain.size()) * 0.6;
  QPainterPath usual;
  for (std::size_t month = 0; month < kRain.size(); ++month) {
    const double middle = MiddleOfMonth(month);
    const double height = HeightOf(kRain[month]);
    painter.setPen(Qt::NoPen);
    painter.setBrush(kRain[month] > kUsual[month] + 8 ? QColor(0x3b, 0x7d, 0xc4) : QColor(0x9c, 0xc3, 0xe8));
    painter.drawRoundedRect(QRectF(middle - width / 2, kChartArea.bottom() - height, width, height), 4, 4);
    painter.setPen(QColor(0x55, 0x55, 0x5c));
    painter.drawText(QRectF(middle - 30, kChartArea.bottom() + 8, 60, 28), Qt::AlignCenter,
                     QString::fromLatin1(kMonths[month]));
    const QPointF at(middle, kChartArea.bottom() - HeightOf(kUsual[month]));
    month == 0 ? usual.moveTo(at) : usual.lineTo(at);
  }
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0xd9, 0x7a, 0x1e), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPath(usual);
}

}  // namespace

shell::MenuState SampleMenuState() {
  shell::MenuState state;
  state.oneNoteRunning = true;
  state.signedIn = true;
  state.startWithMonday = true;
  state.favouritePages = {{"Reading list", 1}, {"Allotment: what grows where", 2}, {"Bicycle repairs", 3}};
  state.favouriteSections = {{"Meetings", 1}, {"Recipes", 2}};
  return state;
}

std::vector<HotKeyState> SampleHotKeys() {
  std::vector<HotKeyState> keys;
  for (const shell::HotKeyAssignment& one : shell::AssignedHotKeys("")) {
    keys.push_back({one.row, one.keys});
    if (one.row->action == "MenuItemInsertTimeClick") {
      keys.back().problem = platform::HotKeyProblem::Taken;
    }
  }
  return keys;
}

OptionsFacts SampleOptions() {
  using namespace std::chrono;
  const sys_days day = 2026y / March / 14;
  OptionsFacts facts;
  facts.settings = shell::DefaultSettings(day);
  facts.settings.OnlineOneNoteUserPrincipalName = "notes@example.org";
  facts.settings.CalendarStartWithMonday = true;
  facts.settings.JournalDayFormat = "[EEEE, d MMMM]";
  facts.hasTargetWindowPattern = true;
  facts.hotKeys = SampleHotKeys();
  facts.now = [day] { return system_clock::time_point(day + 10h); };
  return facts;
}

std::string SampleRecentActions() {
  std::string recent;
  for (const char* action : {"MenuItemViewImageClick", "MenuItemInsertDateTimeClick", "MenuItemTableStyle",
                             "MenuItemCapitalizeEachWordClick"}) {
    recent = shell::WithRecent(recent, action);
  }
  return recent;
}

std::string SampleClipboardText() {
  return R"(<html xmlns:o="urn:schemas-microsoft-com:office:office">
<head>
<meta http-equiv=Content-Type content="text/html; charset=utf-8">
</head>
<body lang=en-GB style='font-family:Calibri;font-size:11.0pt'>
<!--StartFragment-->
<p style='margin:0in'>Seeds to order before April</p>
<table border=1 cellpadding=0 cellspacing=0 title="">
 <tr>
  <td style='width:1.4in;padding:4pt'>Broad beans</td>
  <td style='width:.7in;padding:4pt'>2 bags</td>
 </tr>
 <tr>
  <td style='width:1.4in;padding:4pt'>Leeks “Carentan”</td>
  <td style='width:.7in;padding:4pt'>1 bag</td>
 </tr>
</table>
<!--EndFragment-->
</body>
</html>)";
}

QString SampleSystemFacts() {
  const QStringList lines{QStringLiteral("%1: %2").arg(QLatin1String(kBundleName), QLatin1String(kVersion)),
                          QStringLiteral("Qt: %1").arg(QLatin1String(qVersion())),
                          QStringLiteral("Platform: xcb"),
                          QStringLiteral("System: Debian GNU/Linux 12 (bookworm), x86_64"),
                          QStringLiteral("Kernel: linux 6.1.0-28-amd64")};
  return lines.join(u'\n');
}

QImage SampleChart() {
  QImage chart(kChartSize, QImage::Format_RGB32);
  chart.fill(Qt::white);
  QPainter painter(&chart);
  painter.setRenderHint(QPainter::Antialiasing);
  QFont font;
  font.setPixelSize(30);
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(QColor(0x2c, 0x2c, 0x32));
  painter.drawText(QPoint(30, 56), QStringLiteral("Rain in the garden, 2025 (mm)"));
  font.setPixelSize(18);
  font.setBold(false);
  painter.setFont(font);
  PaintScale(painter);
  PaintMonths(painter);
  painter.setPen(QColor(0xd9, 0x7a, 0x1e));
  painter.drawText(QRect(560, 36, 300, 28), Qt::AlignRight, QStringLiteral("— mean of thirty years"));
  return chart;
}

}  // namespace quill::ui
