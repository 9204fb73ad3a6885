#pragma once
#include <QRectF>
#include <QWidget>
#include <vector>

#include "online/page_history.h"
#include "shell/string_table.h"
#include "ui/windows/monitor/axis_ticks.h"

namespace quill::ui {

/// The history of the number of pages as a line, in steps: a total holds until the next one. Drops are
/// marked. One point is the current one; arrow keys, Home and End go along the points, a click chooses the
/// nearest, and its words are the chart's name for screen readers. Time runs with the direction of reading.
/// GUI thread.
class PageChart final : public QWidget {
  Q_OBJECT
 public:
  explicit PageChart(const shell::StringTable& strings);

  /// Shows these points up to `now`. The current point stays the same one; it is the last one at first, and
  /// again when it was the last one before.
  void SetHistory(std::vector<online::PageHistoryEntry> history, std::chrono::local_seconds now);

  const std::vector<online::PageHistoryEntry>& history() const { return m_history; }

  int current() const { return m_current; }  ///< −1 without points
  void SetCurrent(int point);

  /// The current point in words; empty without points.
  QString CurrentText() const;

  /// Where a point is drawn.
  QPointF PlaceOf(int point) const;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 signals:
  void CurrentChanged();

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Finds what the axes go from and to, and the room that is left beside their labels.
  void Measure();
  double HorizontalPlace(double seconds) const;
  double VerticalPlace(double total) const;
  double SecondsOf(int point) const;
  int PointCount() const { return static_cast<int>(m_history.size()); }
  int NearestPoint(const QPointF& place) const;
  bool IsMirrored() const { return layoutDirection() == Qt::RightToLeft; }
  void TellScreenReader();

  void PaintTotals(QPainter& painter) const;
  void PaintTimes(QPainter& painter) const;
  void PaintLine(QPainter& painter) const;
  void PaintPoints(QPainter& painter) const;
  void PaintCurrent(QPainter& painter) const;

  const shell::StringTable& m_strings;
  std::vector<online::PageHistoryEntry> m_history;
  std::chrono::local_seconds m_now{};
  int m_current = -1;
  double m_from = 0, m_to = 1;  ///< seconds
  QList<AxisTick> m_totals;     ///< what stands beside the grid, from below
  QRectF m_plot;
};

}  // namespace quill::ui
