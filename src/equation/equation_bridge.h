#pragma once
#include <QObject>
#include <QString>

namespace quill::equation {

/// The one operation that the page's scripts can call. Only the message "Save" means anything: the page has
/// something to fetch. Values are never taken from a call.
class EquationBridge final : public QObject {
  Q_OBJECT
 public:
  using QObject::QObject;

 public slots:
  void JsCall(const QString& message);

 signals:
  void Save();
};

}  // namespace quill::equation
